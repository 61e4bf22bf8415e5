// Indices of a script beyond what is there.

#include "propertynames.h"
#include "scriptloops.h"
#include "scriptstudy.h"
#include "widgetnumbers.h"

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

class IndexCheck
{
public:
    explicit IndexCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree), Loops(study) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Call)) {
                CheckCall(i);
            } else if (Tree.Is(i, Node::Item)) {
                CheckItem(i);
                CheckArrayItem(i);
            }
        }
    }

private:
    /// `setItemValue(row, column, value)` and its like.
    void CheckCall(int call)
    {
        const int function = Tree.Part(call, 0);
        const WidgetEntry *widget = Tree.Is(function, Node::Member) ? Study.WidgetOf(Tree.Part(function, 0)) : nullptr;
        if (widget && Study.MethodOf(function)
            && IsAny(Tree.At(function).Text,
                {"itemValue", "setItemValue", "spacingValue", "setSpacingValue", "shiftValue", "setShiftValue"}))
            CheckPlaces(call, *widget);
    }

    void CheckPlaces(int call, const WidgetEntry &widget)
    {
        const bool isTable = WidgetNumbers(widget).Reads(prop::RowCount);
        if (isTable) {
            CheckIndex(Tree.Part(call, 1), widget, prop::RowCount);
            CheckIndex(Tree.Part(call, 2), widget, prop::ColumnCount);
        } else if (widget.States(prop::EnumName)) {
            CheckRow(Tree.Part(call, 1), widget);
        } else {
            for (const QLatin1String count : {prop::ItemCount, prop::SpacingsCount, prop::ShiftCount}) {
                if (widget.States(count)) {
                    CheckIndex(Tree.Part(call, 1), widget, count);
                    return;
                }
            }
            // Of a list that shows, that it has no items is told already.
            if (!widget.Has(ekShown) && WidgetNumbers(widget).Reads(prop::ItemCount))
                CheckIndex(Tree.Part(call, 1), widget, prop::ItemCount);
        }
    }

    void CheckIndex(int index, const WidgetEntry &widget, QLatin1String property)
    {
        const Number count = WidgetNumbers(widget).NumberOf(property);
        if ((count || !widget.States(property)) && !Study.MaySet(widget, property))
            CheckAgainst(index, widget.Name + QLatin1Char('.') + property, count.Value,
                QStringLiteral("\"%1\" has %2 of %3")
                    .arg(widget.Name, property, count ? count.Text : QStringLiteral("0")));
    }

    void CheckRow(int index, const WidgetEntry &widget)
    {
        const EnumEntry *rows = Study.Form.FindEnum(widget.TextOf(prop::EnumName));
        if (rows && !rows->Rows.isEmpty())
            CheckAgainst(index, QString(), rows->Rows.size(),
                QStringLiteral("\"%1\" has %2 rows").arg(rows->Name).arg(rows->Rows.size()));
    }

    void CheckAgainst(int index, const QString &endOf, double count, const QString &told)
    {
        double greatest = 0;
        if (index < 0 || !Loops.GreatestOf(index, endOf, count, &greatest))
            return;
        if (greatest < 0)
            Study.Tell(Code::ScriptIndex, index, QStringLiteral("An index of %1; they count from 0").arg(greatest));
        else if (greatest >= count)
            Study.Tell(Code::ScriptIndex, index,
                QStringLiteral("%1, and an index of %2 is beyond them; they count from 0").arg(told).arg(greatest));
    }

    void CheckItem(int item)
    {
        const int value = Tree.Part(item, 0);
        const WidgetEntry *widget = Tree.Is(value, Node::Member) ? Study.WidgetOf(Tree.Part(value, 0)) : nullptr;
        if (widget && widget->Has(ekItems) && Registry::FindProperty(*widget->Info, Tree.At(value).Text))
            Study.Tell(Code::ScriptIndex, value,
                QStringLiteral("\"%1\" is no list; %2.itemValue() gives an item")
                    .arg(Study.CodeOf(value), widget->Name));
    }

    /// `list[i]` up to the length of the list itself.
    void CheckArrayItem(int item)
    {
        const int list = Tree.Part(item, 0);
        const int index = Tree.Part(item, 1);
        if (!Tree.Is(list, Node::Name) || Tree.Is(Tree.At(item).Parent, Node::Assign))
            return;
        const QString length = Study.CodeOf(list) + QLatin1String(".length");
        double greatest = 0;
        // A large number stands for the length, which an index of the list may not reach.
        constexpr double unknown = 1e9;
        const double count = Loops.LengthOf(list) >= 0 ? Loops.LengthOf(list) : unknown;
        if (Study.CodeOf(index) == length || (Loops.GreatestOf(index, length, count, &greatest) && greatest >= count))
            Study.Tell(Code::ScriptIndex, index,
                QStringLiteral("The last index of \"%1\" is one below its length").arg(Study.CodeOf(list)));
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    const ScriptLoops Loops;
};

} // namespace

void CheckScriptIndices(const ScriptStudy &study)
{
    IndexCheck(study).Run();
}

} // namespace Orbel
