#include "scriptguard.h"

#include <QMetaMethod>
#include <QScriptEngine>
#include <QScriptEngineAgent>

namespace KV218
{

/// Knows when a run of scripts begins and ends, and where it is. The engine itself does not tell of handlers.
class ScriptGuard::Watch : public QScriptEngineAgent
{
public:
    Watch(QScriptEngine *engine, ScriptGuard *guard) : QScriptEngineAgent(engine), Guard(guard) { }

    bool IsRunning() const { return Depth > 0; }

    int Line = 0;
    /// The run that goes on, or was the last, has been told to end.
    bool IsStopped = false;

    void positionChange(qint64, int line, int) override { Line = line; }
    void functionEntry(qint64) override
    {
        if (Depth++ > 0)
            return;
        IsStopped = false;
        Guard->Timer.start();
    }
    void functionExit(qint64, const QScriptValue &) override
    {
        if (--Depth > 0)
            return;
        Guard->Timer.stop();
        if (IsStopped)
            QMetaObject::invokeMethod(
                Guard, [guard = Guard, line = Line] { guard->TellStopped(line); }, Qt::QueuedConnection);
    }

private:
    ScriptGuard *const Guard;
    int Depth = 0;
};

ScriptGuard::ScriptGuard(QScriptEngine *engine) : Engine(engine)
{
    connect(engine, &QScriptEngine::signalHandlerException, this,
        [this](const QScriptValue &exception) { TellException(exception, LineOf(exception)); });
    connect(&Timer, &QTimer::timeout, this, &ScriptGuard::Stop);
}

void ScriptGuard::SetLimit(int milliseconds)
{
    const bool wasLimited = Agent && Engine->agent() == Agent;
    if (milliseconds <= 0) {
        Timer.stop();
        if (wasLimited)
            Engine->setAgent(nullptr);
        return;
    }
    if (!Agent)
        Agent = new Watch(Engine, this);
    Timer.setInterval(milliseconds);
    Engine->setProcessEventsInterval(qMax(1, milliseconds / 2));
    if (!wasLimited)
        Engine->setAgent(Agent);
}

void ScriptGuard::SetPlace(const QString &file, int line)
{
    File = file;
    FirstLine = line;
}

/// 0 where it was thrown in another text than the form's script.
int ScriptGuard::LineOf(const QScriptValue &exception) const
{
    const bool isForms = File.isEmpty() || exception.property(QStringLiteral("fileName")).toString() == File;
    return isForms ? exception.property(QStringLiteral("lineNumber")).toInt32() : 0;
}

/// The engine lets events in while a script runs; this is one.
void ScriptGuard::Stop()
{
    if (!Agent->IsRunning())
        return;
    // Handlers of signals count as running only with a context of their own.
    Engine->pushContext();
    Engine->abortEvaluation();
    Engine->popContext();
    Agent->IsStopped = true;
}

void ScriptGuard::TellStopped(int line)
{
    // A script that ended by itself all the same would leave the stop to the next one.
    if (!Agent->IsRunning())
        Engine->evaluate(QString());
    Q_EMIT failed(line - FirstLine + 1,
        QStringLiteral("The script was ended, since it took longer than %1 ms").arg(Timer.interval()));
}

void ScriptGuard::TellException(const QScriptValue &exception, int line)
{
    // The text may come from a function of the script, which runs for nothing when nobody reads it.
    static const QMetaMethod told = QMetaMethod::fromSignal(&ScriptGuard::failed);
    const bool isOurs = Agent && Agent->IsStopped;
    if (!isOurs && isSignalConnected(told))
        Q_EMIT failed(qMax(0, line - FirstLine + 1), exception.toString());
}

} // namespace KV218
