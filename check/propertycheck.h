#pragma once

#include "findingsink.h"
#include "formmodel.h"

namespace Orbel
{

/// Properties of one widget, whose class is `info`, which may be null.
void CheckPropertiesOf(const WidgetEntry &widget, const ClassInfo *info, const FormModel &form, FindingSink &sink);

} // namespace Orbel
