#pragma once

#include <QtGlobal>

namespace Orbel
{

/// Has the processor fetch that many bytes, which need not exist, for a walk that comes there soon: in a large form
/// each object lies elsewhere in memory, and waiting for one after the other takes longer than the work.
inline void FetchSoon(const void *place, int bytes = 1)
{
#ifdef Q_CC_GNU
    // As a number: a pointer must not leave its object, nor move at all when it is null.
    constexpr int line = 64;
    const auto from = reinterpret_cast<quintptr>(place);
    for (int offset = 0; offset < bytes; offset += line)
        __builtin_prefetch(reinterpret_cast<const void *>(from + quintptr(offset)));
#else
    Q_UNUSED(place)
    Q_UNUSED(bytes)
#endif
}

} // namespace Orbel
