#pragma once

#include "survives.h"

#include <QScopeGuard>
#include <QVector>

namespace Orbel
{

/// What a control does towards others when its base class is done: who hears of it may delete the control, which Qt's
/// classes do not survive in the middle of their event handlers.
template <class Control> class LateActs
{
public:
    /// What is done late: a member function of the control.
    using Act = void (Control::*)();

    /// `owner` is the control that holds this.
    explicit LateActs(Control *owner) : Owner(owner) { }

    /// Acts, at once or after the handler that runs; once, however often it is asked for meanwhile. False when the
    /// control is gone.
    bool Request(Act act)
    {
        if (Handlers == 0)
            return Survives(Owner, [this, act] { (Owner->*act)(); });
        if (!Owed.contains(act))
            Owed.append(act);
        return true;
    }
    /// Acts after the handler that runs, or else from the event loop: for what Qt tells out of the middle of its own
    /// work, whoever set that going.
    void RequestLater(Act act)
    {
        if (Handlers > 0)
            Request(act);
        else
            QMetaObject::invokeMethod(
                Owner, [owner = Owner, act] { (owner->*act)(); }, Qt::QueuedConnection);
    }
    /// Runs a handler of the base class, then what was requested meanwhile. False when the control is gone.
    template <class Handler> bool After(const Handler &handler)
    {
        const QPointer<Control> self(Owner);
        {
            const auto leave = qScopeGuard([&] {
                if (self)
                    --Handlers;
            });
            ++Handlers;
            handler();
        }
        while (self && Handlers == 0 && !Owed.isEmpty())
            (Owner->*Owed.takeFirst())();
        return self;
    }

private:
    Control *Owner;
    QVector<Act> Owed;
    int Handlers = 0;
};

} // namespace Orbel
