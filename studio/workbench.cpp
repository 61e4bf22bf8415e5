#include "workbench.h"

#include "orbeldelegate.h"
#include "orbelformular.h"
#include "scriptwatch.h"

#include <QFile>
#include <QScriptEngine>

#include <algorithm>

namespace Orbel
{

/// How often to look for a form in a file that has none, in milliseconds.
static constexpr int RetryTime = 300;
/// The longest that a script may run at a time, in milliseconds.
static constexpr int LongestRun = 10000;
/// How long a script that is debugged runs before the window answers, in milliseconds.
static constexpr int DebuggedInterval = 200;

static QByteArray Read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

static QScriptEngine *EngineOf(const KV218::OrbelFormular &form)
{
    return form.GetScriptValues().value(QStringLiteral("Math")).engine();
}

Workbench::Workbench(const QString &file, const QString &component) : File(file), Component(component)
{
    Retry.setInterval(RetryTime);
    connect(&Retry, &QTimer::timeout, this, &Workbench::OpenLater);
}

Workbench::~Workbench() = default;

void Workbench::Open()
{
    SessionOptions options;
    options.Prepare = [this](KV218::OrbelFormular &form) { Prepare(form); };
    options.ReloadsErrors = true;
    Document = Read(File);
    Opening opening
        = IsList() ? Session::OpenComponent(Document, Component, options) : Session::OpenFile(File, options);
    Origins.SetActor(QString());
    Told = opening.Told;
    Shows = bool(opening);
    Opened = std::move(opening.Opened);
    ReadSource();
    if (Opened)
        Connect();
    else
        Retry.start();
    Q_EMIT formChanged();
    Q_EMIT findingsChanged();
}

void Workbench::OpenLater()
{
    if (Read(File) == Document)
        return;
    Retry.stop();
    Open();
}

QStringList Workbench::GetStartArguments() const
{
    QStringList arguments{QStringLiteral("studio"), File};
    if (!Component.isEmpty())
        arguments += {QStringLiteral("--component"), Component};
    return arguments;
}

Opening Workbench::OpenCopy() const
{
    Opening copy = IsList() ? Session::OpenComponent(Document, Component) : Session::OpenText(Document);
    if (copy && Opened)
        copy.Opened->GetForm()->SetXmlString(Opened->Document());
    return copy;
}

/// The form has been read and has not begun.
void Workbench::Prepare(KV218::OrbelFormular &form)
{
    QScriptEngine *const engine = EngineOf(form);
    Engine = engine;
    if (!IsList())
        form.SetScriptFile(File);
    Failures.clear();
    Origins.SetActor(tr("start of the form, or kept"));
    if (Attach) {
        // So the window answers while a script runs on, and lets the author interrupt it.
        engine->setProcessEventsInterval(DebuggedInterval);
        Attach(*engine, QString::fromUtf8(Read(File)));
        Origins.Watch(form, [engine = QPointer<QScriptEngine>(engine)] {
            return engine && engine->isEvaluating() ? tr("script") : QString();
        });
        return;
    }
    auto *watch = new ScriptWatch(engine, LongestRun, [this](const ScriptWatch::Place &place) {
        Fail(place.File == File ? place.Line : 0,
            tr("The script was ended, since it took longer than %1 s").arg(LongestRun / 1000));
    });
    engine->setAgent(watch);
    Origins.Watch(form, [watch, engine = QPointer<QScriptEngine>(engine)] {
        if (!engine || engine->agent() != watch)
            return QString();
        const ScriptWatch::Place place = watch->Where();
        if (place.Line <= 0)
            return QString();
        return place.File.isEmpty() ? tr("script, its line %1").arg(place.Line)
                                    : tr("script, %1:%2").arg(place.File).arg(place.Line);
    });
}

void Workbench::Connect()
{
    connect(Opened.get(), &Session::reloaded, this, &Workbench::TakeReloaded);
    connect(Opened.get(), &Session::applied, this, &Workbench::applied);
    connect(Opened.get(), &Session::changesChanged, this, &Workbench::changesChanged);
    connect(Opened.get(), &Session::scriptFailed, this, [this](const QString &, int line, const QString &text) {
        // What the engine says of a script that was ended, which has been told in better words.
        if (text != QLatin1String("JavaScript execution exceeded timeout."))
            Fail(line, text);
    });
    Opened->Watch(File);
}

void Workbench::Fail(int line, const QString &text)
{
    Failures.append({QTime::currentTime(), line, text});
    Q_EMIT findingsChanged();
}

void Workbench::TakeReloaded(const QVector<Finding> &findings)
{
    const auto isFormless = [](const Finding &finding) {
        return finding.Code == QLatin1String("xml-malformed") || finding.Code == QLatin1String("form-missing");
    };
    Origins.SetActor(QString());
    Told = findings;
    Shows = std::none_of(findings.begin(), findings.end(), isFormless);
    // What cannot be shown says less than the form that stands.
    if (Shows) {
        Document = Read(File);
        ReadSource();
    }
    Q_EMIT formChanged();
    Q_EMIT findingsChanged();
}

void Workbench::ReadSource()
{
    Source = IsList() ? FormSource::OfComponent(Document, Component) : FormSource(Document);
}

QScriptEngine *Workbench::GetEngine() const
{
    // That of a form which could not take the other one's place is gone.
    return Engine || !Opened ? Engine.data() : EngineOf(*Opened->GetForm());
}

KV218::OrbelDelegate *Workbench::FindControl(const QString &name) const
{
    if (!Opened || name.isEmpty())
        return nullptr;
    const KV218::OrbelSheet &sheet = Opened->GetForm()->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        if (sheet.GetWidgetAt(i)->GetName() == name)
            return sheet.GetWidgetAt(i)->GetDelegate();
    }
    return nullptr;
}

void Workbench::Pick(const QString &name)
{
    Picked = name;
    Q_EMIT picked(name);
}

void Workbench::PickPath(const QString &path)
{
    const auto widget = Opened ? GetForm()->GetSheet().GetWidget(path) : KV218::OrbelSheet::Widget();
    Pick(widget ? widget->GetName() : QString());
}

void Workbench::Restart()
{
    if (Opened)
        Opened->Reload(Document);
}

void Workbench::SetDebugger(const Attacher &attach)
{
    Attach = attach;
    Restart();
}

bool Workbench::IsScriptRunning() const
{
    const QScriptEngine *const engine = GetEngine();
    return (engine && engine->isEvaluating()) || (Opened && !GetForm()->IsAtRest());
}

void Workbench::EndScript()
{
    if (QScriptEngine *const engine = GetEngine()) {
        // Handlers of signals count as running only with a context of their own.
        engine->pushContext();
        engine->abortEvaluation();
        engine->popContext();
    }
}

} // namespace Orbel
