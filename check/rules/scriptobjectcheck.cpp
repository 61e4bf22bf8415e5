// Keys of objects and maps of a script, functions that nobody uses, and functions of controls that do something else.

#include "elementnames.h"
#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

class ObjectCheck
{
public:
    explicit ObjectCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree)
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            const int key = Tree.Is(i, Node::Item) ? Tree.Part(i, 1) : Tree.Is(i, Node::Member) ? i : -1;
            if (key == i || Tree.Is(key, Node::QuotedText))
                AskedKeys.insert(Tree.At(key).Text);
        }
    }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Member))
                CheckMember(i);
            else if (Tree.Is(i, Node::Item))
                CheckItem(i);
            else if (Tree.Is(i, Node::Call))
                CheckCall(i);
            else if (Tree.Is(i, Node::FunctionStatement))
                CheckUnused(i);
        }
        CheckMaps();
    }

private:
    /// The literal of a variable that is nothing but that object; -1 when others may add to it.
    int LiteralOf(int name) const
    {
        if (!Tree.Is(name, Node::Name))
            return -1;
        const ScriptVariable &variable = Study.Bindings.At(name);
        const int set = variable.Sets.size() == 1 ? variable.Sets.constFirst() : -1;
        const int value = Tree.Is(set, Node::Declarator) ? Tree.Part(set, 0) : -1;
        constexpr int mostReads = 1000;
        const bool isRead = variable.Reads.size() <= mostReads
            && std::all_of(variable.Reads.cbegin(), variable.Reads.cend(), [this](int read) {
                   const int outer = Tree.At(read).Parent;
                   const bool isObject
                       = (Tree.Is(outer, Node::Member) || Tree.Is(outer, Node::Item)) && Tree.Part(outer, 0) == read;
                   return isObject && !Tree.Is(Tree.At(outer).Parent, Node::Assign);
               });
        return Tree.Is(value, Node::Object) && isRead ? value : -1;
    }

    QStringList KeysOf(int object) const
    {
        QStringList keys;
        for (const int pair : Tree.At(object).Parts)
            keys.append(Tree.At(pair).Text);
        return keys;
    }

    void CheckMember(int member)
    {
        const int object = LiteralOf(Tree.Part(member, 0));
        const QString &name = Tree.At(member).Text;
        if (object < 0 || Study.IsGuarded(member))
            return;
        const QStringList keys = KeysOf(object);
        static const QStringList inherited{QStringLiteral("hasOwnProperty"), QStringLiteral("toString"),
            QStringLiteral("valueOf"), QStringLiteral("constructor"), QStringLiteral("isPrototypeOf"),
            QStringLiteral("propertyIsEnumerable"), QStringLiteral("toLocaleString")};
        if (!keys.contains(name) && !inherited.contains(name))
            Study.Sink.AddMisspelt(Code::ScriptMember, Study.PlaceOf(member),
                QStringLiteral("\"%1\" has no \"%2\"").arg(Study.CodeOf(Tree.Part(member, 0)), name), name, keys);
    }

    /// Keys that no row of an enumeration has as its value.
    void CheckItem(int item)
    {
        const EnumEntry *rows = Study.ChoicesOf(Tree.Part(item, 1));
        const int object = rows ? LiteralOf(Tree.Part(item, 0)) : -1;
        if (object < 0)
            return;
        QStringList values;
        for (const EnumRow &row : rows->Rows)
            values.append(row.Value);
        for (const int pair : Tree.At(object).Parts) {
            const QString key = Study.ConstantOf(pair).isNull() ? Tree.At(pair).Text : Study.ConstantOf(pair);
            // `names[mode.currentValue] || names.other`
            if (!rows->Values.contains(key) && !Told.contains(pair) && !AskedKeys.contains(key))
                Study.Sink.AddMisspelt(Code::ScriptChoice, Study.PlaceOf(pair),
                    QStringLiteral("No row of \"%1\" has the value \"%2\"").arg(rows->Name, key), key, values);
            Told.insert(pair);
        }
    }

    void CheckCall(int call)
    {
        const int function = Tree.Part(call, 0);
        const WidgetEntry *widget = Tree.Is(function, Node::Member) ? Study.WidgetOf(Tree.Part(function, 0)) : nullptr;
        if (!widget)
            return;
        const QString &name = Tree.At(function).Text;
        if (widget->Class == KV218::widgetclass::Headline && name == QLatin1String("setGroupVisible"))
            Study.Tell(Code::ScriptGroup, function,
                QStringLiteral("This hides the headline \"%1\" at most, and not its group").arg(widget->Name));
        if (widget->Class != QLatin1String("HiddenMap"))
            return;
        const QString key = Study.ConstantOf(qMax(0, Tree.Part(call, 1)));
        if (name == QLatin1String("setValue"))
            Set[widget].append(key);
        else if (name == QLatin1String("value") || name == QLatin1String("contains") || name == QLatin1String("remove"))
            Asked[widget].append(Tree.Part(call, 1));
    }

    /// A map that a document fills may have any key, but hardly one that is nearly another.
    void CheckMaps()
    {
        for (auto map = Asked.cbegin(); map != Asked.cend(); ++map) {
            const QStringList keys = Set.value(map.key());
            for (const int asked : map.value()) {
                const QString key = Tree.Is(asked, Node::QuotedText) ? Study.ConstantOf(asked) : QString();
                const QString meant = key.isEmpty() || keys.contains(key) ? QString() : MisspeltName(key, keys);
                if (!meant.isEmpty() && !keys.contains(QString()))
                    Study.Sink.AddMisspelt(Code::ScriptMember, Study.PlaceOf(asked) + 1,
                        QStringLiteral("\"%1\" is never given the key \"%2\"").arg(map.key()->Name, key), key, keys);
            }
        }
    }

    void CheckUnused(int function)
    {
        const ScriptVariable &variable = Study.Bindings.At(function);
        const bool isUsed = std::any_of(
            variable.Reads.cbegin(), variable.Reads.cend(), [&](int read) { return !Tree.IsInside(read, function); });
        if (!isUsed && !Study.Form.ScriptSpeaksOf(variable.Name))
            Study.Tell(
                Code::ScriptUnused, function, QStringLiteral("Nothing in the form calls \"%1\"").arg(variable.Name));
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QSet<int> Told;
    QSet<QString> AskedKeys; ///< By name, behind a dot or in brackets.
    QHash<const WidgetEntry *, QStringList> Set;
    QHash<const WidgetEntry *, QVector<int>> Asked;
};

} // namespace

void CheckScriptObjects(const ScriptStudy &study)
{
    ObjectCheck(study).Run();
}

} // namespace Orbel
