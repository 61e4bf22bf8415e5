#pragma once

#include "completionlist.h"

namespace Orbel
{

/// What may be written at a place of a form's script, which begins at the index `from` of the form's text: globals,
/// members of controls and enumerations, values of choices in texts.
CompletionList CompleteScript(const OpenForm &form, int from, int place);

} // namespace Orbel
