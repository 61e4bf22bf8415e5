#include "formrun.h"

#include "formcheck.h"
#include "orbelformular.h"
#include "orbelparser.h"
#include "propertynames.h"
#include "propertyplace.h"
#include "scriptdeclarations.h"
#include "scriptsourcemap.h"
#include "widgetnumbers.h"

#include <QElapsedTimer>
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

    void positionChange(qint64, int line, int) override
    {
        Line = line;
        if (!Clock.isValid())
            Clock.start();
    }

    /// Milliseconds since the first statement.
    qint64 Elapsed() const { return Clock.isValid() ? Clock.elapsed() : 0; }
    void Restart() { Clock.invalidate(); }

    int Line = 1;

private:
    QElapsedTimer Clock;
};

class FormRun
{
public:
    FormRun(const FormModel &model, FindingSink &sink)
        : Model(model), Sink(sink), Script(model.GetScriptSource()),
          Live(KV218::OrbelParser().ParseORBEL(model.Doc.Text())), Engine(EngineOf(Live)),
          Position(new PositionAgent(Engine))
    {
    }

    void Run(int milliseconds, const RunWatch &watch)
    {
        Time = milliseconds;
        Silence();
        Engine->setAgent(Position);
        Engine->setProcessEventsInterval(EventInterval);
        QObject::connect(Engine, &QScriptEngine::signalHandlerException, &Clock,
            [this](const QScriptValue &exception) { TellException(exception, LineOf(exception)); });
        QObject::connect(&Clock, &QTimer::timeout, &Clock, [this] { Stop(); });
        Clock.start(milliseconds);
        if (watch)
            watch(true);
        Live->CreateValueTree(QStringLiteral("/OrbelCheck"));
        if (watch)
            watch(false);
        Position->Restart();
        if (!IsStopped && Engine->hasUncaughtException())
            TellException(Engine->uncaughtException(), Engine->uncaughtExceptionLineNumber());
        Live->CreateGUI(true);
        const std::unique_ptr<QWidget> gui(Live->GetGUI());
        Clock.stop();
        TellUnknown();
        TellBeyondLimits();
    }

private:
    /// What the script prints is the business of nobody here.
    void Silence()
    {
        const QString print = QStringLiteral("print");
        if (Engine->globalObject().property(print).isFunction())
            Engine->globalObject().setProperty(print, Engine->newFunction(Nothing));
    }

    static int LineOf(const QScriptValue &exception)
    {
        return exception.property(QStringLiteral("lineNumber")).toInt32();
    }

    /// Ends what runs now, and soon whatever a handler begins after it.
    void Stop()
    {
        // The time counts from the first statement, not from the making of the form around it.
        const qint64 left = Time - Position->Elapsed();
        Clock.setInterval(IsStopped || left <= 0 ? EventInterval : int(left));
        if (!Engine->isEvaluating() || (!IsStopped && left > 0))
            return;
        if (!IsStopped)
            Sink.Add(Code::ScriptEndless, Script.PlaceOfLine(Position->Line),
                QStringLiteral("The script was stopped here, since it did not end in time"));
        IsStopped = true;
        Engine->abortEvaluation();
    }

    void TellException(const QScriptValue &exception, int line)
    {
        // That nothing of the script can be read, the check on paper tells with its place.
        const bool isSyntax = exception.property(QStringLiteral("name")).toString() == QLatin1String("SyntaxError");
        if (IsStopped || (isSyntax && IsScriptRefused(Script.Code())))
            return;
        QString text = exception.toString();
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
        // The engine tells the line alone; the name it misses tells the rest.
        static const QRegularExpression missed(
            QStringLiteral("variable: ([\\w$]+)|expression '(?:([\\w$]+)\\.)?([\\w$]+)' \\[undefined\\]"));
        const QRegularExpressionMatch match = missed.match(text);
        const QString owner = match.captured(2);
        const QString name = match.captured(1) + match.captured(3);
        const int index = PlaceInLine(line, owner, name);
        Told.insert(index);
        // A handler that calls itself throws the same once for each call.
        if (Exceptions.contains({index, text}))
            return;
        Exceptions.insert({index, text});
        Sink.AddMisspelt(Code::ScriptException, Script.PlaceOf(index), QStringLiteral("The script throws %1").arg(text),
            name, name.isEmpty() ? QStringList() : NamesOf(owner));
    }

    /// Where a name stands in a line, behind its owner's; the line's beginning when it does not stand there.
    int PlaceInLine(int line, const QString &owner, const QString &name) const
    {
        const int start = Script.IndexOf(line);
        const QString text = owner.isEmpty() ? name : owner + QLatin1Char('.') + name;
        const int found = text.isEmpty() ? -1 : Script.Code().indexOf(text, start);
        return found >= 0 && Script.LineOf(found) == line ? found + text.size() - name.size() : start;
    }

    /// What a script can write behind the owner and a dot, or without an owner.
    QStringList NamesOf(const QString &owner) const
    {
        return owner.isEmpty() ? QStringList(Live->GetScriptValues().keys())
                               : MembersOf(Engine->globalObject().property(owner));
    }

    /// Values of the definition that limits of the script have moved.
    void TellBeyondLimits()
    {
        for (const WidgetEntry &widget : Model.Widgets) {
            const bool hasScriptsLimits = widget.Info && widget.Has(ekLimits) && widget.States(KV218::prop::Value)
                && (Model.ScriptMayCallAtStart(widget, "setMinimum")
                    || Model.ScriptMayCallAtStart(widget, "setMaximum"));
            const QObject *control = Engine->globalObject().property(widget.Name).toQObject();
            if (!hasScriptsLimits || !control || Model.ScriptMayCallAtStart(widget, "setValue"))
                continue;
            WidgetEntry live = widget;
            for (const QLatin1String name : {KV218::prop::Minimum, KV218::prop::Maximum}) {
                const QVariant limit = control->property(name.data());
                if (limit.isValid())
                    live.Properties.append({name, QString(), limit.toString(), widget.Element, -1, false});
            }
            const WidgetNumbers numbers(live);
            if (numbers.LimitOf(KV218::prop::Minimum) && numbers.LimitOf(KV218::prop::Maximum)
                && numbers.LimitOf(KV218::prop::Minimum).Value > numbers.LimitOf(KV218::prop::Maximum).Value)
                Sink.Add(Code::LimitReversed, PlaceOfSetter(widget.Name),
                    QStringLiteral("After the script the minimum of \"%1\" is above its maximum").arg(widget.Name));
            const Number value = numbers.NumberOf(KV218::prop::Value);
            const QString fault = BeyondLimits(value.Value, numbers.LimitOf(KV218::prop::Minimum),
                numbers.LimitOf(KV218::prop::Maximum), numbers.Scale());
            if (value && !fault.isEmpty())
                Sink.Add(Code::LimitOutside, PlaceOfValue(Model, *value.Property),
                    value.Text + fault + QStringLiteral(" that the script has set"));
        }
    }

    /// Where a script sets the last limit of a control.
    int PlaceOfSetter(const QString &name) const
    {
        const QString &code = Script.Code();
        const int index = qMax(code.lastIndexOf(name + QLatin1String(".setMaximum")),
            code.lastIndexOf(name + QLatin1String(".setMinimum")));
        return Script.PlaceOf(qMax(0, index));
    }

    void TellUnknown()
    {
        const QScriptValue globals = Engine->globalObject();
        for (const ScriptReference &reference : ScriptDeclarations(Script.Code()).Undeclared()) {
            if (Told.contains(reference.Index))
                continue;
            const QScriptValue owner = reference.Owner.isEmpty() ? globals : globals.property(reference.Owner);
            if (!owner.isObject() || owner.property(reference.Name).isValid())
                continue;
            if (!reference.Owner.isEmpty() && IsProperty(reference))
                continue;
            const QString text = reference.Owner.isEmpty()
                ? QStringLiteral("There is no \"%1\"").arg(reference.Name)
                : QStringLiteral("\"%1\" has no \"%2\"").arg(reference.Owner, reference.Name);
            Sink.AddMisspelt(
                Code::ScriptUnknown, Script.PlaceOf(reference.Index), text, reference.Name, NamesOf(reference.Owner));
        }
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
    ScriptSourceMap Script;
    Form Live;
    QScriptEngine *Engine;
    PositionAgent *Position; ///< The engine's.
    QTimer Clock;
    QSet<int> Told;
    QSet<QPair<int, QString>> Exceptions;
    int Time = 0;
    bool IsStopped = false;
};

} // namespace

void RunForm(const FormModel &form, int milliseconds, const RunWatch &watch, FindingSink &sink)
{
    FormRun(form, sink).Run(milliseconds, watch);
}

} // namespace Orbel
