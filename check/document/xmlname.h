#pragma once

#include "checkexport.h"

#include <QString>

namespace Orbel
{

/// Whether the text can be the name of an element or attribute, without a prefix.
ORBEL_CHECK_INTERNAL bool IsXmlName(const QString &text);

} // namespace Orbel
