// How a script calls functions of controls, and its own.

#include "scriptargumentcheck.h"
#include "scriptstudy.h"

namespace Orbel
{

namespace
{

class CallCheck
{
public:
    explicit CallCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Statement))
                CheckUncalled(Tree.Part(i, 0));
            else if (Tree.Is(i, Node::Call))
                CheckCall(i);
        }
    }

private:
    void CheckUncalled(int expression)
    {
        const ScriptMethod *method = Study.MethodOf(expression);
        const QString &name = Tree.At(expression).Text;
        const int own = Tree.Is(expression, Node::Name) ? Study.Bindings.FunctionOf(expression) : -1;
        if ((!method && own < 0) || Study.PropertyOf(expression))
            return;
        const bool takesNothing = method ? method->Least() == 0 && !method->IsSignal : Tree.At(own).Parts.size() == 1;
        const Mend call{Study.PlaceOf(expression), name, name + QLatin1String("()")};
        const QString told = method
            ? QStringLiteral("\"%1\" of \"%2\" is not called").arg(name, Study.NameOf(Tree.Part(expression, 0)))
            : QStringLiteral("\"%1\" is not called").arg(name);
        Study.Tell(Code::ScriptUncalled, expression, told, takesNothing ? call : Mend());
    }

    void CheckCall(int call)
    {
        const int function = Tree.Part(call, 0);
        const int count = Tree.At(call).Parts.size() - 1;
        CheckNumbers(call);
        if (Tree.Is(function, Node::Name)) {
            CheckOwnCall(call, Study.Bindings.FunctionOf(function), count);
        } else if (const ScriptMethod *method = Study.MethodOf(function)) {
            CheckCount(call, *method, count);
            CheckControlCall(call);
            for (int i = 0; i < count; ++i)
                CheckArgument(Tree.Part(call, i + 1), method->TypeOf(i, count), Tree.At(function).Text);
        } else if (IsProperty(function) && !Study.IsGuarded(function)) {
            CheckCalledProperty(call, function);
        }
    }

    /// Functions of the language that want numbers.
    void CheckNumbers(int call)
    {
        const int function = Tree.Part(call, 0);
        const QString &name = Tree.At(function).Text;
        const bool isBuiltin = Study.Bindings.IsForeign(function)
            && IsAny(name, {"Number", "parseInt", "parseFloat", "isNaN", "isFinite"});
        const bool isMath = Tree.Is(function, Node::Member) && Tree.Is(Tree.Part(function, 0), Node::Name, "Math");
        for (const int argument : isBuiltin || isMath ? Tree.At(call).Parts.mid(1) : QVector<int>()) {
            if (Study.WidgetOf(argument))
                ScriptArgumentCheck(Study, argument, name).Run(ValueType::Double);
        }
    }

    /// What single functions of controls want.
    void CheckControlCall(int call)
    {
        const int function = Tree.Part(call, 0);
        const QString &name = Tree.At(function).Text;
        const WidgetEntry *widget = Study.WidgetOf(Tree.Part(function, 0));
        if (!widget)
            return;
        if (widget->Class == QLatin1String("TableWidget") && name == QLatin1String("setItemValue"))
            Study.Tell(Code::TableUnshown, function,
                QStringLiteral("\"%1\" keeps and writes this, and does not show it").arg(widget->Name));
        else if (name == QLatin1String("customProperty"))
            CheckCustom(call, *widget);
        else if (name == QLatin1String("setEnumName"))
            CheckEnumName(Tree.Part(call, 1));
    }

    void CheckEnumName(int argument)
    {
        const QString name = Tree.Is(argument, Node::QuotedText) ? Study.ConstantOf(argument) : QString();
        if (!name.isNull() && !Study.Form.FindEnum(name))
            Study.Sink.AddMisspelt(Code::EnumUnknown, Study.PlaceOf(argument) + 1,
                QStringLiteral("There is no enumeration \"%1\"").arg(name), name, Study.Form.EnumNames());
    }

    /// Custom properties that the control has by nearly that name.
    void CheckCustom(int call, const WidgetEntry &widget)
    {
        const QString name = Study.ConstantOf(qMax(0, Tree.Part(call, 1)));
        QStringList names;
        for (const PropertyEntry &property : widget.Properties)
            names += property.IsCustom ? QStringList(property.Name) : QStringList();
        if (Tree.At(call).Parts.size() == 2 && !names.contains(name) && !MisspeltName(name, names).isEmpty())
            Study.Sink.AddMisspelt(Code::ScriptMember, Study.PlaceOf(Tree.Part(call, 1)) + 1,
                QStringLiteral("\"%1\" has no custom property \"%2\"").arg(widget.Name, name), name, names);
    }

    bool IsProperty(int member) const
    {
        const WidgetEntry *widget = Tree.Is(member, Node::Member) ? Study.WidgetOf(Tree.Part(member, 0)) : nullptr;
        return widget && Registry::FindProperty(*widget->Info, Tree.At(member).Text);
    }

    void CheckCalledProperty(int call, int member)
    {
        const QString &name = Tree.At(member).Text;
        const bool hasSetter = Study.ClassOf(Tree.Part(member, 0))->Find(SetterOf(name));
        Mend mend{Study.PlaceOf(member), name, SetterOf(name)};
        if (Tree.At(call).Parts.size() == 1)
            mend = {Study.PlaceOf(member), name + QLatin1String("()"), name};
        else if (!hasSetter)
            mend = Mend();
        Study.Tell(Code::ScriptNoFunction, member,
            QStringLiteral("\"%1\" of \"%2\" is a property, and cannot be called")
                .arg(name, Study.NameOf(Tree.Part(member, 0))),
            mend);
    }

    void CheckCount(int call, const ScriptMethod &method, int count)
    {
        if (count >= method.Least() && count <= method.Most())
            return;
        const int function = Tree.Part(call, 0);
        Study.Tell(Code::ScriptArguments, function,
            QStringLiteral("\"%1\" of \"%2\" takes %3, not %4")
                .arg(Tree.At(function).Text, Study.NameOf(Tree.Part(function, 0)),
                    Arguments(count < method.Least() ? method.Least() : method.Most()), QString::number(count)));
    }

    static QString Arguments(int count)
    {
        return count == 1 ? QStringLiteral("1 argument") : QStringLiteral("%1 arguments").arg(count);
    }

    void CheckOwnCall(int call, int function, int count)
    {
        if (function < 0 || Study.ReadsArguments(function))
            return;
        const int parameters = Tree.At(function).Parts.size() - 1;
        if (count > parameters || (count < parameters && Study.Needs(function, count)))
            Study.Tell(Code::ScriptArguments, Tree.Part(call, 0),
                QStringLiteral("\"%1\" takes %2, not %3")
                    .arg(Tree.At(Tree.Part(call, 0)).Text, Arguments(parameters), QString::number(count)));
    }

    void CheckArgument(int argument, const QByteArray &type, const QString &function)
    {
        const ScriptKind wanted = KindOfType(type);
        ScriptArgumentCheck check(Study, argument, function);
        if (wanted == ScriptKind::Bool)
            check.Run(ValueType::Bool, true);
        else if (wanted == ScriptKind::Number)
            check.Run(type == "double" ? ValueType::Double : ValueType::Int);
        else if (wanted == ScriptKind::Text)
            check.Run(ValueType::Text);
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
};

} // namespace

void CheckScriptCalls(const ScriptStudy &study)
{
    CallCheck(study).Run();
}

} // namespace Orbel
