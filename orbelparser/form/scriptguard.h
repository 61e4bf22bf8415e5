#pragma once

#include <QObject>
#include <QTimer>

class QScriptEngine;
class QScriptValue;

namespace KV218
{

/// Tells what goes wrong in the scripts of an engine, and ends those that take too long.
class ScriptGuard : public QObject
{
    Q_OBJECT

public:
    /// `engine` is not owned and outlives this.
    explicit ScriptGuard(QScriptEngine *engine);

    /// In milliseconds for one run from outside; 0 for no limit. With a limit scripts cost more, and a script that runs
    /// for half of it lets events in.
    void SetLimit(int milliseconds);
    /// What the form's script was called when it was run, and its first line there. Lines are told from 1 in the
    /// script.
    void SetPlace(const QString &file, int line);
    /// An exception that nobody has caught; `line` counts as the engine does.
    void TellException(const QScriptValue &exception, int line);

Q_SIGNALS:
    void failed(int line, const QString &text);

private:
    class Watch;

    void Stop();
    void TellStopped(int line);
    int LineOf(const QScriptValue &exception) const;

    QScriptEngine *const Engine;
    QTimer Timer;
    QString File;
    int FirstLine = 1;
    /// The engine's.
    Watch *Agent = nullptr;
};

} // namespace KV218
