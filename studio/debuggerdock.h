#pragma once

#include "studiodock.h"

#include <memory>

class QCheckBox;
class QScriptEngineDebugger;
class QVBoxLayout;

namespace Orbel
{

/// Qt's debugger of scripts, attached to the form's engine while it is on: breakpoints, stepping, stack and variables,
/// with the name of the form's file and its lines.
class DebuggerDock : public StudioDock
{
    Q_OBJECT

public:
    explicit DebuggerDock(Workbench &bench);
    ~DebuggerDock() override;

    /// Whether a script waits for the author.
    bool IsSuspended() const { return Suspended; }
    /// Lets it go on, without a debugger.
    void LetGo();
    /// Null while it is off.
    QScriptEngineDebugger *GetDebugger() const { return Debugger.get(); }

private:
    void SetOn(bool on);

    QCheckBox *const On;
    QCheckBox *const StopsAtStart;
    QVBoxLayout *Lines;
    std::unique_ptr<QScriptEngineDebugger> Debugger;
    /// The debugger's own state says the opposite.
    bool Suspended = false;
};

} // namespace Orbel
