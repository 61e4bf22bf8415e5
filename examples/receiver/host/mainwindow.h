#pragma once

#include "levelview.h"
#include "receiverlink.h"

#include <session.h>

#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QSettings>

#include <vector>

/// Two forms on one receiver, in docks around its level. Takes the receiver's reports to the forms and what the
/// operator applies to the receiver, and tells each what the other made of it.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// `forms` is the folder of the definitions, which are watched; `presets` the one where presets are kept.
    MainWindow(const QString &forms, const QString &presets);
    void Open(const QString &host, quint16 port);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    /// A form in its dock.
    struct Panel {
        QString Name;
        QDockWidget *Dock;
        std::unique_ptr<Orbel::Session> Form;
    };

    void AddPanel(const QString &file, Qt::DockWidgetArea area);
    void TellFindings(const QString &form, const QVector<Orbel::Finding> &findings);
    void Tell(const QString &text);
    void Send(QVector<Orbel::Change> changes);
    void Report(const ReceiverLink::Report &report);
    void Lock(const QString &reason);

    QString PresetFile(const Panel &panel, const QString &preset) const;
    void ListPresets();
    void StorePreset();
    void RecallPreset(const QString &name);
    void SetDark(bool dark);
    void SetLanguage(const QString &name);

    const QString PresetFolder;
    QSettings Settings;
    QString Address;
    QString Reason = "…";
    ReceiverLink Link;
    std::vector<Panel> Panels;
    LevelView *Level;
    QLabel *State;
    QMenu *Presets;
    QMenu *View;
    QAction *Dark;
};
