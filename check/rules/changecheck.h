#pragma once

#include "findingsink.h"
#include "formmodel.h"

namespace Orbel
{

/// What a changed definition does to a form, and what of it has no effect.
void CheckChange(const Document &changed, const FormModel &form, FindingSink &sink);

} // namespace Orbel
