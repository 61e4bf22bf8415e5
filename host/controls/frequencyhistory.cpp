#include "frequencyhistory.h"

#include <cmath>

void FrequencyHistory::Add(double hertz)
{
    if (!std::isfinite(hertz))
        return;
    Entries.removeOne(hertz);
    Entries.prepend(hertz);
    if (Entries.size() > Length)
        Entries.removeLast();
}
