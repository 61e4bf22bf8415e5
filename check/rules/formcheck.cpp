#include "formcheck.h"

namespace Orbel
{

void CheckForm(const FormModel &form, FindingSink &sink)
{
    if (form.Sheets.isEmpty() && form.Script >= 0 && form.Doc.IsWhole() && !sink.Has(Code::ElementSkipped))
        sink.Add(Code::SheetMissing, form.Doc.PlaceOf(form.Form), QStringLiteral("The form has no sheet"));
    constexpr FormCheck checks[] = {CheckAttributes, CheckProperties, CheckNames, CheckEnums, CheckLimits, CheckDisplay,
        CheckRows, CheckParameterPlaces, CheckConventions, CheckScript, CheckScriptUse, CheckStrayText};
    for (const FormCheck check : checks)
        check(form, sink);
}

} // namespace Orbel
