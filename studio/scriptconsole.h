#pragma once

#include "workbench.h"

#include <QStringList>
#include <QWidget>

class QLineEdit;
class QPlainTextEdit;
class QSettings;

namespace Orbel
{

class ScriptCompleter;

/// Runs lines in the engine of the form's script and shows what comes of it, what scripts print, and exceptions. The
/// lines are kept under "console/history" of the settings.
class ScriptConsole : public QWidget
{
    Q_OBJECT

public:
    ScriptConsole(Workbench &bench, QSettings &settings);

    void Run(const QString &line);
    void Write(const QString &text);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Enter();
    void Recall(int step);
    void TellFailures();

    Workbench &Bench;
    QSettings &Settings;
    QPlainTextEdit *const Output;
    QLineEdit *const Input;
    ScriptCompleter *const Completer;
    QStringList History;
    /// The line that is shown; the size of the history for a new one.
    int At = 0;
    /// How many of the bench's failures have been told.
    int Told = 0;
};

} // namespace Orbel
