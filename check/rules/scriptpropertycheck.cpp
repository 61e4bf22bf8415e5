// What a script assigns to properties of controls and of the sheet.

#include "scriptargumentcheck.h"
#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

class SetPropertyCheck
{
public:
    explicit SetPropertyCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree)
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::QuotedText) || (Tree.Is(i, Node::Member) && !Study.IsAssigned(i)))
                Mentioned.insert(Tree.At(i).Text);
        }
    }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            const int target = Tree.Is(i, Node::Assign) ? Tree.Part(i, 0) : -1;
            if (Tree.Is(target, Node::Member))
                CheckAssignment(i);
            else if (Tree.Is(target, Node::Item))
                CheckItemSet(target);
        }
    }

private:
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
            ScriptArgumentCheck(Study, Tree.Part(node, 1), known.name).Run(known.type);
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

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QSet<QString> Mentioned; ///< Names behind a dot that are read, and texts.
};

} // namespace

void CheckScriptProperties(const ScriptStudy &study)
{
    SetPropertyCheck(study).Run();
}

} // namespace Orbel
