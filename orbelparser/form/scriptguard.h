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
    /// An exception that nobody has caught.
    void TellException(const QScriptValue &exception, int line);

Q_SIGNALS:
    void failed(int line, const QString &text);

private:
    class Watch;

    void Stop();
    void TellStopped(int line);

    QScriptEngine *const Engine;
    QTimer Timer;
    /// The engine's.
    Watch *Agent = nullptr;
};

} // namespace KV218
