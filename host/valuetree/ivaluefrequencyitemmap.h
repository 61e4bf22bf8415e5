#pragma once

#include "hostexport.h"

/// Marks a node that holds items of a map of frequencies (IFrequencyMapItem), whatever their class. A host finds such
/// nodes by it; the items are reached through the class of the node.
class ORBEL_HOST_EXPORT IValueFrequencyItemMap
{
public:
    virtual ~IValueFrequencyItemMap() = default;
};
