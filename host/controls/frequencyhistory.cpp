#include "frequencyhistory.h"

#include <cmath>

namespace Orbel
{

void FrequencyHistory::Add(double hertz)
{
    if (!std::isfinite(hertz))
        return;
    Entries.removeOne(hertz);
    Entries.prepend(hertz);
    if (Entries.size() > Length)
        Entries.removeLast();
}

} // namespace Orbel
