#include "xmlname.h"

#include <QRegularExpression>

namespace Orbel
{

bool IsXmlName(const QString &text)
{
    static const QRegularExpression name(
        QStringLiteral("\\A[\\p{L}_][\\p{L}\\p{M}\\p{N}_.\\-]*\\z"), QRegularExpression::UseUnicodePropertiesOption);
    return name.match(text).hasMatch();
}

} // namespace Orbel
