#include "formcheck.h"

namespace Orbel
{

void CheckForm(const FormModel &form, FindingSink &sink)
{
    constexpr FormCheck checks[] = {CheckAttributes, CheckProperties, CheckNames, CheckEnums, CheckLimits, CheckRows,
        CheckParameterPlaces, CheckConventions, CheckScript, CheckScriptUse, CheckStrayText};
    for (const FormCheck check : checks)
        check(form, sink);
}

} // namespace Orbel
