#include "readablecolor.h"

#include <algorithm>
#include <cmath>

namespace Orbel
{

static constexpr double Readable = 4.5;

/// Of one channel, by the curve of screens.
static double Linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

static double Luminance(const QColor &color)
{
    return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

double ReadableColor::Contrast(const QColor &one, const QColor &other)
{
    const auto [darker, brighter] = std::minmax({Luminance(one), Luminance(other)});
    return (brighter + 0.05) / (darker + 0.05);
}

QColor ReadableColor::On(const QColor &background, const QColor &wanted)
{
    if (Contrast(background, wanted) >= Readable)
        return wanted;
    return Contrast(background, Qt::black) >= Contrast(background, Qt::white) ? Qt::black : Qt::white;
}

QColor ReadableColor::Refused(const QColor &background)
{
    const QColor dark(190, 0, 0);
    const QColor light(255, 140, 140);
    return On(background, Contrast(background, dark) >= Contrast(background, light) ? dark : light);
}

} // namespace Orbel
