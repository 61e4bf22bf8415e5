#pragma once

#include "breakpoints.h"
#include "studiodock.h"

#include <memory>

class QCheckBox;
class QMainWindow;
class QScriptEngine;
class QScriptEngineDebugger;
class QVBoxLayout;

namespace Orbel
{

/// Qt's debugger of scripts, attached to the form's engine while it is on: breakpoints, stepping, stack and variables,
/// with the name of the form's file and its lines. Breakpoints go from one form to the next.
class DebuggerDock : public StudioDock
{
    Q_OBJECT

public:
    explicit DebuggerDock(Workbench &bench);
    ~DebuggerDock() override;

    /// Whether a script waits for the author.
    bool IsSuspended() const { return Suspended; }
    /// Lets it go on.
    void LetGo();
    /// Ends it, whether it waits or runs.
    void EndScript();
    /// Null while it is off.
    QScriptEngineDebugger *GetDebugger() const { return Debugger.get(); }

private:
    void Switch();
    void Attach(QScriptEngine &engine, const QString &text);
    void Detach();

    QCheckBox *const On;
    QCheckBox *const StopsAtStart;
    QVBoxLayout *Lines;
    std::unique_ptr<QScriptEngineDebugger> Debugger;
    QTimer Later;
    Breakpoints Kept;
    /// How the debugger's window is divided.
    QByteArray Division;
    /// The debugger's own state says the opposite.
    bool Suspended = false;
};

} // namespace Orbel
