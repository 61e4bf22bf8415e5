// Loops of a script that cannot end, and indices beyond what is there.

#include "propertynames.h"
#include "scriptstudy.h"
#include "widgetnumbers.h"

#include <algorithm>

namespace Orbel
{

namespace
{

using Node = ScriptNode;
namespace prop = KV218::prop;

/// The values that the variable of a plain loop takes: `for (var i = 0; i < 3; ++i)`.
struct LoopRange {
    int Variable = -1; ///< -1 for another loop.
    double First = 0;
    double Last = -1; ///< Where it is a number.
    QString LastOf; ///< Code of what ends it, when that is no number: the last value is one less, or that itself.
    bool IsLastIncluded = false;
};

class LoopCheck
{
public:
    explicit LoopCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::For))
                CheckFor(i);
            else if (Tree.Is(i, Node::ForIn))
                CheckKeys(i);
            else if (Tree.Is(i, Node::While))
                CheckEnd(i, Tree.Part(i, 0));
            else if (Tree.Is(i, Node::Do))
                CheckEnd(i, Tree.Part(i, 1));
            else if (Tree.Is(i, Node::Call))
                CheckIndices(i);
            else if (Tree.Is(i, Node::Item))
                CheckItem(i);
            else if (Tree.Is(i, Node::FunctionStatement))
                CheckRecursion(i);
        }
    }

private:
    // ends

    void CheckFor(int loop)
    {
        const int condition = Tree.Part(loop, 1);
        if (Tree.Is(condition, Node::Empty)) {
            TellEndless(loop, loop);
            return;
        }
        if (RunsAway(loop))
            Study.Tell(Code::ScriptLoop, condition, QStringLiteral("The step leads away from the end of the loop"));
        else
            CheckEnd(loop, condition);
        Ranges.insert(loop, RangeOf(loop));
    }

    void TellEndless(int loop, int place)
    {
        // What is called may throw, and somebody waits for that.
        const bool mayThrow
            = Study.IsCaught(loop) && Study.Contains(loop, [this](int i) { return Tree.Is(i, Node::Call); });
        if (!mayThrow && !Study.Leaves(loop))
            Study.Tell(Code::ScriptLoop, place, QStringLiteral("Nothing in this loop ends it"));
    }

    void CheckEnd(int loop, int condition)
    {
        double number = 0;
        const bool isTrue
            = Tree.Is(condition, Node::Word, "true") || (Study.NumberOf(condition, &number) && number != 0);
        const bool isAssigned = Tree.Is(condition, Node::Assign, "=") && !Tree.At(condition).IsInBrackets;
        if (isTrue)
            TellEndless(loop, loop);
        else if (!isAssigned && Study.IsIdle(condition) && !MayChange(loop, condition))
            TellEndless(loop, condition);
    }

    /// Whether anything that a condition asks for may change in the loop.
    bool MayChange(int loop, int condition) const
    {
        bool hasName = false;
        const bool hasOther = Study.Contains(condition, [&](int i) {
            if (Tree.Is(i, Node::Item) || Tree.Is(i, Node::This) || Tree.Is(i, Node::FunctionExpression))
                return true;
            if (!Tree.Is(i, Node::Name))
                return false;
            hasName = true;
            return MayChangeName(loop, i, Tree.Is(Tree.At(i).Parent, Node::Member));
        });
        return hasOther || !hasName;
    }

    bool MayChangeName(int loop, int name, bool hasMembers) const
    {
        const ScriptVariable &variable = Study.Bindings.At(name);
        const bool isSet = std::any_of(variable.Sets.cbegin(), variable.Sets.cend(),
            [&](int set) { return set == loop || (Tree.IsInside(set, loop) && !IsStart(set, loop)); });
        const bool calls
            = Study.Contains(loop, [this](int i) { return Tree.Is(i, Node::Call) || Tree.Is(i, Node::New); });
        if (isSet || (hasMembers && (calls || SetsMembers(loop))))
            return true;
        // What a function that is called may set.
        const bool isOutside = std::any_of(variable.Sets.cbegin(), variable.Sets.cend(),
            [&](int set) { return Tree.At(set).Function != Tree.At(loop).Function; });
        return calls && (isOutside || !variable.IsMade);
    }

    /// Whether a node stands where a `for` begins.
    bool IsStart(int node, int loop) const
    {
        return Tree.Is(loop, Node::For) && Tree.IsInside(node, Tree.Part(loop, 0));
    }

    bool SetsMembers(int loop) const
    {
        return Study.Contains(loop, [this](int i) {
            const int target = Tree.Is(i, Node::Assign) || Tree.Is(i, Node::Prefix) || Tree.Is(i, Node::Postfix)
                ? Tree.Part(i, 0)
                : -1;
            return Tree.Is(target, Node::Member) || Tree.Is(target, Node::Item);
        });
    }

    /// `for (var i in list)` gives indices; who never uses them as such takes them for the items.
    void CheckKeys(int loop)
    {
        const int head = Tree.Part(loop, 0);
        const int name = Tree.Is(head, Node::Variables) ? Tree.Part(head, 0) : head;
        const int list = Tree.Part(loop, 1);
        const bool isVariable = Tree.Is(list, Node::Name) && Study.Bindings.At(list).Sets.size() == 1;
        const int set = isVariable ? Study.Bindings.At(list).Sets.constFirst() : -1;
        const bool isArray
            = Tree.Is(list, Node::Array) || (Tree.Is(set, Node::Declarator) && Tree.Is(Tree.Part(set, 0), Node::Array));
        if (!isArray || Study.Bindings.NumberOf(name) < 0)
            return;
        const QVector<int> &reads = Study.Bindings.At(name).Reads;
        const bool isIndex = reads.isEmpty() || std::any_of(reads.cbegin(), reads.cend(), [this](int read) {
            const int outer = Tree.At(read).Parent;
            return (Tree.Is(outer, Node::Item) && Tree.Part(outer, 1) == read) || Tree.Is(outer, Node::Call);
        });
        if (!isIndex)
            Study.Tell(Code::ScriptIndex, list,
                QStringLiteral("This gives the indices of the list, as texts, and not its items"));
    }

    /// 1 and -1 for a step up and down; 0 for anything else.
    int StepOf(int step, int variable) const
    {
        const Node &node = Tree.At(step);
        const int target = Tree.Part(step, 0);
        if (!Tree.Is(target, Node::Name) || Study.Bindings.NumberOf(target) != variable)
            return 0;
        const bool isUp = node.Text == QLatin1String("++") || node.Text == QLatin1String("+=");
        const bool isDown = node.Text == QLatin1String("--") || node.Text == QLatin1String("-=");
        double amount = 1;
        if (node.What == Node::Assign && (!Study.NumberOf(Tree.Part(step, 1), &amount) || amount <= 0))
            return 0;
        return isUp ? 1 : isDown ? -1 : 0;
    }

    bool RunsAway(int loop) const
    {
        const int condition = Tree.Part(loop, 1);
        const QString operation = Tree.Is(condition, Node::Binary) ? Tree.At(condition).Text : QString();
        const int name = Tree.Part(condition, 0);
        if (!operation.startsWith(QLatin1Char('<')) && !operation.startsWith(QLatin1Char('>')))
            return false;
        if (!Tree.Is(name, Node::Name) || operation.size() > 2 || IsSetInBody(loop, Study.Bindings.NumberOf(name)))
            return false;
        const int step = StepOf(Tree.Part(loop, 2), Study.Bindings.NumberOf(name));
        return (step < 0 && operation.startsWith(QLatin1Char('<')))
            || (step > 0 && operation.startsWith(QLatin1Char('>')));
    }

    bool IsSetInBody(int loop, int variable) const
    {
        const QVector<int> &sets = Study.Bindings.All().at(variable).Sets;
        return std::any_of(sets.cbegin(), sets.cend(), [&](int set) { return Tree.IsInside(set, Tree.Part(loop, 3)); });
    }

    /// A function that calls itself before anything else could keep it from that.
    void CheckRecursion(int function)
    {
        const int body = Tree.At(function).Parts.constLast();
        for (const int statement : Tree.At(body).Parts) {
            if (!Tree.Is(statement, Node::Statement) && !Tree.Is(statement, Node::Variables))
                return;
            const int call = Tree.Is(statement, Node::Statement) ? Tree.Part(statement, 0) : -1;
            if (Tree.Is(call, Node::Call) && Study.Bindings.FunctionOf(Tree.Part(call, 0)) == function) {
                Study.Tell(Code::ScriptLoop, Tree.Part(call, 0),
                    QStringLiteral("The function calls itself in every case, and never ends"));
                return;
            }
        }
    }

    // indices

    LoopRange RangeOf(int loop) const
    {
        LoopRange range;
        const int start = Tree.Part(loop, 0);
        const int declarator = Tree.Is(start, Node::Variables) ? Tree.Part(start, 0) : -1;
        const int target = declarator >= 0 ? declarator : Tree.Is(start, Node::Assign, "=") ? Tree.Part(start, 0) : -1;
        const int first = declarator >= 0 ? Tree.Part(declarator, 0) : Tree.Part(start, 1);
        const int condition = Tree.Part(loop, 1);
        const QString operation = Tree.Is(condition, Node::Binary) ? Tree.At(condition).Text : QString();
        const int variable = target < 0 ? -1 : Study.Bindings.NumberOf(target);
        const bool isUp = operation == QLatin1String("<") || operation == QLatin1String("<=");
        const bool isPlain = isUp && variable >= 0 && Tree.Is(Tree.Part(condition, 0), Node::Name)
            && Study.Bindings.NumberOf(Tree.Part(condition, 0)) == variable && Study.NumberOf(first, &range.First)
            && StepOf(Tree.Part(loop, 2), variable) > 0 && !IsSetInBody(loop, variable);
        if (!isPlain)
            return LoopRange();
        const int end = Tree.Part(condition, 1);
        range.Variable = variable;
        range.IsLastIncluded = operation.size() == 2;
        if (Study.NumberOf(end, &range.Last) || LengthOf(end, &range.Last))
            range.Last -= range.IsLastIncluded ? 0 : 1;
        else
            range.LastOf = Study.CodeOf(end);
        return range;
    }

    /// `names.length` of a list that stands in the script.
    bool LengthOf(int node, double *length) const
    {
        const int list = Tree.Is(node, Node::Member, "length") ? Tree.Part(node, 0) : -1;
        if (!Tree.Is(list, Node::Name))
            return false;
        const ScriptVariable &variable = Study.Bindings.At(list);
        const int set = variable.Sets.size() == 1 ? variable.Sets.constFirst() : -1;
        const int value = Tree.Is(set, Node::Declarator) ? Tree.Part(set, 0) : -1;
        if (!Tree.Is(value, Node::Array) || Grows(variable))
            return false;
        *length = Tree.At(value).Parts.size();
        return true;
    }

    /// The greatest number that an index takes; false when it cannot be told. `endOf` is the code of what the count is.
    bool GreatestOf(int index, const QString &endOf, double count, double *greatest) const
    {
        if (Study.NumberOf(index, greatest))
            return true;
        const bool isSum = Tree.Is(index, Node::Binary, "+") || Tree.Is(index, Node::Binary, "-");
        double shift = 0;
        if (isSum && Study.NumberOf(Tree.Part(index, 1), &shift)
            && GreatestOf(Tree.Part(index, 0), endOf, count, greatest)) {
            *greatest += Tree.At(index).Text == QLatin1String("+") ? shift : -shift;
            return true;
        }
        if (!Tree.Is(index, Node::Name))
            return false;
        const int variable = Study.Bindings.NumberOf(index);
        for (int inner = index, outer = Tree.At(index).Parent; outer >= 0;
             inner = outer, outer = Tree.At(outer).Parent) {
            const LoopRange range = Ranges.value(outer);
            if (IsTest(outer, inner, variable))
                return false;
            if (range.Variable != variable || Tree.Part(outer, 3) != inner)
                continue;
            *greatest = range.LastOf.isNull() ? range.Last : range.IsLastIncluded ? count : count - 1;
            return range.LastOf.isNull() || range.LastOf == endOf;
        }
        return false;
    }

    /// Whether a part of a statement or expression is done only where something is true of a variable.
    bool IsTest(int outer, int part, int variable) const
    {
        const bool isJoined = Tree.Is(outer, Node::Binary, "&&") || Tree.Is(outer, Node::Binary, "||");
        const bool isChoice = Tree.Is(outer, Node::If) || Tree.Is(outer, Node::Conditional) || isJoined;
        const int test = Tree.Part(outer, 0);
        return isChoice && test != part && Study.Contains(test, [&](int i) {
            return Tree.Is(i, Node::Name) && Study.Bindings.NumberOf(i) == variable;
        });
    }

    /// `setItemValue(row, column, value)` and its like. Loops stand behind their bodies in the tree, so that calls are
    /// looked at when their loop is.
    void CheckIndices(int call)
    {
        const int function = Tree.Part(call, 0);
        const WidgetEntry *widget = Tree.Is(function, Node::Member) ? Study.WidgetOf(Tree.Part(function, 0)) : nullptr;
        const ScriptMethod *method = widget ? Study.MethodOf(function) : nullptr;
        static const QSet<QString> indexed{QStringLiteral("itemValue"), QStringLiteral("setItemValue"),
            QStringLiteral("spacingValue"), QStringLiteral("setSpacingValue"), QStringLiteral("shiftValue"),
            QStringLiteral("setShiftValue")};
        if (method && indexed.contains(Tree.At(function).Text))
            Calls.append(call);
    }

    void CheckItem(int item)
    {
        const int value = Tree.Part(item, 0);
        const WidgetEntry *widget = Tree.Is(value, Node::Member) ? Study.WidgetOf(Tree.Part(value, 0)) : nullptr;
        if (widget && widget->Has(ekItems) && Registry::FindProperty(*widget->Info, Tree.At(value).Text))
            Study.Tell(Code::ScriptIndex, value,
                QStringLiteral("\"%1\" is no list; %2.itemValue() gives an item")
                    .arg(Study.CodeOf(value), widget->Name));
        Calls.append(item);
    }

public:
    void CheckCollected()
    {
        for (const int node : qAsConst(Calls)) {
            if (Tree.Is(node, Node::Call))
                CheckCall(node);
            else
                CheckArrayItem(node);
        }
    }

private:
    void CheckCall(int call)
    {
        const int function = Tree.Part(call, 0);
        const WidgetEntry &widget = *Study.WidgetOf(Tree.Part(function, 0));
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
        if (index < 0 || !GreatestOf(index, endOf, count, &greatest))
            return;
        if (greatest < 0)
            Study.Tell(Code::ScriptIndex, index, QStringLiteral("An index of %1; they count from 0").arg(greatest));
        else if (greatest >= count)
            Study.Tell(Code::ScriptIndex, index,
                QStringLiteral("%1, and an index of %2 is beyond them; they count from 0").arg(told).arg(greatest));
    }

    /// `list[i]` up to the length of the list itself.
    void CheckArrayItem(int item)
    {
        const int list = Tree.Part(item, 0);
        const int index = Tree.Part(item, 1);
        if (!Tree.Is(list, Node::Name) || Tree.Is(Tree.At(item).Parent, Node::Assign))
            return;
        const ScriptVariable &variable = Study.Bindings.At(list);
        const int set = variable.Sets.size() == 1 ? variable.Sets.constFirst() : -1;
        const int value = Tree.Is(set, Node::Declarator) ? Tree.Part(set, 0) : -1;
        const QString length = Study.CodeOf(list) + QLatin1String(".length");
        if (Study.CodeOf(index) == length) {
            Study.Tell(Code::ScriptIndex, index,
                QStringLiteral("The last index of \"%1\" is one below its length").arg(Study.CodeOf(list)));
            return;
        }
        double greatest = 0;
        // A large number stands for the length, which an index of the list may not reach.
        constexpr double unknown = 1e9;
        const bool isKnown = Tree.Is(value, Node::Array) && !Grows(variable);
        const double count = isKnown ? Tree.At(value).Parts.size() : unknown;
        if (GreatestOf(index, length, count, &greatest) && greatest >= count)
            Study.Tell(Code::ScriptIndex, index,
                QStringLiteral("The last index of \"%1\" is one below its length").arg(Study.CodeOf(list)));
    }

    /// Whether anything is done with a list but to read its items and its length.
    bool Grows(const ScriptVariable &variable) const
    {
        return std::any_of(variable.Reads.cbegin(), variable.Reads.cend(), [this](int name) {
            const int outer = Tree.At(name).Parent;
            const bool isItem = Tree.Is(outer, Node::Item) && Tree.PlaceOf(name) == 0;
            const bool isSet = isItem && Tree.Is(Tree.At(outer).Parent, Node::Assign);
            return isSet || !(isItem || Tree.Is(outer, Node::Member, "length"));
        });
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QHash<int, LoopRange> Ranges;
    QVector<int> Calls;
};

} // namespace

void CheckScriptLoops(const ScriptStudy &study)
{
    LoopCheck check(study);
    check.Run();
    check.CheckCollected();
}

} // namespace Orbel
