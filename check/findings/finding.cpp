#include "finding.h"

namespace Orbel
{

QString NameOf(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return QStringLiteral("error");
    case Severity::Warning:
        return QStringLiteral("warning");
    case Severity::Note:
        break;
    }
    return QStringLiteral("note");
}

} // namespace Orbel
