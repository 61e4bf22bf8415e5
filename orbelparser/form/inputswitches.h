#pragma once

#include <functional>

namespace KV218
{

/// The switches on which the operator's input depends, all on at first. Input is free while those of the host and of
/// the sheet are both on; the third one then takes a secondary part away.
class InputSwitches
{
public:
    /// Who may take input away.
    enum Switch : int { Host, Sheet, Part };
    /// Has all controls free or lock their input, or only the secondary part of it.
    using Tell = std::function<void(bool enable, bool partial)>;

    /// False for what is no switch.
    bool IsOn(Switch which) const { return IsSwitch(which) && On[which]; }
    /// Sets a switch, and locks or frees the controls by what follows from it now. What is no switch is ignored.
    void Turn(Switch which, bool on, const Tell &tell);
    /// Locks controls just made, which are free, where a switch is off.
    void TellAtStart(const Tell &tell) const;

private:
    static bool IsSwitch(int which) { return which >= Host && which <= Part; }
    bool IsFree() const { return On[Host] && On[Sheet]; }

    bool On[3] = {true, true, true};
};

} // namespace KV218
