#pragma once

#include <QStringList>
#include <QVector>

class QScriptEngineDebugger;

namespace Orbel
{

/// The breakpoints in the script of one file, on their way from one debugger to the next: a debugger loses them with
/// the engine that it is attached to.
class Breakpoints
{
public:
    /// Takes what a debugger has for the file.
    void Take(const QScriptEngineDebugger &debugger, const QString &file);
    /// Gives them to a debugger that is attached to an engine without scripts and has none yet.
    void Give(const QScriptEngineDebugger &debugger, const QString &file) const;
    /// Goes with the text of the file, whose text of before is that of the last call.
    void Follow(const QString &text);

    /// Where a line, from 1, stands after a change. One that is gone leaves its place to what stands there now; 0 where
    /// there is nothing.
    static int Moved(int line, const QStringList &before, const QStringList &after);

private:
    struct Breakpoint {
        int Line; ///< In the file.
        bool IsEnabled;
        QString Condition;
    };

    QVector<Breakpoint> All;
    QStringList Lines;
};

} // namespace Orbel
