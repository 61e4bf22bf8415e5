#include "studiowindow.h"

#include "debuggerdock.h"
#include "editorcommand.h"
#include "findingsdock.h"
#include "formoverlay.h"
#include "inspectordock.h"
#include "parametersdock.h"
#include "picturesdialog.h"
#include "scriptdock.h"
#include "simulatordock.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

namespace Orbel
{

StudioWindow::StudioWindow(Workbench &bench, QSettings &settings, const QString &editor)
    : Bench(bench), Settings(settings), Editor(editor), Stage(new QWidget), Missing(new QLabel),
      Overlay(new FormOverlay(bench)), State(new QLabel)
{
    setWindowTitle(tr("%1 — Orbel studio").arg(QFileInfo(Bench.GetFile()).fileName()));
    Overlay->setParent(Stage);
    auto *layout = new QVBoxLayout(Stage);
    Missing->setText(tr("There is no form in %1 yet. The findings tell why.").arg(Bench.GetFile()));
    Missing->setAlignment(Qt::AlignCenter);
    Missing->setWordWrap(true);
    layout->addWidget(Missing);
    setCentralWidget(Stage);
    statusBar()->addPermanentWidget(State);
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    AddDocks();
    AddMenus();
    connect(&Bench, &Workbench::formChanged, this, &StudioWindow::TakeForm);
    connect(&Bench, &Workbench::editWanted, this, &StudioWindow::OpenEditor);
    connect(&Bench, &Workbench::picked, this, &StudioWindow::TellPicked);
    connect(&Look, &QTimer::timeout, this, &StudioWindow::TellState);
    Look.start(1000);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    resize(1280, 860);
    resizeDocks({Docks.at(3)}, {520}, Qt::Horizontal);
    resizeDocks({Docks.constFirst()}, {200}, Qt::Vertical);
    restoreGeometry(Settings.value(QStringLiteral("window/geometry")).toByteArray());
    restoreState(Settings.value(QStringLiteral("window/state")).toByteArray());
    TakeForm();
}

void StudioWindow::AddDocks()
{
    AddDock(new FindingsDock(Bench), Qt::BottomDockWidgetArea);
    AddDock(new ScriptDock(Bench, Settings), Qt::BottomDockWidgetArea);
    Debugger = new DebuggerDock(Bench);
    AddDock(Debugger, Qt::BottomDockWidgetArea);
    Debugger->hide();
    Docks.constFirst()->raise();
    auto *inspector = new InspectorDock(Bench, *Overlay);
    Tools = {inspector->GetPointAction(), inspector->GetHintsAction()};
    AddDock(inspector, Qt::RightDockWidgetArea);
    AddDock(new ParametersDock(Bench), Qt::RightDockWidgetArea);
    AddDock(new SimulatorDock(Bench), Qt::RightDockWidgetArea);
    inspector->raise();
}

void StudioWindow::AddDock(StudioDock *dock, Qt::DockWidgetArea area)
{
    for (StudioDock *other : qAsConst(Docks)) {
        if (dockWidgetArea(other) == area) {
            tabifyDockWidget(other, dock);
            Docks.append(dock);
            return;
        }
    }
    addDockWidget(area, dock);
    Docks.append(dock);
}

void StudioWindow::AddMenus()
{
    QMenu *const form = menuBar()->addMenu(tr("&Form"));
    form->addAction(
        tr("&Edit the definition"), this, [this] { OpenEditor(1); }, QKeySequence(tr("Ctrl+E")));
    form->addAction(
        tr("&Make anew"), this, [this] { Bench.Restart(); }, QKeySequence(tr("Ctrl+F5")));
    form->addAction(tr("&Pictures…"), this, [this] { PicturesDialog(Bench, Settings, this).exec(); });
    form->addSeparator();
    form->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
    QMenu *const view = menuBar()->addMenu(tr("&View"));
    view->addActions(Tools);
    view->addSeparator();
    for (StudioDock *dock : qAsConst(Docks)) {
        view->addAction(dock->toggleViewAction());
        // It may come up behind others.
        connect(dock->toggleViewAction(), &QAction::triggered, dock, &QWidget::raise);
    }
}

void StudioWindow::TakeForm()
{
    Session *const session = Bench.GetSession();
    Missing->setVisible(!session);
    if (!session)
        return;
    if (session->GetWidget()->parentWidget() != Stage) {
        Stage->layout()->addWidget(session->GetWidget());
        session->GetWidget()->show();
    }
    Overlay->Cover();
    if (Bench.ShowsFile())
        ReadAt = QTime::currentTime();
    TellState();
    TellPicked();
}

void StudioWindow::TellPicked()
{
    const QString &name = Bench.GetPicked();
    const FormSource::Widget *const widget = Bench.GetSource().Find(name);
    const bool hasLine = widget && widget->FirstLine > 0;
    statusBar()->showMessage(hasLine ? tr("%1:%2: %3").arg(Bench.GetFile()).arg(widget->FirstLine).arg(name) : name);
}

void StudioWindow::TellState()
{
    const QString time = ReadAt.toString(QStringLiteral("HH:mm:ss"));
    const QString name = QFileInfo(Bench.GetFile()).fileName();
    if (!QFileInfo::exists(Bench.GetFile()))
        State->setText(tr("%1 is not there").arg(name));
    else if (!Bench.GetSession())
        State->setText(tr("%1 has no form yet").arg(name));
    else if (Bench.ShowsFile())
        State->setText(tr("Read at %1").arg(time));
    else
        State->setText(tr("%1 has no form now; this is the one of %2").arg(name, time));
}

void StudioWindow::OpenEditor(int line)
{
    if (!EditorCommand::Open(Editor, Bench.GetFile(), line))
        statusBar()->showMessage(tr("The editor could not be started: %1").arg(EditorCommand::Choose(Editor)));
}

void StudioWindow::closeEvent(QCloseEvent *event)
{
    // A script that waits has an event loop of its own.
    if (Debugger->IsSuspended()) {
        Debugger->EndScript();
        event->ignore();
        QTimer::singleShot(0, this, &QWidget::close);
        return;
    }
    // Until it has ended: what the debugger runs in the same engine may be what ends instead.
    connect(&Look, &QTimer::timeout, &Bench, &Workbench::EndScript, Qt::UniqueConnection);
    Look.start(100);
    Bench.EndScript();
    Settings.setValue(QStringLiteral("window/geometry"), saveGeometry());
    Settings.setValue(QStringLiteral("window/state"), saveState());
    QMainWindow::closeEvent(event);
}

} // namespace Orbel
