// Names of a script that hide, replace or repeat others.

#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

using Node = ScriptNode;

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

    void CheckFunctions()
    {
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
};

} // namespace

void CheckScriptNames(const ScriptStudy &study)
{
    NameUse(study).Run();
}

} // namespace Orbel
