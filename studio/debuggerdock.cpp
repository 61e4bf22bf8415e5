#include "debuggerdock.h"

#include <QAction>
#include <QCheckBox>
#include <QMainWindow>
#include <QScriptEngineDebugger>
#include <QVBoxLayout>

namespace Orbel
{

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
    connect(On, &QCheckBox::toggled, this, &DebuggerDock::SetOn);
    connect(StopsAtStart, &QCheckBox::toggled, &Bench, &Workbench::SetStopsAtStart);
}

DebuggerDock::~DebuggerDock() = default;

void DebuggerDock::LetGo()
{
    if (Suspended)
        Debugger->action(QScriptEngineDebugger::ContinueAction)->trigger();
}

void DebuggerDock::SetOn(bool on)
{
    if (!Debugger) {
        Debugger = std::make_unique<QScriptEngineDebugger>();
        Debugger->setAutoShowStandardWindow(false);
        QMainWindow *const window = Debugger->standardWindow();
        window->setWindowFlags(Qt::Widget);
        window->setMinimumSize(640, 320);
        Lines->insertWidget(1, window, 1);
        connect(Debugger.get(), &QScriptEngineDebugger::evaluationSuspended, this, [this] {
            Suspended = true;
            show();
            raise();
        });
        connect(Debugger.get(), &QScriptEngineDebugger::evaluationResumed, this, [this] { Suspended = false; });
    }
    Debugger->standardWindow()->setVisible(on);
    if (!on)
        LetGo();
    Bench.SetDebugger(on ? Debugger.get() : nullptr);
}

} // namespace Orbel
