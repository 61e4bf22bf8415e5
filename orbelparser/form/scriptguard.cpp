#include "scriptguard.h"

#include <QElapsedTimer>
#include <QMetaMethod>
#include <QScriptEngine>
#include <QScriptEngineAgent>

namespace KV218
{

/// Looks at the time while a script runs. Nothing else does so in the thread of the engine without letting events come
/// in between.
class ScriptGuard::Clock : public QScriptEngineAgent
{
public:
    Clock(QScriptEngine *engine, ScriptGuard *guard) : QScriptEngineAgent(engine), Guard(guard) { }

    int Limit = 0;
    const QPointer<ScriptGuard> Guard;

    void positionChange(qint64, int line, int) override
    {
        constexpr int between = 256; // statements from look to look
        if (Depth == 0 && !engine()->isEvaluating())
            Time.invalidate();
        if (!Time.isValid())
            Begin();
        if (++Statements % between != 0 || IsEnded || Time.elapsed() < Limit)
            return;
        IsEnded = true;
        engine()->abortEvaluation();
        if (Guard)
            Guard->TellEnded(line);
    }
    void functionEntry(qint64) override
    {
        if (Depth++ == 0)
            Begin();
    }
    void functionExit(qint64, const QScriptValue &) override { Depth = qMax(0, Depth - 1); }

private:
    void Begin()
    {
        Time.start();
        Statements = 0;
        IsEnded = false;
    }

    QElapsedTimer Time;
    int Depth = 0;
    int Statements = 0;
    bool IsEnded = false;
};

ScriptGuard::ScriptGuard(QScriptEngine *engine) : Engine(engine)
{
    connect(engine, &QScriptEngine::signalHandlerException, this, [this](const QScriptValue &exception) {
        TellException(exception, exception.property(QStringLiteral("lineNumber")).toInt32());
    });
}

ScriptGuard::~ScriptGuard() = default;

void ScriptGuard::SetLimit(int milliseconds)
{
    if (milliseconds <= 0) {
        if (Agent && Engine->agent() == Agent)
            Engine->setAgent(nullptr);
        return;
    }
    if (!Agent)
        Agent = new Clock(Engine, this);
    Agent->Limit = milliseconds;
    Engine->setAgent(Agent);
}

void ScriptGuard::TellException(const QScriptValue &exception, int line)
{
    // The text may come from a function of the script, which runs for nothing when nobody reads it.
    static const QMetaMethod told = QMetaMethod::fromSignal(&ScriptGuard::failed);
    if (isSignalConnected(told))
        Q_EMIT failed(line, exception.toString());
}

void ScriptGuard::TellEnded(int line)
{
    const QString text = QStringLiteral("The script was ended, since it took longer than %1 ms").arg(Agent->Limit);
    // Not from within the script that runs.
    QMetaObject::invokeMethod(
        this, [this, line, text] { Q_EMIT failed(line, text); }, Qt::QueuedConnection);
}

} // namespace KV218
