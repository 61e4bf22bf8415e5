#include "inputswitches.h"

namespace KV218
{

void InputSwitches::Turn(Switch which, bool on, const Tell &tell)
{
    if (!IsSwitch(which) || on == On[which])
        return;
    On[which] = on;
    if (which == Part) {
        if (IsFree())
            tell(on, true);
        return;
    }
    if (!On[which == Host ? Sheet : Host])
        return;
    tell(on, false);
    // Whoever was notified may have set the third switch.
    if (on && !On[Part])
        tell(false, true);
}

void InputSwitches::TellAtStart(const Tell &tell) const
{
    const bool free = IsFree();
    if (free && On[Part])
        return;
    tell(true, false);
    tell(false, free);
}

} // namespace KV218
