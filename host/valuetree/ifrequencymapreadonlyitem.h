#pragma once

#include "hostexport.h"

/// An item of a map of frequencies as those see it who only read: a range in Hz.
class ORBEL_HOST_EXPORT IFrequencyMapReadOnlyItem
{
public:
    virtual ~IFrequencyMapReadOnlyItem() = default;

    /// The ends, in Hz.
    virtual double GetRangeStart() const = 0;
    virtual double GetRangeStop() const = 0;
    /// The middle of the range.
    virtual double GetFrequency() const = 0;
    /// Stop minus start.
    virtual double GetBandwidth() const = 0;
};
