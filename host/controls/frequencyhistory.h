#pragma once

#include <QVector>

namespace Orbel
{

/// The last frequencies that an operator set, in Hz, most recent first and each only once. Exported to nobody.
class FrequencyHistory
{
public:
    /// How many are kept.
    static constexpr int Length = 12;

    /// Puts a frequency in front; the oldest goes when there are too many. Infinity and NaN are no frequencies.
    void Add(double hertz);
    const QVector<double> &Frequencies() const { return Entries; }

private:
    QVector<double> Entries;
};

} // namespace Orbel
