#include "workbench.h"

#include "orbeldelegate.h"
#include "orbelformular.h"
#include "scriptwatch.h"

#include <QAction>
#include <QFile>
#include <QScriptEngine>
#include <QScriptEngineDebugger>

namespace Orbel
{

/// How often to look for a form in a file that has none, in milliseconds.
static constexpr int RetryTime = 300;

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
    Document = Read(File);
    Opening opening
        = IsList() ? Session::OpenComponent(Document, Component, options) : Session::OpenFile(File, options);
    Origins.SetActor(QString());
    Told = opening.Told;
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
    if (Debugger) {
        Debugger->attachTo(engine);
        if (StopsAtStart)
            Debugger->action(QScriptEngineDebugger::InterruptAction)->trigger();
        Origins.Watch(form, [engine = QPointer<QScriptEngine>(engine)] {
            return engine && engine->isEvaluating() ? tr("script") : QString();
        });
        return;
    }
    auto *watch = new ScriptWatch(engine);
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
        Failures.append({QTime::currentTime(), line, text});
        Q_EMIT findingsChanged();
    });
    Opened->Watch(File);
}

void Workbench::TakeReloaded(const QVector<Finding> &findings)
{
    Origins.SetActor(QString());
    Told = findings;
    Document = Read(File);
    ReadSource();
    Q_EMIT formChanged();
    Q_EMIT findingsChanged();
}

void Workbench::ReadSource()
{
    const FormSource source = IsList() ? FormSource::OfComponent(Document, Component) : FormSource(Document);
    // A file that breaks off says less than what is shown.
    if (!source.GetWidgets().isEmpty())
        Source = source;
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

void Workbench::SetDebugger(QScriptEngineDebugger *debugger)
{
    if (Debugger && Debugger != debugger)
        Debugger->detach();
    Debugger = debugger;
    Restart();
}

} // namespace Orbel
