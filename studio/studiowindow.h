#pragma once

#include "workbench.h"

#include <QMainWindow>

class QLabel;
class QSettings;

namespace Orbel
{

class DebuggerDock;
class FormOverlay;
class StudioDock;

/// The studio: the form in the middle, as a host shows it, and docks around it. Window and docks are kept under
/// "window/geometry" and "window/state" of the settings.
class StudioWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// `bench` and `settings` outlive the window. `editor` is a command line; see EditorCommand.
    StudioWindow(Workbench &bench, QSettings &settings, const QString &editor = QString());

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void AddDocks();
    void AddDock(StudioDock *dock, Qt::DockWidgetArea area);
    void AddMenus();
    void TakeForm();
    void TellPicked();
    void TellState();
    void OpenEditor(int line);

    Workbench &Bench;
    QSettings &Settings;
    const QString Editor;
    QWidget *const Stage;
    QLabel *const Missing;
    FormOverlay *const Overlay;
    QLabel *const State;
    /// When the form was read that is shown.
    QTime ReadAt;
    QTimer Look;
    QList<StudioDock *> Docks;
    DebuggerDock *Debugger = nullptr;
    /// What docks have for the menu.
    QList<QAction *> Tools;
};

} // namespace Orbel
