#include "scriptrun.h"

#include "orbelformular.h"
#include "orbelparser.h"
#include "scripttext.h"
#include "scriptwords.h"

#include <QMetaMethod>
#include <QRegularExpression>
#include <QScriptEngine>
#include <QScriptEngineAgent>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Orbel
{

namespace
{

/// Milliseconds between two looks at the clock while a script runs.
constexpr int EventInterval = 20;

using Form = QExplicitlySharedDataPointer<KV218::OrbelFormular>;

QScriptEngine *EngineOf(const Form &form)
{
    const QMap<QString, QScriptValue> values = form->GetScriptValues();
    for (const QScriptValue &value : values) {
        if (value.engine())
            return value.engine();
    }
    return nullptr;
}

QScriptValue Nothing(QScriptContext *, QScriptEngine *)
{
    return QScriptValue();
}

/// Keeps in mind where the engine is; the engine itself knows that only at an exception.
class PositionAgent : public QScriptEngineAgent
{
public:
    using QScriptEngineAgent::QScriptEngineAgent;
    void positionChange(qint64, int line, int) override { Line = line; }

    int Line = 1;
};

class ScriptRun
{
public:
    ScriptRun(const FormModel &model, FindingSink &sink)
        : Model(model), Sink(sink), Script(model), Live(KV218::OrbelParser().ParseORBEL(model.Doc.Text())),
          Engine(EngineOf(Live)), Position(new PositionAgent(Engine))
    {
    }

    void Run(int milliseconds)
    {
        // What the script prints is the business of nobody here.
        Engine->globalObject().setProperty(QStringLiteral("print"), Engine->newFunction(Nothing));
        Engine->setAgent(Position);
        Engine->setProcessEventsInterval(EventInterval);
        QObject::connect(Engine, &QScriptEngine::signalHandlerException, &Clock,
            [this](const QScriptValue &exception) { TellException(exception, LineOf(exception)); });
        QObject::connect(&Clock, &QTimer::timeout, &Clock, [this] { Stop(); });
        Clock.start(milliseconds);
        Live->CreateValueTree(QStringLiteral("/OrbelCheck"));
        if (!IsStopped && Engine->hasUncaughtException())
            TellException(Engine->uncaughtException(), Engine->uncaughtExceptionLineNumber());
        Live->CreateGUI(true);
        const std::unique_ptr<QWidget> gui(Live->GetGUI());
        Clock.stop();
        TellUnknown();
    }

private:
    static int LineOf(const QScriptValue &exception)
    {
        return exception.property(QStringLiteral("lineNumber")).toInt32();
    }

    /// Ends what runs now, and soon whatever a handler begins after it.
    void Stop()
    {
        Clock.setInterval(EventInterval);
        if (!Engine->isEvaluating())
            return;
        if (!IsStopped)
            Sink.Add(Code::ScriptEndless, Script.PlaceOfLine(Position->Line),
                QStringLiteral("The script was stopped here, since it did not end in time"));
        IsStopped = true;
        Engine->abortEvaluation();
    }

    void TellException(const QScriptValue &exception, int line)
    {
        // A syntax error has been told with its place by the check on paper.
        if (exception.property(QStringLiteral("name")).toString() == QLatin1String("SyntaxError"))
            return;
        static const QRegularExpression variable(QStringLiteral("variable: ([\\w$]+)"));
        QString text = exception.toString();
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
        const QString name = variable.match(text).captured(1);
        int index = Script.IndexOf(line);
        const int found = name.isEmpty() ? -1 : Script.Code().indexOf(name, index);
        if (found >= 0 && Script.LineOf(found) == line)
            index = found;
        Told.insert(index);
        Sink.Add(Code::ScriptException, Script.PlaceOf(index), QStringLiteral("The script throws %1").arg(text));
    }

    void TellUnknown()
    {
        const QScriptValue globals = Engine->globalObject();
        const QStringList names = Live->GetScriptValues().keys();
        for (const ScriptReference &reference : ScriptWords(Script.Code()).References()) {
            if (Told.contains(reference.Index))
                continue;
            const QScriptValue owner = reference.Owner.isEmpty() ? globals : globals.property(reference.Owner);
            if (!owner.isObject() || owner.property(reference.Name).isValid())
                continue;
            if (reference.Owner.isEmpty())
                Tell(reference, QStringLiteral("There is no \"%1\"").arg(reference.Name), names);
            else if (!IsProperty(reference))
                Tell(reference, QStringLiteral("\"%1\" has no \"%2\"").arg(reference.Owner, reference.Name),
                    MembersOf(owner));
        }
    }

    void Tell(const ScriptReference &reference, const QString &text, const QStringList &names)
    {
        Sink.Add(Code::ScriptUnknown, Script.PlaceOf(reference.Index), text + Sink.Suggest(reference.Name, names));
    }

    /// Whether the control may come to have the property, even if it is not stated.
    bool IsProperty(const ScriptReference &reference) const
    {
        if (const WidgetEntry *widget = Model.FindWidget(reference.Owner))
            return widget->Info && Registry::FindProperty(*widget->Info, reference.Name);
        return Registry::FindSheetProperty(reference.Name);
    }

    QStringList MembersOf(const QScriptValue &owner) const
    {
        QStringList names;
        const QObject *object = owner.toQObject();
        for (int i = 0; object && i < object->metaObject()->methodCount(); ++i)
            names.append(QString::fromLatin1(object->metaObject()->method(i).name()));
        for (const QByteArray &name : object ? object->dynamicPropertyNames() : QList<QByteArray>())
            names.append(QString::fromLatin1(name));
        return names;
    }

    const FormModel &Model;
    FindingSink &Sink;
    ScriptText Script;
    Form Live;
    QScriptEngine *Engine;
    PositionAgent *Position; ///< The engine's.
    QTimer Clock;
    QSet<int> Told;
    bool IsStopped = false;
};

} // namespace

void RunForm(const FormModel &form, int milliseconds, FindingSink &sink)
{
    ScriptRun(form, sink).Run(milliseconds);
}

} // namespace Orbel
