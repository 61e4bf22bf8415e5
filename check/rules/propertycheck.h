#pragma once

#include "findingsink.h"
#include "formmodel.h"

namespace Orbel
{

/// The properties that the widget of a change gives to `changed`, a widget of the form.
void CheckChangedProperties(const WidgetEntry &widget, const FormModel &change, const WidgetEntry &changed,
    const FormModel &form, FindingSink &sink);

} // namespace Orbel
