#pragma once

#include "ivaluenumeric.h"
#include "saturate.h"

#include <cmath>

namespace Orbel
{

#pragma GCC diagnostic push
// The node's typed setters hide these, or an int given to a node of another integer type would be ambiguous.
#pragma GCC diagnostic ignored "-Woverloaded-virtual"

/// What a typed node answers as IValueNumeric. `Node` derives from this and has the operations on `T`, which it calls.
template <class Node, class T> class ORBEL_HOST_EXPORT NumericSide : public IValueNumeric
{
public:
    void SetValue(double value, IObserver *except) override
    {
        if (!std::isnan(value))
            Typed().SetValue(Saturated<T>(value), except);
    }
    void SetMin(double min, IObserver *except) override
    {
        if (!std::isnan(min))
            Typed().SetMin(Saturated<T>(min), except);
    }
    void SetMax(double max, IObserver *except) override
    {
        if (!std::isnan(max))
            Typed().SetMax(Saturated<T>(max), except);
    }
    void SetStep(double step, IObserver *except) override
    {
        if (!std::isnan(step))
            Typed().SetStep(Saturated<T>(step), except);
    }
    double GetMin() const override { return static_cast<double>(Typed().GetMin()); }
    double GetMax() const override { return static_cast<double>(Typed().GetMax()); }
    double GetStep() const override { return static_cast<double>(Typed().GetStep()); }
    double GetValue() const override { return static_cast<double>(Typed().GetValue()); }

private:
    Node &Typed() { return static_cast<Node &>(*this); }
    const Node &Typed() const { return static_cast<const Node &>(*this); }
};

#pragma GCC diagnostic pop

} // namespace Orbel
