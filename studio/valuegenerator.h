#pragma once

#include "controlinfo.h"

#include <QStringList>
#include <QVariant>

namespace Orbel
{

/// What a simulated device reports of one parameter.
struct ValueGenerator {
    enum Kind { None, Constant, Ramp, Noise };

    Kind What = None;
    /// In the units of the parameter; the constant is `From`.
    double From = 0;
    double To = 100;

    /// Its value at a time in milliseconds, as a control of that kind has values; invalid for None. A ramp takes five
    /// seconds. Of a choice the number counts rows, of a switch the upper half is on.
    QVariant At(qint64 time, const ControlInfo &control) const;
};

/// Its names, in the order of the kinds.
QStringList GeneratorNames();

} // namespace Orbel
