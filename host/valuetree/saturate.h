#pragma once

#include <QtGlobal>

#include <cmath>
#include <limits>
#include <type_traits>

namespace Orbel
{

/// The `T` that is nearest to a number that is not NaN.
template <class T> T Saturated(double number)
{
    if constexpr (std::is_floating_point_v<T>) {
        return number;
    } else {
        // The upper bound of a 64-bit integer has no double: it rounds up to the first number that does not fit.
        if (number >= static_cast<double>(std::numeric_limits<T>::max()))
            return std::numeric_limits<T>::max();
        if (number <= static_cast<double>(std::numeric_limits<T>::lowest()))
            return std::numeric_limits<T>::lowest();
        return static_cast<T>(std::llround(number));
    }
}

} // namespace Orbel
