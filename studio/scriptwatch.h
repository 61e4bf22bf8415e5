#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QScriptEngineAgent>
#include <QString>
#include <QVector>

namespace Orbel
{

/// Knows where in which script an engine runs, and ends a loop that takes longer than ten seconds. Only one
/// agent counts: under a debugger, nothing is known here.
class ScriptWatch : public QScriptEngineAgent
{
public:
    /// The engine owns it.
    explicit ScriptWatch(QScriptEngine *engine);

    struct Place {
        QString File;
        /// From 1, as the file counts; 0 where nothing runs.
        int Line = 0;
    };
    /// Where the engine runs now.
    Place Where() const;

    void scriptLoad(qint64 id, const QString &program, const QString &file, int line) override;
    void positionChange(qint64 script, int line, int column) override;
    void functionEntry(qint64 script) override;
    void functionExit(qint64 script, const QScriptValue &value) override;

private:
    struct Position {
        qint64 Script;
        int Line;
    };
    QHash<qint64, QString> Files;
    QVector<Position> Stack;
    QElapsedTimer Clock;
    /// Statements since then: what waits for an answer takes long, too.
    int Steps = 0;
};

} // namespace Orbel
