#pragma once

#include "scriptoutput.h"
#include "studiodock.h"

#include <memory>

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QSettings;

namespace Orbel
{

class ScriptConsole;
class SignalLog;

/// The form's script from outside: a console in its engine, and the signals of the controls as they come.
class ScriptDock : public StudioDock
{
    Q_OBJECT

public:
    ScriptDock(Workbench &bench, QSettings &settings);
    ~ScriptDock() override;

private:
    QWidget *NewLogPage();
    void Listen();
    void TellSignal(const QString &text);

    ScriptOutput Output;
    ScriptConsole *const Console;
    QCheckBox *const Recording;
    QLineEdit *const Filter;
    QPlainTextEdit *const Log;
    /// Null while nothing is recorded.
    std::unique_ptr<SignalLog> Signals;
};

} // namespace Orbel
