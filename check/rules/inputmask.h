#pragma once

#include <QString>

namespace Orbel
{

/// Whether a line edit with the mask takes the whole of a text; characters that the mask itself puts there may stand in
/// the text or be left out. Any text fits an empty mask.
bool FitsInputMask(const QString &text, const QString &mask);

} // namespace Orbel
