#include "formcheck.h"

namespace Orbel
{

void CheckForm(const FormModel &form, FindingSink &sink)
{
    if (form.Sheets.isEmpty() && form.Script >= 0 && form.Doc.IsWhole() && !sink.Has(Code::ElementSkipped))
        sink.Add(Code::SheetMissing, form.Doc.PlaceOf(form.Form), QStringLiteral("The form has no sheet"));
    if (form.Sheets.size() > 1)
        sink.Add(
            Code::SheetDoubled, form.Doc.PlaceOf(form.Sheets.at(1)), QStringLiteral("A sheet stands before this one"));
    constexpr FormCheck checks[] = {CheckAttributes, CheckProperties, CheckNames, CheckEnums, CheckLimits, CheckDisplay,
        CheckRows, CheckParameterPlaces, CheckConventions, CheckScript, CheckScriptUse, CheckStrayText};
    for (const FormCheck check : checks)
        check(form, sink);
}

} // namespace Orbel
