#pragma once

#include "hostexport.h"

/// Marks a node as one whose changes may set off the sending of commands, for hosts that collect and shorten these.
/// This library sends none, and so there is nothing to call: a host finds by it whose changes it has to collect.
class ORBEL_HOST_EXPORT IOptimizeTrigger
{
public:
    virtual ~IOptimizeTrigger() = default;
};
