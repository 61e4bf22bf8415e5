#pragma once

#include "hostexport.h"

class IObserver;

/// A numeric node seen with double, whatever it holds. Integers take the nearest integer within their range; a number
/// that is none (NaN) changes nothing. What is set and notified is told at ValueNumeric.
class ORBEL_HOST_EXPORT IValueNumeric
{
public:
    virtual ~IValueNumeric() = default;

    /// In the units of the node. `except`, which may be null, is not notified.
    virtual void SetValue(double value, IObserver *except) = 0;
    virtual void SetMin(double min, IObserver *except) = 0;
    virtual void SetMax(double max, IObserver *except) = 0;
    virtual void SetStep(double step, IObserver *except) = 0;
    /// An integer node of 64 bits gives the nearest double.
    virtual double GetMin() const = 0;
    virtual double GetMax() const = 0;
    virtual double GetStep() const = 0;
    virtual double GetValue() const = 0;
};
