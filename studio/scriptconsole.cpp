#include "scriptconsole.h"

#include "orbeldelegate.h"
#include "orbelformular.h"
#include "scriptcompleter.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScriptEngine>
#include <QSettings>
#include <QVBoxLayout>

namespace Orbel
{

static const QLatin1String HistoryKey("console/history");
static constexpr int LongestHistory = 200;

ScriptConsole::ScriptConsole(Workbench &bench, QSettings &settings)
    : Bench(bench), Settings(settings), Output(new QPlainTextEdit), Input(new QLineEdit),
      Completer(new ScriptCompleter(this)), History(settings.value(HistoryKey).toStringList()), At(History.size())
{
    auto *lines = new QVBoxLayout(this);
    lines->addWidget(Output);
    lines->addWidget(Input);
    Output->setObjectName(QStringLiteral("consoleOutput"));
    Output->setReadOnly(true);
    Output->setMaximumBlockCount(5000);
    Output->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    Input->setObjectName(QStringLiteral("consoleInput"));
    Input->setFont(Output->font());
    Input->setPlaceholderText(tr("A line of script, as: gain.value"));
    Input->installEventFilter(this);
    Input->setCompleter(Completer);
    connect(Input, &QLineEdit::textEdited, this, [this](const QString &text) {
        Completer->Look(Bench.GetEngine(), text.left(Input->cursorPosition()));
        Completer->setCompletionPrefix(text);
    });
    connect(Input, &QLineEdit::returnPressed, this, &ScriptConsole::Enter);
    connect(&Bench, &Workbench::findingsChanged, this, &ScriptConsole::TellFailures);
}

void ScriptConsole::Write(const QString &text)
{
    Output->appendPlainText(text);
}

void ScriptConsole::TellFailures()
{
    const QVector<Workbench::Failure> &failures = Bench.GetFailures();
    for (Told = qMin(Told, failures.size()); Told < failures.size(); ++Told) {
        const Workbench::Failure &failure = failures.at(Told);
        Write(QStringLiteral("%1:%2: %3").arg(Bench.GetFile()).arg(failure.Line).arg(failure.Text));
    }
}

void ScriptConsole::Enter()
{
    const QString line = Input->text().trimmed();
    if (line.isEmpty())
        return;
    Input->clear();
    History.removeAll(line);
    History.append(line);
    while (History.size() > LongestHistory)
        History.removeFirst();
    At = History.size();
    Settings.setValue(HistoryKey, History);
    Run(line);
}

void ScriptConsole::Run(const QString &line)
{
    QScriptEngine *const engine = Bench.GetEngine();
    Write(QStringLiteral("> ") + line);
    if (!engine)
        return Write(tr("There is no form."));
    // The line may end the form.
    const KV218::OrbelDelegate::Call call(Bench.GetForm()->GetSheet().GetDelegate());
    const QScriptValue value = engine->evaluate(line, QStringLiteral("console"), 1);
    if (engine->hasUncaughtException()) {
        const QScriptValue exception = engine->uncaughtException();
        const QString file = exception.property(QStringLiteral("fileName")).toString();
        Write(QStringLiteral("%1:%2: %3")
                  .arg(file.isEmpty() ? QStringLiteral("console") : file)
                  .arg(engine->uncaughtExceptionLineNumber())
                  .arg(exception.toString()));
        engine->clearExceptions();
    } else if (!value.isUndefined()) {
        Write(value.isString() ? QLatin1Char('"') + value.toString() + QLatin1Char('"') : value.toString());
    }
}

void ScriptConsole::Recall(int step)
{
    At = qBound(0, At + step, History.size());
    Input->setText(History.value(At));
}

bool ScriptConsole::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != Input || event->type() != QEvent::KeyPress || Completer->popup()->isVisible())
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    Recall(key == Qt::Key_Up ? -1 : 1);
    return true;
}

} // namespace Orbel
