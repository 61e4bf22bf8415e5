#pragma once

#include <QLatin1String>

namespace KV218
{

/// A literal as a constant. Counts its length by the array, since not every compiler does so by the text.
template <int Size> constexpr QLatin1String Latin1(const char (&text)[Size])
{
    return QLatin1String(text, Size - 1);
}

} // namespace KV218
