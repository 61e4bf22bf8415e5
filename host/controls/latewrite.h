#pragma once

#include <utility>

/// Writes for a control when its base class is done: an observer of the node may delete the control, which the base
/// class does not survive in the middle of its event handlers.
template <class Control> class LateWrite
{
public:
    /// `write` writes the node of `control`.
    LateWrite(Control *control, void (Control::*write)()) : Owner(control), Write(write) { }

    /// Writes, at once or after the handler that runs. The control may be gone afterwards.
    void Request()
    {
        Owed = Handlers > 0;
        if (!Owed)
            (Owner->*Write)();
    }
    /// Runs a handler of the base class, then writes if that was requested meanwhile. The control may be gone
    /// afterwards.
    template <class Handler> void After(const Handler &handler)
    {
        ++Handlers;
        handler();
        --Handlers;
        if (Handlers == 0 && std::exchange(Owed, false))
            (Owner->*Write)();
    }

private:
    Control *Owner;
    void (Control::*Write)();
    int Handlers = 0;
    bool Owed = false;
};
