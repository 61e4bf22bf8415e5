#pragma once

#include "finding.h"

namespace Orbel
{

/// Every kind of finding, from the rows of codes.inc.
enum class Code {
#define ORBEL_CODE(constant, ...) constant,
#include "codes.inc"
};

struct CodeInfo {
    const char *name;
    Severity severity;
    const char *explanation;
};

/// In the order of the enumeration.
ORBEL_CHECK_INTERNAL const QVector<CodeInfo> &AllCodes();
const CodeInfo &InfoOf(Code code);

} // namespace Orbel
