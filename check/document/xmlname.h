#pragma once

#include <QString>

namespace Orbel
{

/// Whether the text can be the name of an element or attribute, without a prefix.
bool IsXmlName(const QString &text);

} // namespace Orbel
