// Names of a script that hide, replace or repeat others.

#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

class NameUse
{
public:
    explicit NameUse(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        CheckFunctions();
        for (const ScriptVariable &variable : Study.Bindings.All()) {
            const QString kind = KindOf(variable.Name);
            if (!kind.isEmpty())
                CheckHidden(variable, kind);
            else if (!variable.IsMade && variable.Reads.isEmpty() && !variable.Sets.isEmpty())
                CheckLost(variable);
            CheckReplaced(variable);
            CheckUnset(variable);
        }
    }

private:
    QString KindOf(const QString &name) const
    {
        const WidgetEntry *widget = Study.Form.FindWidget(name);
        if (widget && widget->IsNamed)
            return QStringLiteral("widget");
        return Study.Form.FindEnum(name) ? QStringLiteral("enumeration") : QString();
    }

    /// A name that is set and never read, and nearly that of a variable.
    void CheckLost(const ScriptVariable &variable)
    {
        constexpr int most = 100;
        if (++Lost > most || Study.Form.ScriptSpeaksOf(variable.Name))
            return;
        QStringList names;
        for (const ScriptVariable &other : Study.Bindings.All()) {
            if (other.IsMade && other.Function == Tree.Root())
                names.append(other.Name);
        }
        if (!MisspeltName(variable.Name, names).isEmpty())
            Study.Sink.AddMisspelt(Code::ScriptUnknown,
                PlaceOfName(qMax(0, Tree.Part(variable.Sets.constFirst(), 0)), variable.Name),
                QStringLiteral("Nobody reads \"%1\"").arg(variable.Name), variable.Name, names);
    }

    /// Two values one behind the other, of which nobody reads the first.
    void CheckReplaced(const ScriptVariable &variable)
    {
        for (int i = 0; i + 1 < variable.Sets.size() && i < 50; ++i) {
            const int first = variable.Sets.at(i);
            const int second = variable.Sets.at(i + 1);
            const int value = Tree.Part(second, Tree.Is(second, Node::Declarator) ? 0 : 1);
            const bool isPair = Tree.Is(first, Node::Declarator) && first < second && IsPlainStep(first)
                && IsPlainStep(second) && (Tree.Is(second, Node::Declarator) || Tree.IsFunction(value))
                && Tree.At(first).Function == Tree.At(second).Function;
            const bool isRead = std::any_of(variable.Reads.cbegin(), variable.Reads.cend(), [&](int read) {
                return (read > first && read < second) || Tree.At(read).Function != Tree.At(first).Function;
            });
            if (isPair && !isRead)
                Study.Sink.Add(Code::ScriptFunctionDoubled, PlaceOfName(second, variable.Name),
                    QStringLiteral("\"%1\" gets another value before anybody reads this one").arg(variable.Name));
        }
    }

    /// A variable of the program that is read on the way, before it has any value.
    void CheckUnset(const ScriptVariable &variable)
    {
        if (!variable.IsMade || variable.Function != Tree.Root() || variable.Sets.isEmpty()
            || !Tree.Is(variable.Sets.constFirst(), Node::Declarator) || !IsPlainStep(variable.Sets.constFirst()))
            return;
        const int first = variable.Sets.constFirst();
        for (const int read : variable.Reads) {
            if (read > first)
                continue;
            int statement = read;
            while (statement >= 0 && Tree.At(statement).Parent != Tree.Root())
                statement = Tree.At(statement).Parent;
            const bool isPlain = Tree.At(read).Function == Tree.Root() && read < first
                && (Tree.Is(statement, Node::Statement) || Tree.Is(statement, Node::Variables))
                && !Study.IsGuarded(read)
                && std::none_of(variable.Sets.cbegin(), variable.Sets.cend(), [read](int set) { return set < read; });
            if (!isPlain || Tree.IsInside(first, statement))
                continue;
            Study.Tell(Code::ScriptUnset, read, QStringLiteral("\"%1\" has no value yet").arg(variable.Name));
            return;
        }
    }

    /// A statement of the function or the program itself, not in a branch or a loop.
    bool IsPlainStep(int set) const
    {
        const int statement = Tree.At(set).Parent;
        const int around = statement < 0 ? -1 : Tree.At(statement).Parent;
        return (Tree.Is(statement, Node::Variables) || Tree.Is(statement, Node::Statement))
            && (around == Tree.Root() || (Tree.Is(around, Node::Block) && Tree.IsFunction(Tree.At(around).Parent)));
    }

    void CheckHidden(const ScriptVariable &variable, const QString &kind)
    {
        for (const int set : variable.Sets) {
            const bool isOwn = variable.IsMade && variable.Function != Tree.Root();
            if (isOwn && !IsUsedAsControl(variable))
                continue;
            const int place = Tree.Is(set, Node::Declarator) || Tree.IsFunction(set) || Tree.Is(set, Node::ForIn)
                ? set
                : qMax(0, Tree.Part(set, 0));
            if (Tree.Is(set, Node::Catch))
                continue;
            Study.Sink.Add(Code::ScriptShadow, PlaceOfName(place, variable.Name),
                isOwn ? QStringLiteral("The variable hides the %1 \"%2\"").arg(kind, variable.Name)
                      : QStringLiteral("This takes the place of the %1 \"%2\", which the script cannot reach any more")
                            .arg(kind, variable.Name));
            return;
        }
    }

    int PlaceOfName(int node, const QString &name) const
    {
        const int word = Tree.IsFunction(node) ? int(qstrlen("function")) : 0;
        const int found = Study.Script.Code().indexOf(name, Tree.At(node).Index + word);
        return Study.Script.PlaceOf(qMax(found, Tree.At(node).Index));
    }

    /// Whether a variable of a function is used behind a dot as only the control could be.
    bool IsUsedAsControl(const ScriptVariable &variable) const
    {
        const WidgetEntry *widget = Study.Form.FindWidget(variable.Name);
        const bool isAlias = variable.Sets.size() == 1 && Tree.Is(variable.Sets.constFirst(), Node::Declarator)
            && Study.WidgetOf(Tree.Part(variable.Sets.constFirst(), 0));
        if (!widget || !widget->Info || isAlias || variable.IsParameter)
            return false;
        const auto isControls = [&](int name) {
            const int member = Tree.At(name).Parent;
            return Tree.Is(member, Node::Member)
                && (ScriptClass::Of(widget->Class).Find(Tree.At(member).Text)
                    || Registry::FindProperty(*widget->Info, Tree.At(member).Text));
        };
        return std::any_of(variable.Reads.cbegin(), variable.Reads.cend(), isControls);
    }

    /// Parameters that share a name, and such as are set before anybody reads what was given.
    void CheckParameters(int function)
    {
        QSet<QString> names;
        const QVector<int> &parts = Tree.At(function).Parts;
        for (int i = 0; i + 1 < parts.size(); ++i) {
            const QString &name = Tree.At(parts.at(i)).Text;
            if (names.contains(name))
                Study.Tell(
                    Code::ScriptShadow, parts.at(i), QStringLiteral("Two parameters are called \"%1\"").arg(name));
            names.insert(name);
            const ScriptVariable &variable = Study.Bindings.At(parts.at(i));
            const int set = variable.Sets.value(0, -1);
            const bool isFirst = Tree.Is(set, Node::Assign, "=") && IsPlainStep(set)
                && Tree.At(set).Function == function
                && std::none_of(variable.Reads.cbegin(), variable.Reads.cend(), [&](int read) { return read < set; });
            if (isFirst && !variable.Reads.isEmpty() && !Study.ReadsArguments(function))
                Study.Tell(Code::ScriptShadow, set,
                    QStringLiteral("What \"%1\" was given is lost before anybody reads it").arg(name));
        }
    }

    void CheckFunctions()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.IsFunction(i))
                CheckParameters(i);
        }
        QSet<int> names;
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (!Tree.Is(i, Node::FunctionStatement))
                continue;
            if (names.contains(Study.Bindings.NumberOf(i)))
                Study.Sink.Add(Code::ScriptFunctionDoubled, PlaceOfName(i, Tree.At(i).Text),
                    QStringLiteral("This function replaces another one with the name \"%1\"").arg(Tree.At(i).Text));
            names.insert(Study.Bindings.NumberOf(i));
        }
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    int Lost = 0; ///< Names that were looked at, so that this stays linear.
};

} // namespace

void CheckScriptNames(const ScriptStudy &study)
{
    NameUse(study).Run();
}

} // namespace Orbel
