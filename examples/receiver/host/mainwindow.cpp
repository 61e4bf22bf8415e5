#include "mainwindow.h"

#include "commands.h"

#include <translationcenter.h>

#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QMenuBar>
#include <QSaveFile>
#include <QStatusBar>
#include <QUrl>

#include <algorithm>

namespace
{

/// As the receiver's commands take it.
QString TextOf(const QVariant &value)
{
    return value.type() == QVariant::Bool ? QString::number(value.toInt()) : value.toString();
}

/// What is switched off goes first and what is switched on last: a scan that runs, or the automatic gain, is in the way
/// of other values.
int RankOf(const Orbel::Change &change)
{
    if (change.New.type() != QVariant::Bool)
        return 1;
    return change.New.toBool() ? 2 : 0;
}

} // namespace

MainWindow::MainWindow(const QString &forms, const QString &presets)
    : PresetFolder(presets), Level(new LevelView), State(new QLabel)
{
    setCentralWidget(Level);
    statusBar()->addPermanentWidget(State);
    AddPanel(forms + "/tuning.orbel", Qt::LeftDockWidgetArea);
    AddPanel(forms + "/scan.orbel", Qt::RightDockWidgetArea);

    Presets = menuBar()->addMenu(QString());
    View = menuBar()->addMenu(QString());
    Dark = View->addAction(QString(), this, &MainWindow::SetDark);
    Dark->setCheckable(true);
    for (const auto &[name, text] : {std::pair("en", "English"), std::pair("de", "Deutsch")})
        View->addAction(text, this, [this, name = QString(name)] { SetLanguage(name); });
    for (const Panel &panel : Panels)
        View->addAction(panel.Dock->toggleViewAction());
    SetLanguage(Settings.value("language", "en").toString());
    SetDark(Settings.value("dark").toBool());
    resize(1080, 560);
    resizeDocks({Panels.front().Dock, Panels.back().Dock}, {340, 340}, Qt::Horizontal);
    restoreGeometry(Settings.value("geometry").toByteArray());
    restoreState(Settings.value("state").toByteArray());

    connect(&Link, &ReceiverLink::up, this, [this] { Lock({}); });
    connect(&Link, &ReceiverLink::down, this, &MainWindow::Lock);
    connect(&Link, &ReceiverLink::reported, this, &MainWindow::Report);
    connect(&Link, &ReceiverLink::accepted, this, [this](const QString &path) {
        for (const Panel &panel : Panels)
            panel.Form->Confirm(path);
    });
    connect(&Link, &ReceiverLink::refused, this, [this](const QString &path, const QString &reason) {
        Tell(path + ": " + reason);
        for (const Panel &panel : Panels)
            panel.Form->Refuse(path, reason);
    });
}

void MainWindow::Open(const QString &host, quint16 port)
{
    Address = QString("%1:%2").arg(host).arg(port);
    Link.Open(host, port);
}

void MainWindow::AddPanel(const QString &file, Qt::DockWidgetArea area)
{
    const QString name = QFileInfo(file).baseName();
    Orbel::Opening opening = Orbel::Session::OpenFile(file);
    TellFindings(name, opening.Told);
    if (!opening)
        exit(1);
    Orbel::Session *form = opening.Opened.get();
    Panels.push_back({name, new QDockWidget, std::move(opening.Opened)});
    form->GetWidget()->setContentsMargins(8, 4, 8, 4);
    Panels.back().Dock->setWidget(form->GetWidget());
    Panels.back().Dock->setObjectName(name);
    addDockWidget(area, Panels.back().Dock);

    form->Restore(Settings, name);
    form->SetAnswerTime(2000);
    form->Watch(file);
    connect(form, &Orbel::Session::applied, this, &MainWindow::Send);
    connect(form, &Orbel::Session::reloaded, this, [=](const auto &findings) { TellFindings(name, findings); });
    connect(form, &Orbel::Session::scriptFailed, this, [this](const QString &script, int line, const QString &text) {
        Tell(QString("%1:%2: %3").arg(script).arg(line).arg(text));
    });
}

void MainWindow::TellFindings(const QString &form, const QVector<Orbel::Finding> &findings)
{
    Tell(tr("%1: read").arg(form));
    for (const Orbel::Finding &finding : findings)
        Tell(QString("%1:%2: %3").arg(form).arg(finding.Line).arg(finding.Text));
}

void MainWindow::Tell(const QString &text)
{
    qInfo("%s", qPrintable(text));
    statusBar()->showMessage(text, 10000);
}

void MainWindow::Send(QVector<Orbel::Change> changes)
{
    std::stable_sort(changes.begin(), changes.end(),
        [](const Orbel::Change &left, const Orbel::Change &right) { return RankOf(left) < RankOf(right); });
    for (const Orbel::Change &change : qAsConst(changes)) {
        for (const Command &command : Commands) {
            if (change.Path == command.Path)
                Link.Send(change.Path, QString(command.Header) + ' ' + TextOf(change.New));
        }
    }
}

void MainWindow::Report(const ReceiverLink::Report &report)
{
    Level->Add(report.value("MEAS:LEV").toDouble(), report.value("FREQ").toDouble());
    QVariantMap values;
    for (const Command &command : Commands) {
        if (report.contains(command.Header))
            values.insert(command.Path, report.value(command.Header));
    }
    // Each takes what it has.
    for (const Panel &panel : Panels)
        panel.Form->Report(values);
}

/// Until the connection stands: then the reason is empty.
void MainWindow::Lock(const QString &reason)
{
    Reason = reason;
    State->setText(reason.isEmpty() ? tr("connected") : tr("not connected: %1").arg(reason));
    setWindowTitle(QString("%1 (%2)").arg(Address, State->text()));
    if (!reason.isEmpty())
        Level->Add(qQNaN(), 0);
    for (const Panel &panel : Panels)
        panel.Form->Lock(reason.isEmpty() ? reason : tr("not connected"));
}

QString MainWindow::PresetFile(const Panel &panel, const QString &preset) const
{
    return PresetFolder + '/' + panel.Name + '/' + QUrl::toPercentEncoding(preset, {}, ".") + ".xml";
}

void MainWindow::ListPresets()
{
    Presets->clear();
    Presets->addAction(tr("Store..."), this, &MainWindow::StorePreset, QKeySequence("Ctrl+S"));
    Presets->addAction(tr("Quit"), this, &QWidget::close, QKeySequence("Ctrl+Q"));
    Presets->addSeparator();
    int number = 0;
    for (const QString &file : QDir(PresetFolder + '/' + Panels.front().Name).entryList({"*.xml"}, QDir::Files)) {
        const QString name = QUrl::fromPercentEncoding(file.chopped(4).toLatin1());
        const QKeySequence key = ++number > 9 ? QKeySequence() : QKeySequence(QString("Ctrl+%1").arg(number));
        Presets->addAction(
            name, this, [=] { RecallPreset(name); }, key);
    }
}

void MainWindow::StorePreset()
{
    const QString name = QInputDialog::getText(this, tr("Store a preset"), tr("Name:"));
    if (name.isEmpty())
        return;
    for (const Panel &panel : Panels) {
        QDir().mkpath(PresetFolder + '/' + panel.Name);
        QSaveFile file(PresetFile(panel, name));
        if (!file.open(QIODevice::WriteOnly) || file.write(panel.Form->Document().toUtf8()) < 0 || !file.commit())
            Tell(file.fileName() + ": " + file.errorString());
    }
    ListPresets();
}

void MainWindow::RecallPreset(const QString &name)
{
    for (const Panel &panel : Panels) {
        QFile file(PresetFile(panel, name));
        if (panel.Form->IsLocked() || !file.open(QIODevice::ReadOnly))
            continue;
        panel.Form->SetDocument(QString::fromUtf8(file.readAll()));
        panel.Form->Apply();
    }
}

void MainWindow::SetDark(bool dark)
{
    Dark->setChecked(dark);
    Settings.setValue("dark", dark);
    QPalette palette = dark ? QPalette(QColor(0x3a3d42), QColor(0x2d2f33)) : QPalette(QColor(0xefefef));
    palette.setColor(QPalette::Base, dark ? QColor(0x1f2124) : QColor(Qt::white));
    palette.setColor(QPalette::Highlight, QColor(0x3178b5));
    QApplication::setPalette(palette);
}

void MainWindow::SetLanguage(const QString &name)
{
    Settings.setValue("language", name);
    QLocale::setDefault(QLocale(name));
    setLocale(QLocale(name));
    TranslationCenter::Instance().Reload();
    Panels.front().Dock->setWindowTitle(tr("Receiver"));
    Panels.back().Dock->setWindowTitle(tr("Scan"));
    Presets->setTitle(tr("&Presets"));
    View->setTitle(tr("&View"));
    Dark->setText(tr("Dark colours"));
    ListPresets();
    Lock(Reason);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    Settings.setValue("geometry", saveGeometry());
    Settings.setValue("state", saveState());
    for (const Panel &panel : Panels)
        panel.Form->Store(Settings, panel.Name);
    QMainWindow::closeEvent(event);
}
