#include "scriptwatch.h"

#include <QScriptEngine>

namespace Orbel
{

/// Milliseconds.
static constexpr int LongestRun = 10000;
static constexpr int StepsOfLoop = 100000;

ScriptWatch::ScriptWatch(QScriptEngine *engine) : QScriptEngineAgent(engine) { }

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
    if (Stack.isEmpty())
        return;
    Stack.last() = {script, line};
    if (++Steps % StepsOfLoop == 0 && Clock.elapsed() > LongestRun) {
        Clock.start();
        engine()->currentContext()->throwError(
            QStringLiteral("The script was ended, since it took longer than %1 s").arg(LongestRun / 1000));
    }
}

void ScriptWatch::functionEntry(qint64)
{
    if (Stack.isEmpty()) {
        Clock.start();
        Steps = 0;
    }
    Stack.append({-1, 0});
}

void ScriptWatch::functionExit(qint64, const QScriptValue &)
{
    if (!Stack.isEmpty())
        Stack.removeLast();
}

} // namespace Orbel
