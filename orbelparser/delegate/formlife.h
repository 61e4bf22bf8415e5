#pragma once

#include "orbelexport.h"

#include <functional>
#include <memory>
#include <vector>

class QScriptEngine;
class QWidget;

namespace KV218
{

/// How long the parts of a form live: its inside with the script engine, and the delegates of its widgets. Any handler
/// may end the form, or drop a widget, from within a call that runs inside of them. Whatever ends then is closed at
/// once and kept; it is destroyed when the outermost of these calls has returned and the event loop has come round,
/// since a script may go on after them. In a form without an engine, what ends while nothing runs is destroyed at once.
/// So code of a form never outlives its own object and needs no guards.
///
/// All parts of one form share one of these, and it lives as long as the last of them. GUI thread only.
class ORBEL_EXPORT FormLife : public std::enable_shared_from_this<FormLife>
{
public:
    FormLife();
    FormLife(const FormLife &) = delete;
    FormLife &operator=(const FormLife &) = delete;
    ~FormLife();

    /// The engine runs scripts inside the form, too, for signals of any object. Not owned; null for none.
    void Watch(QScriptEngine *engine);
    /// Destroys `part`, now or when nothing runs in the form any more.
    template <class Part> void End(Part *part)
    {
        EndPart([part] { delete part; });
    }

    /// Deletes `window` later, and not before nothing runs in the form any more: a call may be about to show or hide
    /// it, and the event loop of a handler's own would delete it then and there. It may go before.
    void EndWindow(QWidget *window);
    /// Deletes `control` when no event loop of a handler's own runs: Qt itself may be about to give it the focus
    /// further up, which is why the form ends. It may go before.
    void EndControl(QWidget *control);

    /// Whether no call runs in the form, no script that its engine reports, and no event loop of a handler's own.
    bool IsAtRest() const { return !IsBusy() && !IsInHandlersLoop(); }

    /// Whether an engine of any form reports that a script runs in it; it does not report each.
    static bool IsAnyScriptRunning();

private:
    friend class CallScope;

    void EndPart(const std::function<void()> &destroy);
    bool IsBusy() const;
    bool IsInHandlersLoop() const;
    void Enter() { ++Calls; }
    void Leave()
    {
        if (--Calls == 0 && !Kept.empty())
            SettleLater(0);
    }
    void SettleLater(int milliseconds);
    void Settle();
    static void SettleAll();

    int Calls = 0;
    /// How deep event loops stand where the form was made; the application's own counts as one.
    const int LoopLevel;
    /// Whether an event is on its way that settles.
    bool IsDue = false;
    QScriptEngine *Engine = nullptr;
    std::vector<std::function<void()>> Kept;
};

/// Keeps the parts of a form for the length of a block. Stands at every door into a form: public operations, events,
/// notifications, slots that go on after they have called somebody.
class CallScope
{
public:
    /// Null keeps nothing.
    explicit CallScope(FormLife *life) : Life(life)
    {
        if (Life)
            Life->Enter();
    }
    // NOLINTNEXTLINE(bugprone-exception-escape): a form's life is shared while a call runs in it.
    ~CallScope()
    {
        if (Life)
            Life->Leave();
    }
    CallScope(const CallScope &) = delete;
    CallScope &operator=(const CallScope &) = delete;

private:
    FormLife *const Life;
};

/// Reaches the inside of an object and keeps it, to the end of the expression in which it stands.
template <class Body> class Running
{
public:
    Running(FormLife *life, Body *body) : Scope(life), Inside(body) { }
    /// Alive as long as this is.
    Body *operator->() const { return Inside; }

private:
    const CallScope Scope;
    Body *const Inside;
};

} // namespace KV218
