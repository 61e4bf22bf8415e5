#include "debuggerdock.h"

#include <QAction>
#include <QCheckBox>
#include <QMainWindow>
#include <QScriptEngineDebugger>
#include <QVBoxLayout>

namespace Orbel
{

/// So that code, stack and variables are to be seen in a dock: there is one script, and what it prints stands
/// elsewhere.
static void Arrange(QMainWindow &window)
{
    const auto dock = [&](const char *name) {
        return window.findChild<QDockWidget *>(
            QStringLiteral("qtscriptdebugger_%1DockWidget").arg(QLatin1String(name)));
    };
    window.setWindowFlags(Qt::Widget);
    window.setMinimumSize(640, 440);
    for (const char *name : {"scripts", "debugOutput", "errorLog"}) {
        if (QDockWidget *const unneeded = dock(name))
            unneeded->hide();
    }
    QDockWidget *const console = dock("console");
    QDockWidget *const breakpoints = dock("breakpoints");
    if (console && breakpoints) {
        window.tabifyDockWidget(console, breakpoints);
        console->raise();
    }
}

DebuggerDock::DebuggerDock(Workbench &bench)
    : StudioDock(bench, tr("Debugger"), "debugger"),
      On(new QCheckBox(tr("&Debug the script, which makes the form anew"))),
      StopsAtStart(new QCheckBox(tr("Stop at its &start")))
{
    auto *page = new QWidget;
    Lines = new QVBoxLayout(page);
    auto *line = new QHBoxLayout;
    line->addWidget(On);
    line->addWidget(StopsAtStart);
    line->addStretch();
    Lines->addLayout(line);
    Lines->addStretch();
    On->setObjectName(QStringLiteral("debugScript"));
    StopsAtStart->setObjectName(QStringLiteral("stopAtStart"));
    setWidget(page);
    connect(On, &QCheckBox::toggled, this, &DebuggerDock::Switch);
    Later.setSingleShot(true);
    Later.setInterval(50);
    connect(&Later, &QTimer::timeout, this, &DebuggerDock::Switch);
}

DebuggerDock::~DebuggerDock()
{
    Detach();
}

void DebuggerDock::LetGo()
{
    if (Suspended)
        Debugger->action(QScriptEngineDebugger::ContinueAction)->trigger();
}

void DebuggerDock::EndScript()
{
    LetGo();
    Bench.EndScript();
}

/// A debugger stays for as long as a script is on the stack, which it has stopped perhaps.
void DebuggerDock::Switch()
{
    LetGo();
    if (Bench.IsScriptRunning()) {
        Later.start();
        return;
    }
    Detach();
    if (On->isChecked())
        Bench.SetDebugger([this](QScriptEngine &engine, const QString &text) { Attach(engine, text); });
    else
        Bench.SetDebugger({});
}

/// A debugger for each form: one that goes from engine to engine shows breakpoints that are not there any more.
void DebuggerDock::Attach(QScriptEngine &engine, const QString &text)
{
    Detach();
    Debugger = std::make_unique<QScriptEngineDebugger>();
    Debugger->setAutoShowStandardWindow(false);
    QMainWindow *const window = Debugger->standardWindow();
    Arrange(*window);
    Lines->insertWidget(1, window, 1);
    window->restoreState(Division);
    window->show();
    connect(Debugger.get(), &QScriptEngineDebugger::evaluationSuspended, this, [this] {
        Suspended = true;
        show();
        raise();
    });
    connect(Debugger.get(), &QScriptEngineDebugger::evaluationResumed, this, [this] { Suspended = false; });
    Debugger->attachTo(&engine);
    Kept.Follow(text);
    Kept.Give(*Debugger, Bench.GetFile());
    if (StopsAtStart->isChecked())
        Debugger->action(QScriptEngineDebugger::InterruptAction)->trigger();
}

void DebuggerDock::Detach()
{
    if (!Debugger)
        return;
    Kept.Take(*Debugger, Bench.GetFile());
    // The window is not the debugger's to destroy.
    const std::unique_ptr<QMainWindow> window(Debugger->standardWindow());
    Division = window->saveState();
    Debugger->detach();
    Debugger.reset();
}

} // namespace Orbel
