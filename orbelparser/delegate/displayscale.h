#pragma once

#include "latin1.h"

namespace KV218
{

/// One way to show a quantity: values greater than `above` are divided by `divisor` and carry the suffix.
struct DisplayScale {
    double above;
    double divisor;
    int decimals;
    QLatin1String suffix;
};

// clang-format off
/// For frequencies in Hz.
inline constexpr DisplayScale FrequencyScales[] = {
    {1000000.0, 1000000.0, 9, Latin1(" MHz")},
    {   1000.0,    1000.0, 6, Latin1(" kHz")},
    {      0.0,       1.0, 3, Latin1(" Hz")},
};
// clang-format on

/// The first scale that the value is great enough for; the last one serves all the rest, whatever its `above`.
template <int Count> const DisplayScale &ScaleFor(double value, const DisplayScale (&scales)[Count])
{
    int row = 0;
    while (row < Count - 1 && !(value > scales[row].above))
        ++row;
    return scales[row];
}

} // namespace KV218
