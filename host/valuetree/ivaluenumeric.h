#pragma once

#include "hostexport.h"

class IObserver;

/// A numeric node seen with double, whatever it holds. Integers take the nearest integer within their range; a number
/// that is none (NaN) changes nothing. What is set and notified is told at ValueNumeric.
class ORBEL_HOST_EXPORT IValueNumeric
{
public:
    virtual ~IValueNumeric() = default;

    void SetValue(double value, IObserver *except) { SetNumber(value, except); }
    void SetMin(double min, IObserver *except) { SetLowest(min, except); }
    void SetMax(double max, IObserver *except) { SetHighest(max, except); }
    void SetStep(double step, IObserver *except) { SetIncrement(step, except); }
    double GetMin() const { return Lowest(); }
    double GetMax() const { return Highest(); }
    double GetStep() const { return Increment(); }
    double GetValue() const { return Number(); }

private:
    // Named apart from the public ones, which a typed node offers again with its own type.
    virtual void SetNumber(double value, IObserver *except) = 0;
    virtual void SetLowest(double min, IObserver *except) = 0;
    virtual void SetHighest(double max, IObserver *except) = 0;
    virtual void SetIncrement(double step, IObserver *except) = 0;
    virtual double Lowest() const = 0;
    virtual double Highest() const = 0;
    virtual double Increment() const = 0;
    virtual double Number() const = 0;
};
