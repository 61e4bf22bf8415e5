#pragma once

#include <QLatin1String>

#include <cstring>

namespace Orbel
{

/// A unit in which frequencies are shown, typed and stated. This is the one table of them, for all readers and
/// spellers.
struct FrequencyUnit {
    /// 10^Power Hz, which is also the count of decimal places down to 1 Hz.
    int Power;
    double Hertz;
    const char *Name;

    /// "k" of "kHz"; empty for "Hz".
    QLatin1String Prefix() const { return QLatin1String(Name, int(std::strlen(Name)) - 2); }

    /// The unit of so many Hz; Hz itself for a number that is no unit.
    static const FrequencyUnit &OfHertz(double hertz);
};

/// The greatest first, Hz last.
inline constexpr FrequencyUnit FrequencyUnits[] = {
    {9, 1e9, "GHz"},
    {6, 1e6, "MHz"},
    {3, 1e3, "kHz"},
    {0, 1e0, "Hz"},
};

inline const FrequencyUnit &FrequencyUnit::OfHertz(double hertz)
{
    const FrequencyUnit *unit = FrequencyUnits;
    while (unit->Power > 0 && unit->Hertz != hertz)
        ++unit;
    return *unit;
}

} // namespace Orbel
