#pragma once

#include <QByteArray>
#include <QLatin1String>

#include <cstring>

namespace KV218
{

/// A literal as a constant. Counts its length by the array, since not every compiler does so by the text.
template <int Size> constexpr QLatin1String Latin1(const char (&text)[Size])
{
    return QLatin1String(text, Size - 1);
}

/// Whether the bytes are those of a text, which QLatin1String would have to be told by counting them.
inline bool HasLetters(const QByteArray &bytes, QLatin1String text)
{
    return bytes.size() == text.size() && std::memcmp(bytes.constData(), text.data(), size_t(text.size())) == 0;
}

} // namespace KV218
