#pragma once

#include "findingsink.h"
#include "formmodel.h"

#include <functional>

namespace Orbel
{

/// As Check::RunWatch.
using RunWatch = std::function<void(bool isRunning)>;

/// Builds the form as a host does, runs its script and makes its controls, then tells what went wrong. What still runs
/// after `milliseconds` is ended.
void RunForm(const FormModel &form, int milliseconds, const RunWatch &watch, FindingSink &sink);

} // namespace Orbel
