// What a script connects: to what, how often, and what its handlers ask for.

#include "scriptbuiltins.h"
#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

class ConnectionCheck
{
public:
    explicit ConnectionCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree)
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Member, "disconnect"))
                Ended.insert(Study.CodeOf(Tree.Part(i, 0)));
            const int function = Tree.Is(i, Node::Call) ? Tree.Part(i, 0) : -1;
            if (Tree.Is(function, Node::Member, "setMinimum") || Tree.Is(function, Node::Member, "setMaximum"))
                Limiting.append(i);
        }
    }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            const int function = Tree.Is(i, Node::Call) ? Tree.Part(i, 0) : -1;
            if (Tree.Is(function, Node::Member, "connect") && Tree.Is(Tree.Part(function, 0), Node::Member)
                && Study.ClassOf(Tree.Part(Tree.Part(function, 0), 0)))
                CheckConnect(i, Tree.Part(function, 0));
        }
        for (const ScriptConnection &connection : Study.Connections()) {
            if (connection.Function < 0)
                continue;
            CheckIndex(connection);
            CheckOwnValue(connection);
            CheckClosure(connection);
            if (!Handlers.contains(connection.Function)) {
                CheckThis(connection);
                CheckHidden(connection);
            }
            Handlers.insert(connection.Function);
            Heard.insert({Study.WidgetOf(connection.Control), connection.Signal}, connection.Function);
        }
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Call))
                CheckSilent(i);
        }
    }

private:
    void CheckConnect(int call, int signal)
    {
        const QString &name = Tree.At(signal).Text;
        const QString owner = Study.NameOf(Tree.Part(signal, 0));
        const ScriptMethod *method = Study.MethodOf(signal);
        if (!method || !method->IsSignal) {
            CheckNoSignal(signal, method);
            return;
        }
        if (Tree.At(call).Parts.size() == 1) {
            Study.Tell(Code::ScriptHandler, signal,
                QStringLiteral("Nothing is connected to \"%1\" of \"%2\"").arg(name, owner));
            return;
        }
        CheckHandler(Tree.At(call).Parts.constLast(), signal, *method, Tree.At(call).Parts.size() == 2);
        CheckTwice(call, signal);
    }

    void CheckNoSignal(int signal, const ScriptMethod *method)
    {
        const int control = Tree.Part(signal, 0);
        const WidgetEntry *widget = Study.WidgetOf(control);
        const QString &name = Tree.At(signal).Text;
        if (!method && !(widget && Registry::FindProperty(*widget->Info, name)))
            return;
        const QString meant = name + QLatin1String("Changed");
        const ScriptMethod *other = Study.ClassOf(control)->Find(meant);
        Study.Tell(Code::ScriptHandler, signal,
            QStringLiteral("\"%1\" of \"%2\" is no signal").arg(name, Study.NameOf(control))
                + (other ? DidYouMean(meant) : QString()),
            other ? Mend{Study.PlaceOf(signal), name, meant} : Mend());
    }

    /// `isAlone` tells that there is no object in front of the handler.
    void CheckHandler(int handler, int signal, const ScriptMethod &method, bool isAlone)
    {
        const ScriptKind kind = Study.KindOf(handler);
        const int called = Tree.Is(handler, Node::Call) ? Tree.Part(handler, 0) : -1;
        if (called >= 0 && IsCalledAtOnce(called)) {
            const QString code = Study.CodeOf(handler);
            const bool isPlain = Tree.At(handler).Parts.size() == 1;
            Sink().Add(Code::ScriptHandler, Study.PlaceOfStart(handler),
                QStringLiteral("This calls the function now, and connects nothing"),
                isPlain ? Mend{Study.PlaceOfStart(handler), code, Study.CodeOf(called)} : Mend());
        } else if ((kind == ScriptKind::Text && isAlone) || kind == ScriptKind::Number || kind == ScriptKind::Bool
            || kind == ScriptKind::Control || kind == ScriptKind::NumberText) {
            Study.Tell(Code::ScriptHandler, handler, QStringLiteral("This is no function to be connected"));
        }
        if (isAlone)
            CheckDetached(handler);
        const int function = Study.Bindings.FunctionOf(handler);
        const int parameters = function < 0 ? 0 : Tree.At(function).Parts.size() - 1;
        // A function that stands in the connection has no other callers.
        const bool isOwn = Tree.Is(handler, Node::FunctionExpression) && Tree.At(function).Text.isEmpty();
        const bool isRead = isOwn && parameters > method.Most()
            && !Study.Bindings.At(Tree.Part(function, method.Most())).Reads.isEmpty();
        if (parameters > method.Most() && (isRead || Study.Needs(function, method.Most()))
            && Study.Bindings.CallsOf(function).isEmpty())
            Study.Tell(Code::ScriptHandler, Tree.Part(function, method.Most()),
                QStringLiteral("\"%1\" tells %2, and this parameter stays undefined")
                    .arg(Tree.At(signal).Text,
                        method.Most() == 0 ? QStringLiteral("nothing") : QStringLiteral("only %1").arg(method.Most())));
    }

    /// `connect(counter.step)`, where step asks for this.
    void CheckDetached(int handler)
    {
        const int object = Tree.Is(handler, Node::Member) ? Tree.Part(handler, 0) : -1;
        const QVector<int> sets = Tree.Is(object, Node::Name) ? Study.Bindings.At(object).Sets : QVector<int>();
        const int literal
            = sets.size() == 1 && Tree.Is(sets.constFirst(), Node::Declarator) ? Tree.Part(sets.constFirst(), 0) : -1;
        for (const int pair : Tree.Is(literal, Node::Object) ? Tree.At(literal).Parts : QVector<int>()) {
            const int function = Tree.Part(pair, 0);
            const bool asksThis = Tree.IsFunction(function) && Tree.At(pair).Text == Tree.At(handler).Text
                && Study.Contains(
                    function, [&](int i) { return Tree.Is(i, Node::This) && Tree.At(i).Function == function; });
            if (asksThis)
                Study.Tell(Code::ScriptThis, handler,
                    QStringLiteral("Connected like this, \"%1\" does not have \"%2\" as this; give the object in front")
                        .arg(Tree.At(handler).Text, Tree.At(object).Text));
        }
    }

    bool IsCalledAtOnce(int function) const
    {
        if (const ScriptMethod *method = Study.MethodOf(function))
            return method->Result != "QVariant";
        const int own = Study.Bindings.FunctionOf(function);
        return own >= 0 && !Study.Contains(own, [&](int i) {
            return Tree.Is(i, Node::Return) && !Tree.At(i).Parts.isEmpty() && Tree.At(i).Function == own;
        });
    }

    FindingSink &Sink() const { return Study.Sink; }

    /// Whether a node is done whenever what stands around it is done.
    bool IsCertain(int node, int around) const
    {
        for (int i = Tree.At(node).Parent; i != around && i >= 0; i = Tree.At(i).Parent) {
            const Node::Kind kind = Tree.At(i).What;
            if (kind != Node::Statement && kind != Node::Block)
                return false;
        }
        return true;
    }

    void CheckTwice(int call, int signal)
    {
        const QString code = Study.CodeOf(signal);
        if (Ended.contains(code))
            return;
        const int function = Tree.At(call).Function;
        const int body = function == Tree.Root() ? function : Tree.At(function).Parts.constLast();
        if (!IsCertain(call, body))
            return;
        const QPair<int, QString> key(function, Study.CodeOf(call).remove(QLatin1Char(' ')));
        if (Made.contains(key))
            Study.Tell(Code::ScriptConnectedTwice, signal,
                QStringLiteral("\"%1\" has this handler already, which is called twice").arg(code));
        else if (function != Tree.Root() && !Study.ConnectionsOf(function).isEmpty()
            && Study.Bindings.IsForeign(Tree.Part(signal, 0)))
            Study.Tell(Code::ScriptConnectedTwice, signal,
                QStringLiteral("Each call of this handler connects \"%1\" once more").arg(code));
        Made.insert(key);
    }

    void CheckThis(const ScriptConnection &connection)
    {
        // `handler.call(gain)` gives it another one.
        if (Tree.At(connection.Call).Parts.size() != 2 || !Study.Bindings.CallsOf(connection.Function).isEmpty()
            || Study.Bindings.IsPassedOn(connection.Function))
            return;
        for (int i = Tree.At(connection.Function).First; i < connection.Function; ++i) {
            const int member = Tree.At(i).Parent;
            if (!Tree.Is(i, Node::This) || Tree.At(i).Function != connection.Function || !Tree.Is(member, Node::Member)
                || IsGlobal(Tree.At(member).Text))
                continue;
            const ScriptClass *control = Study.ClassOf(connection.Control);
            const WidgetEntry *widget = Study.WidgetOf(connection.Control);
            const QString &name = Tree.At(member).Text;
            const bool isMeant
                = (control && control->Find(name)) || (widget && Registry::FindProperty(*widget->Info, name));
            Study.Tell(Code::ScriptThis, i,
                QStringLiteral("In a handler this is not the control, and has no \"%1\"").arg(name),
                isMeant && Tree.Is(connection.Control, Node::Name)
                    ? Mend{Study.PlaceOf(i), QStringLiteral("this"), Study.NameOf(connection.Control)}
                    : Mend());
        }
    }

    /// Lists tell the index first.
    void CheckIndex(const ScriptConnection &connection)
    {
        const WidgetEntry *widget = Study.WidgetOf(connection.Control);
        const ScriptMethod *signal = widget ? ScriptClass::Of(widget->Class).Find(connection.Signal) : nullptr;
        const QVector<int> &parts = Tree.At(connection.Function).Parts;
        if (!signal || !widget->Has(ekItems) || signal->Most() != 2 || parts.size() != 2)
            return;
        const QString name = Tree.At(parts.constFirst()).Text.toLower();
        if (name == QLatin1String("v") || name.endsWith(QLatin1String("value")) || name == QLatin1String("text"))
            Study.Tell(Code::ScriptHandler, parts.constFirst(),
                QStringLiteral("\"%1\" tells the index first, and then the value").arg(connection.Signal));
    }

    /// A setter raises no signal, and at the start nobody calls the handler instead.
    void CheckSilent(int call)
    {
        const int setter = Tree.Part(call, 0);
        const WidgetEntry *widget = Tree.Is(setter, Node::Member) ? Study.WidgetOf(Tree.Part(setter, 0)) : nullptr;
        if (!widget || Tree.At(call).Function != Tree.Root())
            return;
        const QString signal = Tree.At(setter).Text == QLatin1String("setChecked") ? QStringLiteral("toggled")
            : Tree.At(setter).Text == QLatin1String("setCurrentValue") ? QStringLiteral("currentValueChanged")
            : Tree.At(setter).Text == QLatin1String("setValue")        ? QStringLiteral("valueChanged")
                                                                       : QString();
        const int handler = signal.isEmpty() ? -1 : Heard.value({widget, signal}, -1);
        if (handler >= 0 && Study.Bindings.CallsOf(handler).isEmpty() && !Study.Bindings.IsPassedOn(handler))
            Study.Tell(Code::ScriptSilent, setter,
                QStringLiteral("\"%1\" raises no %2, and its handler does not run").arg(Tree.At(setter).Text, signal));
    }

    /// A handler that binds a control to the value that it has just got.
    void CheckOwnValue(const ScriptConnection &connection)
    {
        const WidgetEntry *widget = Study.WidgetOf(connection.Control);
        const int parameter = Tree.Part(connection.Function, 0);
        if (!widget || !Tree.Is(parameter, Node::Parameter) || !connection.Signal.endsWith(QLatin1String("hanged")))
            return;
        for (const int call : qAsConst(Limiting)) {
            const int control = Tree.Part(Tree.Part(call, 0), 0);
            const int argument = Tree.Part(call, 1);
            if (Tree.IsInside(call, connection.Function) && Tree.Is(argument, Node::Name)
                && Study.Bindings.NumberOf(argument) == Study.Bindings.NumberOf(parameter)
                && Study.WidgetOf(control) == widget)
                Study.Tell(Code::ScriptHandler, control,
                    QStringLiteral("\"%1\" limits itself to the value that it has just got").arg(widget->Name));
        }
    }

    bool IsGlobal(const QString &name)
    {
        if (OfThis.isEmpty()) {
            OfThis.insert(QString());
            for (int i = 0; i < Tree.All().size(); ++i) {
                const int target = Tree.Is(i, Node::Assign) ? Tree.Part(i, 0) : -1;
                if (Tree.Is(target, Node::Member) && Tree.Is(Tree.Part(target, 0), Node::This))
                    OfThis.insert(Tree.At(target).Text);
            }
        }
        return OfThis.contains(name) || Study.Bindings.FindGlobal(name) || Study.Form.FindWidget(name)
            || Study.Form.FindEnum(name) || ScriptBuiltins().contains(name);
    }

    /// `do { } while (false)` is a block that break leaves.
    bool IsDoneOnce(int loop) const
    {
        return Tree.Is(loop, Node::Do) && Tree.Is(Tree.Part(loop, 1), Node::Word, "false");
    }

    /// All turns of a loop share its variables, and a handler meets what the last one left.
    void CheckClosure(const ScriptConnection &connection)
    {
        int loop = Tree.At(connection.Call).Parent;
        while (loop >= 0 && (!Tree.IsLoop(loop) || IsDoneOnce(loop)) && !Tree.IsFunction(loop))
            loop = Tree.At(loop).Parent;
        if (!Tree.IsLoop(loop) || !Tree.IsInside(connection.Function, loop))
            return;
        QSet<int> told;
        for (int i = Tree.At(connection.Function).First; i < connection.Function; ++i) {
            if (!Tree.Is(i, Node::Name) || told.contains(Study.Bindings.NumberOf(i)))
                continue;
            const ScriptVariable &variable = Study.Bindings.At(i);
            const bool isOuter = variable.IsMade && !Tree.IsInside(variable.Function, connection.Function);
            const bool changes = std::any_of(variable.Sets.cbegin(), variable.Sets.cend(), [&](int set) {
                return set == loop || (Tree.IsInside(set, loop) && !Tree.IsInside(set, connection.Function));
            });
            if (!isOuter || !changes || IsFixed(variable, loop))
                continue;
            told.insert(Study.Bindings.NumberOf(i));
            Study.Tell(Code::ScriptClosure, i,
                QStringLiteral("When the handler runs, \"%1\" has the value of the loop's last turn")
                    .arg(variable.Name));
        }
    }

    /// Whether each turn gives a variable the same: a function, or a literal of constants.
    bool IsFixed(const ScriptVariable &variable, int loop) const
    {
        const int set = variable.Sets.size() == 1 ? variable.Sets.constFirst() : -1;
        const int value = Tree.Is(set, Node::Declarator) ? Tree.Part(set, 0) : set;
        if (set == loop || value < 0)
            return false;
        return Tree.IsFunction(value) || (value != set && !Study.Contains(value, [this](int i) {
            return Tree.Is(i, Node::Name) || Tree.Is(i, Node::Call) || Tree.Is(i, Node::This);
        }));
    }

    /// A parameter with the name of a control, which is used as if it were the control.
    void CheckHidden(const ScriptConnection &connection)
    {
        for (int i = Tree.At(connection.Function).First; i < connection.Function; ++i) {
            if (!Tree.Is(i, Node::Member) || !Tree.Is(Tree.Part(i, 0), Node::Name))
                continue;
            const int name = Tree.Part(i, 0);
            const ScriptVariable &variable = Study.Bindings.At(name);
            const WidgetEntry *widget = variable.IsParameter && variable.Function == connection.Function
                ? Study.Form.FindWidget(variable.Name)
                : nullptr;
            if (!widget || !widget->Info || !widget->IsNamed || Study.IsGuarded(i))
                continue;
            if (!ScriptClass::Of(widget->Class).Find(Tree.At(i).Text))
                continue;
            Study.Tell(Code::ScriptShadow, name,
                QStringLiteral("\"%1\" is the parameter here, and not the widget").arg(variable.Name));
        }
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QSet<QString> Ended; ///< Signals that are disconnected somewhere.
    QSet<QPair<int, QString>> Made;
    QSet<QString> OfThis;
    QSet<int> Handlers; ///< Of the connections so far.
    QVector<int> Limiting; ///< Calls that set a limit.
    QHash<QPair<const WidgetEntry *, QString>, int> Heard; ///< Handlers by control and signal.
};

} // namespace

void CheckScriptConnections(const ScriptStudy &study)
{
    ConnectionCheck(study).Run();
}

} // namespace Orbel
