#pragma once

#include <QPalette>
#include <QStringList>

#include <optional>

namespace Orbel
{

/// Sets of colours that a form can be looked at in, whatever those of the desktop are.

QStringList PaletteNames();
/// Nothing for a name that is none of PaletteNames().
std::optional<QPalette> NamedPalette(const QString &name);

} // namespace Orbel
