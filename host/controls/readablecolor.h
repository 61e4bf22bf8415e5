#pragma once

#include "hostexport.h"

#include <QColor>

namespace Orbel
{

/// Colours of a text that can be read on their background: by a ratio of 4.5 to 1 in luminance, whatever the palette
/// is.
namespace ReadableColor
{

/// How many times as bright the brighter one is, from 1 to 21.
ORBEL_HOST_EXPORT double Contrast(const QColor &one, const QColor &other);
/// `wanted`, or black or white where that cannot be read.
ORBEL_HOST_EXPORT QColor On(const QColor &background, const QColor &wanted);
/// The red of what is refused.
ORBEL_HOST_EXPORT QColor Refused(const QColor &background);

} // namespace ReadableColor

} // namespace Orbel
