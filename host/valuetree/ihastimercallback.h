#pragma once

#include "hostexport.h"

namespace Ember
{

/// Marks a node as one that a timer may bring up to date, for hosts whose values come from a remote device. No timer
/// runs in this library, and so there is nothing to call: a host finds by it whom its own timers concern.
class ORBEL_HOST_EXPORT IHasTimerCallback
{
public:
    virtual ~IHasTimerCallback() = default;
};

} // namespace Ember
