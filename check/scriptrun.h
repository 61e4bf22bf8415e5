#pragma once

#include "findingsink.h"
#include "formmodel.h"

namespace Orbel
{

/// Builds the form as a host does, runs its script and makes its controls, then tells what went wrong. What still runs
/// after `milliseconds` is ended.
void RunForm(const FormModel &form, int milliseconds, const Check::RunWatch &watch, FindingSink &sink);

} // namespace Orbel
