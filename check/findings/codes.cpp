#include "codes.h"

namespace Orbel
{

const QVector<CodeInfo> &AllCodes()
{
    static const QVector<CodeInfo> table = {
#define ORBEL_CODE(constant, name, severity, explanation) {name, Severity::severity, explanation},
#include "codes.inc"
    };
    return table;
}

const CodeInfo &InfoOf(Code code)
{
    return AllCodes().at(int(code));
}

} // namespace Orbel
