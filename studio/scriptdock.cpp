#include "scriptdock.h"

#include "scriptconsole.h"
#include "signallog.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTime>

namespace Orbel
{

ScriptDock::ScriptDock(Workbench &bench, QSettings &settings)
    : StudioDock(bench, tr("Script"), "script"), Console(new ScriptConsole(bench, settings)),
      Recording(new QCheckBox(tr("&Record"))), Filter(new QLineEdit), Log(new QPlainTextEdit)
{
    auto *tabs = new QTabWidget;
    tabs->addTab(Console, tr("Console"));
    tabs->addTab(NewLogPage(), tr("Signals"));
    setWidget(tabs);
    connect(&Output, &ScriptOutput::printed, Console, &ScriptConsole::Write);
    connect(Recording, &QCheckBox::toggled, this, &ScriptDock::Listen);
    connect(&Bench, &Workbench::formChanged, this, &ScriptDock::Listen);
}

ScriptDock::~ScriptDock() = default;

QWidget *ScriptDock::NewLogPage()
{
    auto *page = new QWidget;
    auto *lines = new QVBoxLayout(page);
    auto *line = new QHBoxLayout;
    auto *clear = new QPushButton(tr("C&lear"));
    lines->addLayout(line);
    lines->addWidget(Log);
    line->addWidget(Recording);
    line->addWidget(Filter, 1);
    line->addWidget(clear);
    Recording->setObjectName(QStringLiteral("recordSignals"));
    Filter->setPlaceholderText(tr("Only those with this text"));
    Log->setObjectName(QStringLiteral("signalLog"));
    Log->setReadOnly(true);
    Log->setMaximumBlockCount(5000);
    Log->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(clear, &QPushButton::clicked, Log, &QPlainTextEdit::clear);
    return page;
}

void ScriptDock::Listen()
{
    Signals.reset();
    if (Recording->isChecked() && Bench.GetForm())
        Signals = std::make_unique<SignalLog>(*Bench.GetForm(), [this](const QString &text) { TellSignal(text); });
}

void ScriptDock::TellSignal(const QString &text)
{
    if (text.contains(Filter->text()))
        Log->appendPlainText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz  ")) + text);
}

} // namespace Orbel
