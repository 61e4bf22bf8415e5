#pragma once

#include "ifrequencymapreadonlyitem.h"

/// An item of a map of frequencies. A number that is none (NaN) changes nothing.
class ORBEL_HOST_EXPORT IFrequencyMapItem : public IFrequencyMapReadOnlyItem
{
public:
    /// Sets one end, in Hz; the other stays.
    virtual void SetRangeStart(const double &start) = 0;
    virtual void SetRangeStop(const double &stop) = 0;
    /// Moves the range so that its middle is here; its width stays.
    virtual void SetFrequency(double frequency) = 0;
    /// Gives the range this width; its middle stays.
    virtual void SetBandwidth(double bandwidth) = 0;
};
