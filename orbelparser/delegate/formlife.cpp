#include "formlife.h"

#include "exceptionstop.h"

#include <algorithm>
#include <QCoreApplication>
#include <QPointer>
#include <QScriptEngine>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace KV218
{

namespace
{

// How often to look whether a script that runs in an event loop of a handler's own has come to its end.
constexpr int MillisecondsOfScript = 50;
// How often to look whether the event loop of a handler has come to its end.
constexpr int MillisecondsOfLoop = 50;

/// The engines of all forms. Never destroyed: a form may be the last thing that goes.
std::vector<QScriptEngine *> &Engines()
{
    static auto *const engines = new std::vector<QScriptEngine *>;
    return *engines;
}

/// Those that keep parts. Held here, since every part of them may have ended.
std::vector<std::shared_ptr<FormLife>> &Keeping()
{
    static auto *const keeping = new std::vector<std::shared_ptr<FormLife>>;
    return *keeping;
}

} // namespace

FormLife::FormLife() : LoopLevel(qMax(1, QThread::currentThread()->loopLevel())) { }

FormLife::~FormLife()
{
    Watch(nullptr);
}

void FormLife::Watch(QScriptEngine *engine)
{
    std::vector<QScriptEngine *> &engines = Engines();
    engines.erase(std::remove(engines.begin(), engines.end(), Engine), engines.end());
    Engine = engine;
    if (!engine)
        return;
    engines.push_back(engine);
    Orbel::ExceptionStop::Ask(&FormLife::IsAnyScriptRunning);
}

bool FormLife::IsAnyScriptRunning()
{
    const std::vector<QScriptEngine *> &engines = Engines();
    return std::any_of(
        engines.begin(), engines.end(), [](const QScriptEngine *engine) { return engine->isEvaluating(); });
}

void FormLife::EndWindow(QWidget *window)
{
    EndPart([ending = QPointer<QWidget>(window)] {
        if (ending)
            ending->deleteLater();
    });
}

void FormLife::EndControl(QWidget *control)
{
    if (!IsInHandlersLoop())
        EndWindow(control);
    else
        QTimer::singleShot(
            MillisecondsOfLoop, control, [self = shared_from_this(), control] { self->EndControl(control); });
}

bool FormLife::IsInHandlersLoop() const
{
    return QThread::currentThread()->loopLevel() > LoopLevel;
}

bool FormLife::IsBusy() const
{
    return Calls > 0 || (Engine && Engine->isEvaluating());
}

void FormLife::EndPart(const std::function<void()> &destroy)
{
    // An engine does not report a script that handles a signal and sets a property, whose event ends the form: while
    // there is one, nothing is destroyed before the event loop has come round, and not in one of a handler's own.
    if (!IsBusy() && (!Engine || !QCoreApplication::instance())) {
        destroy();
        return;
    }
    // What no event loop came round for ends with the application.
    if (Keeping().empty())
        qAddPostRoutine(&FormLife::SettleAll);
    if (Kept.empty())
        Keeping().push_back(shared_from_this());
    Kept.push_back(destroy);
    SettleLater(0);
}

/// Not at once: a script's function that handles a signal goes on after the last call into the form has returned, and
/// the engine does not tell.
void FormLife::SettleLater(int milliseconds)
{
    const auto self = shared_from_this();
    if (!QCoreApplication::instance())
        Settle();
    else if (!std::exchange(IsDue, true))
        // The handler keeps what it needs.
        QTimer::singleShot(milliseconds, [self] { // clazy:exclude=connect-3arg-lambda
            self->IsDue = false;
            self->Settle();
        });
}

void FormLife::SettleAll()
{
    const auto keeping = Keeping();
    for (const std::shared_ptr<FormLife> &life : keeping)
        life->Settle();
}

void FormLife::Settle()
{
    // The end of the last call comes back here.
    if (Calls > 0 || Kept.empty())
        return;
    if (IsBusy() || (Engine && IsInHandlersLoop())) {
        SettleLater(MillisecondsOfScript);
        return;
    }
    const auto self = shared_from_this();
    std::vector<std::shared_ptr<FormLife>> &keeping = Keeping();
    keeping.erase(std::remove(keeping.begin(), keeping.end(), self), keeping.end());
    if (keeping.empty())
        qRemovePostRoutine(&FormLife::SettleAll);
    const std::vector<std::function<void()>> ended = std::move(Kept);
    Kept.clear();
    for (const auto &destroy : ended)
        destroy();
}

} // namespace KV218
