#pragma once

#include "findingsink.h"
#include "formmodel.h"

namespace Orbel
{

/// One family of findings about a form; each has its own file. `sink` gets what is found. In a form that is not whole
/// nothing is said about what may stand behind the end.
using FormCheck = void (*)(const FormModel &form, FindingSink &sink);

void CheckAttributes(const FormModel &form, FindingSink &sink);
void CheckProperties(const FormModel &form, FindingSink &sink);
void CheckNames(const FormModel &form, FindingSink &sink);
void CheckEnums(const FormModel &form, FindingSink &sink);
void CheckLimits(const FormModel &form, FindingSink &sink);
/// What shows against what is held and written.
void CheckDisplay(const FormModel &form, FindingSink &sink);
void CheckRows(const FormModel &form, FindingSink &sink);
void CheckParameterPlaces(const FormModel &form, FindingSink &sink);
void CheckConventions(const FormModel &form, FindingSink &sink);
void CheckScript(const FormModel &form, FindingSink &sink);
/// How a script that can be read uses controls and language.
void CheckScriptUse(const FormModel &form, FindingSink &sink);
/// Whether the engine refuses a whole script, so that nothing of it runs.
bool IsScriptRefused(const QString &code);
void CheckStrayText(const FormModel &form, FindingSink &sink);

/// All of them.
void CheckForm(const FormModel &form, FindingSink &sink);

} // namespace Orbel
