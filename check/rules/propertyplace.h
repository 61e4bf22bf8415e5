#pragma once

#include "formmodel.h"

namespace Orbel
{

/// The place in the file where a property's text begins; that of the property itself when it has no value element.
inline int PlaceOfValue(const FormModel &form, const PropertyEntry &property)
{
    return form.Doc.PlaceOfText(property.ValueElement >= 0 ? property.ValueElement : property.Element);
}

} // namespace Orbel
