#include "scriptwatch.h"

#include <QScriptEngine>
#include <QThread>

#include <utility>

namespace Orbel
{

ScriptWatch::ScriptWatch(QScriptEngine *engine, int limit, const Teller &tell) : QScriptEngineAgent(engine), Tell(tell)
{
    Limit.setSingleShot(true);
    Limit.setInterval(limit);
    QObject::connect(&Limit, &QTimer::timeout, &Limit, [this] { Stop(); });
    // The engine lets no events in by itself, and tells of no statement in an empty loop.
    engine->setProcessEventsInterval(qMax(1, limit / 2));
}

ScriptWatch::Place ScriptWatch::Where() const
{
    // A function of the engine's own, or of an object, stands on the line that calls it.
    for (int i = Stack.size() - 1; i >= 0; --i) {
        if (Stack.at(i).Line > 0)
            return {Files.value(Stack.at(i).Script), Stack.at(i).Line};
    }
    return {};
}

void ScriptWatch::scriptLoad(qint64 id, const QString &, const QString &file, int)
{
    Files.insert(id, file);
}

void ScriptWatch::positionChange(qint64 script, int line, int)
{
    if (!Stack.isEmpty())
        Stack.last() = {script, line};
}

void ScriptWatch::functionEntry(qint64)
{
    if (Stack.isEmpty()) {
        Loops = QThread::currentThread()->loopLevel();
        Limit.start();
    }
    Stack.append({-1, 0});
}

void ScriptWatch::functionExit(qint64, const QScriptValue &)
{
    if (!Stack.isEmpty())
        Stack.removeLast();
    if (!Stack.isEmpty())
        return;
    Limit.stop();
    if (std::exchange(IsStopped, false))
        QTimer::singleShot(0, &Limit, [this] { TellStopped(); });
}

/// No script can catch that. One that waits in an event loop, for an answer in a dialog, does not take long by itself.
void ScriptWatch::Stop()
{
    if (QThread::currentThread()->loopLevel() > Loops)
        return Limit.start();
    IsStopped = true;
    Stopped = Where();
    // Handlers of signals count as running only with a context of their own.
    engine()->pushContext();
    engine()->abortEvaluation();
    engine()->popContext();
}

void ScriptWatch::TellStopped()
{
    // A script that ended by itself all the same would leave the stop to the next one.
    if (Stack.isEmpty())
        engine()->evaluate(QString());
    Tell(Stopped);
}

} // namespace Orbel
