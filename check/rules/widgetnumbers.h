#pragma once

#include "formmodel.h"

namespace Orbel
{

/// A property's number, if it is stated and converts, or else what counts without it.
struct Number {
    const PropertyEntry *Property = nullptr; ///< Null when it is not stated.
    double Value = 0;
    QString Text; ///< Null when there is no number.
    explicit operator bool() const { return !Text.isNull(); }
};

/// The numbers that a widget states. The widget must outlive this.
class WidgetNumbers
{
public:
    /// Of a widget of a known class.
    explicit WidgetNumbers(const WidgetEntry &widget) : Widget(widget), Info(*widget.Info) { }

    /// Whether the library reads the property from this class.
    bool Reads(QLatin1String name) const;
    Number NumberOf(QLatin1String name) const;
    /// A limit in display units, also where the class brings it along.
    Number LimitOf(QLatin1String name) const;
    /// Display units per node unit.
    double Scale() const;

private:
    const WidgetEntry &Widget;
    const ClassInfo &Info;
};

/// What is wrong with a number in node units: ` is below the minimum 3`; empty when it lies inside the limits, or when
/// these are wrong themselves.
QString BeyondLimits(double value, const Number &minimum, const Number &maximum, double scale);

} // namespace Orbel
