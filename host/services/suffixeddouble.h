#pragma once

#include "hostexport.h"

#include <QString>

/// Spells a number in a chosen scale with its unit, as "145.5 MHz".
class ORBEL_HOST_EXPORT SuffixedDouble
{
public:
    /// The scales, by powers of the base.
    enum ESuffix { ekPlain = 1, ekKilo = 2, ekMega = 3, ekGiga = 4 };

    /// `base` is the ratio of one scale to the next, 1000 or 1024; one below 2 counts as 1000. `tight` leaves out the
    /// blank before the unit. The scale is plain at first.
    SuffixedDouble(QString unit, int base, bool tight);

    /// A number that is no ESuffix takes the nearest one.
    void SetSuffix(ESuffix suffix);
    /// The number, which is in the plain unit, in the chosen scale: decimal point, no exponent, no group separators,
    /// and no more digits than it takes to read back the same number.
    QString GetString(double number) const;

private:
    QString Unit;
    int Base;
    bool Tight;
    ESuffix Suffix = ekPlain;
};
