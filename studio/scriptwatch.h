#pragma once

#include <QHash>
#include <QScriptEngineAgent>
#include <QString>
#include <QTimer>
#include <QVector>

#include <functional>

namespace Orbel
{

/// Knows where in which script an engine runs, and ends what takes too long, for which it lets events in. Only one
/// agent counts: under a debugger, nothing is known here.
class ScriptWatch : public QScriptEngineAgent
{
public:
    struct Place {
        QString File;
        /// From 1, as the file counts; 0 where nothing runs.
        int Line = 0;
    };
    /// What is called when a run has been ended, later than that, with where it was.
    using Teller = std::function<void(const Place &)>;

    /// The engine owns it. The limit is in milliseconds, of each run from outside.
    ScriptWatch(QScriptEngine *engine, int limit, const Teller &tell);

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
    void Stop();
    void TellStopped();

    QHash<qint64, QString> Files;
    QVector<Position> Stack;
    QTimer Limit;
    const Teller Tell;
    /// Where the last run was when it was told to end.
    Place Stopped;
    /// The run that goes on has been told to end.
    bool IsStopped = false;
    /// How many event loops ran when it began.
    int Loops = 0;
};

} // namespace Orbel
