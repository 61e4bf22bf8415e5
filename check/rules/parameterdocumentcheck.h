#pragma once

#include "findingsink.h"
#include "formmodel.h"

namespace Orbel
{

/// What of a parameter document reaches the controls of a form, and what does not.
void CheckParameterDocument(const Document &parameters, const FormModel &form, FindingSink &sink);

} // namespace Orbel
