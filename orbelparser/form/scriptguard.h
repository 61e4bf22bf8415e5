#pragma once

#include <QObject>
#include <QPointer>

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
    ~ScriptGuard() override;

    /// In milliseconds for one run from outside; 0 for no limit. Scripts cost more with a limit than without.
    void SetLimit(int milliseconds);
    /// An exception that nobody has caught.
    void TellException(const QScriptValue &exception, int line);

Q_SIGNALS:
    void failed(int line, const QString &text);

private:
    class Clock;

    void TellEnded(int line);

    QScriptEngine *const Engine;
    /// The engine's.
    Clock *Agent = nullptr;
};

} // namespace KV218
