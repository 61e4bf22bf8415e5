#pragma once

#include <QtGlobal>

namespace Orbel
{

/// Has the processor fetch that many bytes, which need not exist, for a walk that comes there soon: in a large form
/// each object lies elsewhere in memory, and waiting for one after the other takes longer than the work.
inline void FetchSoon(const void *place, int bytes = 1)
{
#ifdef Q_CC_GNU
    constexpr int line = 64;
    for (int offset = 0; offset < bytes; offset += line)
        __builtin_prefetch(static_cast<const char *>(place) + offset);
#else
    Q_UNUSED(place)
    Q_UNUSED(bytes)
#endif
}

} // namespace Orbel
