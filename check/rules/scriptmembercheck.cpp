// How a script uses properties and functions of controls, and its own functions.

#include "editdistance.h"
#include "propertynames.h"
#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

using Node = ScriptNode;
namespace prop = KV218::prop;

/// Texts that a script writes for truth values, and which are true where a truth value is wanted.
bool SeemsFalse(const QString &text)
{
    const QString word = text.trimmed().toLower();
    return word == QLatin1String("false") || word == QLatin1String("no") || word == QLatin1String("off")
        || word == QLatin1String("0");
}

class MemberCheck
{
public:
    explicit MemberCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree)
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Quoted) || (Tree.Is(i, Node::Member) && !IsAssigned(i)))
                Mentioned.insert(Tree.At(i).Text);
        }
    }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Assign) && Tree.Is(Tree.Part(i, 0), Node::Member))
                CheckAssignment(i);
            else if (Tree.Is(i, Node::Assign) && Tree.Is(Tree.Part(i, 0), Node::Item))
                CheckItemSet(Tree.Part(i, 0));
            else if (Tree.Is(i, Node::Item))
                CheckEnumItem(i);
            else if (Tree.Is(i, Node::Member))
                CheckBuiltin(i);
            else if (Tree.Is(i, Node::Statement))
                CheckUncalled(Tree.Part(i, 0));
            else if (Tree.Is(i, Node::Call))
                CheckCall(i);
        }
    }

private:
    bool IsAssigned(int node) const
    {
        return Tree.Is(Tree.At(node).Parent, Node::Assign, "=") && Tree.PlaceOf(node) == 0;
    }

    void CheckAssignment(int node)
    {
        const int target = Tree.Part(node, 0);
        const QString &name = Tree.At(target).Text;
        const QString owner = Study.NameOf(Tree.Part(target, 0));
        const WidgetEntry *widget = Study.WidgetOf(Tree.Part(target, 0));
        if (!widget && Study.ClassOf(Tree.Part(target, 0)))
            CheckSheetProperty(target);
        if (const ScriptMethod *method = Study.PropertyOf(target) ? nullptr : Study.MethodOf(target)) {
            Study.Tell(Code::ScriptSignal, target,
                QStringLiteral("\"%1\" of \"%2\" is a function, and the assignment does nothing to it")
                    .arg(name, owner),
                MendToCall(node, method->IsSignal ? name + QLatin1String(".connect") : name));
        } else if (widget && !widget->Has(ekFreeProperties)) {
            if (const PropertyInfo *known = Registry::FindProperty(*widget->Info, name))
                CheckProperty(node, *widget, *known);
            else if (!Study.PropertyOf(target) && Tree.IsFunction(Tree.Part(node, 1)) && !Mentioned.contains(name))
                Study.Tell(Code::ScriptSignal, target,
                    QStringLiteral("\"%1\" has no \"%2\", and nobody calls this function").arg(owner, name));
            else if (!Study.PropertyOf(target))
                CheckUnknown(target, *widget);
        }
    }

    /// Lists and maps of a form are no arrays and objects of the script.
    void CheckItemSet(int item)
    {
        const WidgetEntry *widget = Study.WidgetOf(Tree.Part(item, 0));
        if (widget && widget->Has(ekItems))
            Study.Tell(Code::ScriptProperty, item,
                QStringLiteral("\"%1\" takes its items by functions, and keeps nothing that is set in brackets")
                    .arg(widget->Name));
    }

    void CheckEnumItem(int item)
    {
        const EnumEntry *rows = Study.EnumOf(Tree.Part(item, 0));
        const int key = Tree.Part(item, 1);
        const QString name = rows && Tree.Is(key, Node::Quoted) ? Study.ConstantOf(key) : QString();
        QStringList names;
        for (const EnumRow &row : rows ? rows->Rows : QVector<EnumRow>())
            names.append(row.Identifier);
        if (!name.isNull() && !names.contains(name) && !IsAssigned(item))
            Study.Sink.AddMisspelt(Code::ScriptChoice, Study.PlaceOf(key) + 1,
                QStringLiteral("\"%1\" has no \"%2\"").arg(rows->Name, name), name, names);
    }

    /// Misspelt members of texts and arrays, where the script makes no such name itself.
    void CheckBuiltin(int member)
    {
        const int object = Tree.Part(member, 0);
        const QString &name = Tree.At(member).Text;
        static const QStringList known{QStringLiteral("length"), QStringLiteral("indexOf"), QStringLiteral("charAt"),
            QStringLiteral("substring"), QStringLiteral("substr"), QStringLiteral("replace"), QStringLiteral("split"),
            QStringLiteral("toFixed"), QStringLiteral("toString"), QStringLiteral("toUpperCase"),
            QStringLiteral("toLowerCase"), QStringLiteral("concat"), QStringLiteral("forEach"),
            QStringLiteral("filter"), QStringLiteral("slice"), QStringLiteral("splice"), QStringLiteral("reverse")};
        if (name.size() < 4 || known.contains(name) || Study.ClassOf(object) || Study.EnumOf(object)
            || Study.IsGuarded(member) || IsAssigned(member) || Study.MakesMember(name))
            return;
        const QString meant = NearestName(name, known);
        const bool isKnown = Tree.Is(object, Node::Name) && !Study.Bindings.At(object).IsMade;
        // Data have their filters and lengths.
        const bool isMany = name == meant + QLatin1Char('s');
        if (!meant.isEmpty() && EditDistance(name.toLower(), meant.toLower()) <= 1 && !isKnown && !isMany)
            Study.Sink.AddMisspelt(Code::ScriptMember, Study.PlaceOf(member),
                QStringLiteral("Neither texts nor arrays have \"%1\"").arg(name), name, known);
    }

    void CheckSheetProperty(int target)
    {
        const QString &name = Tree.At(target).Text;
        const QStringList names = Registry::SheetPropertyNames() + ScriptClass::Of(QString()).Names();
        const bool isShort = name.size() >= 3
            && std::any_of(names.cbegin(), names.cend(), [&](const QString &known) { return known.startsWith(name); });
        const bool isStated = Study.Form.FindSheetProperty(name, false) || Study.MethodOf(target);
        if (!isStated && !Mentioned.contains(name) && (isShort || !MisspeltName(name, names).isEmpty()))
            Study.Sink.AddMisspelt(Code::ScriptProperty, Study.PlaceOf(target),
                QStringLiteral("The sheet does not state \"%1\", and the assignment reaches nothing").arg(name), name,
                names);
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

    /// `gain.value = 5` as `gain.NAME(5)`.
    Mend MendToCall(int assignment, const QString &name) const
    {
        const int target = Tree.Part(assignment, 0);
        const int value = Tree.Part(assignment, 1);
        if (!Tree.Is(assignment, Node::Assign, "=") || !Tree.Is(Tree.At(assignment).Parent, Node::Statement)
            || Tree.At(value).IsInBrackets)
            return Mend();
        const int from = Tree.At(target).Index;
        const QString is = Study.Script.Code().mid(from, Tree.At(value).End - from);
        return {Study.PlaceOf(target), is, name + QLatin1Char('(') + Study.CodeOf(value) + QLatin1Char(')')};
    }

    void CheckProperty(int node, const WidgetEntry &widget, const PropertyInfo &known)
    {
        const int target = Tree.Part(node, 0);
        if (known.use != PropertyUse::Stored && !widget.States(known.name)
            && !Study.Form.ScriptMayCall(widget, SetterOf(known.name).toLatin1())) {
            const bool hasSetter = ScriptClass::Of(widget.Class).Find(SetterOf(known.name));
            Study.Tell(Code::ScriptProperty, target,
                QStringLiteral("\"%1\" does not state \"%2\", and the assignment reaches nothing")
                    .arg(widget.Name, known.name),
                hasSetter ? MendToCall(node, SetterOf(known.name)) : Mend());
        }
        if (Tree.Is(node, Node::Assign, "="))
            CheckKind(Tree.Part(node, 1), known.type, known.name);
    }

    /// A name that nobody reads is no memory of the script's own.
    void CheckUnknown(int target, const WidgetEntry &widget)
    {
        const QString &name = Tree.At(target).Text;
        if (Mentioned.contains(name))
            return;
        const QStringList names = Registry::PropertyNames(*widget.Info) + ScriptClass::Of(widget.Class).Names();
        const bool isShort = name.size() >= 3
            && std::any_of(names.cbegin(), names.cend(), [&](const QString &known) { return known.startsWith(name); });
        if (!isShort && MisspeltName(name, names).isEmpty() && !IsOfAnyClass(name))
            return;
        Study.Sink.AddMisspelt(Code::ScriptProperty, Study.PlaceOf(target),
            QStringLiteral("A %1 has no \"%2\", and nobody reads what is assigned to it").arg(widget.Class, name), name,
            names);
    }

    static bool IsOfAnyClass(const QString &name)
    {
        static const QSet<QString> names = [] {
            QSet<QString> all;
            for (const ClassInfo &info : Registry::Classes()) {
                const QStringList own = Registry::PropertyNames(info);
                all += QSet<QString>(own.cbegin(), own.cend());
            }
            return all;
        }();
        return names.contains(name);
    }

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
        static const QSet<QString> ofNumbers{QStringLiteral("Number"), QStringLiteral("parseInt"),
            QStringLiteral("parseFloat"), QStringLiteral("isNaN"), QStringLiteral("isFinite")};
        const bool isBuiltin = Study.Bindings.IsForeign(function) && ofNumbers.contains(Tree.At(function).Text);
        const bool isMath = Tree.Is(function, Node::Member) && Tree.Is(Tree.Part(function, 0), Node::Name, "Math");
        for (int i = 1; (isBuiltin || isMath) && i <= count; ++i) {
            if (Study.WidgetOf(Tree.Part(call, i)))
                CheckKind(Tree.Part(call, i), ValueType::Double, Tree.At(function).Text);
        }
        if (Tree.Is(function, Node::Name)) {
            CheckOwnCall(call, Study.Bindings.FunctionOf(function), count);
        } else if (const ScriptMethod *method = Study.MethodOf(function)) {
            CheckCount(call, *method, count);
            const WidgetEntry *widget = Study.WidgetOf(Tree.Part(function, 0));
            if (widget && widget->Class == QLatin1String("TableWidget")
                && Tree.At(function).Text == QLatin1String("setItemValue"))
                Study.Tell(Code::TableUnshown, function,
                    QStringLiteral("\"%1\" keeps and writes this, and does not show it").arg(widget->Name));
            if (widget && Tree.At(function).Text == QLatin1String("customProperty"))
                CheckCustom(call, *widget);
            CheckNames(call, function);
            for (int i = 0; i < count; ++i)
                CheckArgument(Tree.Part(call, i + 1), method->TypeOf(i, count), Tree.At(function).Text);
        } else if (IsProperty(function) && !Study.IsGuarded(function)) {
            CheckCalledProperty(call, function);
        }
    }

    /// Texts that name an enumeration.
    void CheckNames(int call, int function)
    {
        const int argument = Tree.Part(call, 1);
        const QString text = Tree.Is(argument, Node::Quoted) ? Study.ConstantOf(argument) : QString();
        const WidgetEntry *widget = Study.WidgetOf(Tree.Part(function, 0));
        if (text.isNull() || !widget)
            return;
        if (Tree.At(function).Text == QLatin1String("setEnumName") && !Study.Form.FindEnum(text))
            Study.Sink.AddMisspelt(Code::EnumUnknown, Study.PlaceOf(argument) + 1,
                QStringLiteral("There is no enumeration \"%1\"").arg(text), text, Study.Form.EnumNames());
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
        if (type == "bool")
            CheckKind(argument, ValueType::Bool, function, true);
        else if (type == "double")
            CheckKind(argument, ValueType::Double, function);
        else if (wanted == ScriptKind::Number)
            CheckKind(argument, ValueType::Int, function);
        else if (wanted == ScriptKind::Text)
            CheckKind(argument, ValueType::Text, function);
    }

    /// `wants` is the property or function. Where a text counts as a script takes it, any but the empty one is true.
    void CheckKind(int value, ValueType type, const QString &wants, bool countsAny = false)
    {
        const ScriptKind kind = Study.KindOf(value);
        if (kind == ScriptKind::Control || kind == ScriptKind::Function) {
            const WidgetEntry *widget = Study.WidgetOf(value);
            const QLatin1String property = widget ? widget->Info->delegate->valueProperty : QLatin1String();
            const QString name = Study.CodeOf(value);
            Study.Tell(Code::ScriptArgument, value,
                QStringLiteral("\"%1\" gets %2 itself, not a value")
                    .arg(wants, QLatin1String(kind == ScriptKind::Control ? "a control" : "a function")),
                property.isEmpty() || !Tree.Is(value, Node::Name)
                    ? Mend()
                    : Mend{Study.PlaceOf(value), name, name + QLatin1Char('.') + property});
            return;
        }
        const QString text = value < 0 ? QString() : Study.ConstantOf(value);
        double number = 0;
        if (type == ValueType::Text)
            return;
        if (type != ValueType::Bool && Tree.Is(value, Node::Binary, "+") && kind == ScriptKind::Text) {
            Study.Tell(Code::ScriptTextSum, value,
                QStringLiteral("\"%1\" wants a number, and + puts texts together").arg(wants));
            return;
        }
        if (type == ValueType::Bool) {
            if (SeemsFalse(text) && (countsAny || (text != QLatin1String("false") && text != QLatin1String("0"))))
                Study.Tell(Code::ScriptArgument, value,
                    QStringLiteral("The text \"%1\" counts as true for \"%2\"").arg(text, wants),
                    Tree.Is(value, Node::Quoted)
                        ? Mend{Study.PlaceOf(value), Study.CodeOf(value), QStringLiteral("false")}
                        : Mend());
        } else if (!text.isNull() && !IsNumber(text)) {
            Study.Tell(Code::ScriptArgument, value,
                QStringLiteral("\"%1\" wants a number, and \"%2\" is none").arg(wants, text));
        } else if (type != ValueType::Double && Study.NumberOf(value, &number) && number != double(qint64(number))) {
            Study.Tell(Code::ScriptArgument, value,
                QStringLiteral("\"%1\" takes whole numbers, and %2 loses its rest").arg(wants, Study.CodeOf(value)));
        }
    }

    static bool IsNumber(const QString &text)
    {
        bool isNumber = false;
        text.trimmed().toDouble(&isNumber);
        return isNumber;
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QSet<QString> Mentioned; ///< Names behind a dot that are read, and texts.
};

} // namespace

void CheckScriptMembers(const ScriptStudy &study)
{
    MemberCheck(study).Run();
}

} // namespace Orbel
