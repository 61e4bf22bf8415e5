#include "scriptloops.h"

#include <algorithm>

namespace Orbel
{

ScriptLoops::ScriptLoops(const ScriptStudy &study) : Study(study), Tree(study.Tree)
{
    for (int i = 0; i < Tree.All().size(); ++i) {
        const int value = Tree.Is(i, Node::Declarator) ? Tree.Part(i, 0) : -1;
        if (Tree.Is(value, Node::Array) && Study.Bindings.At(i).Sets.size() == 1 && IsOnlyRead(Study.Bindings.At(i)))
            Lengths.insert(Study.Bindings.NumberOf(i), Tree.At(value).Parts.size());
    }
    for (int i = 0; i < Tree.All().size(); ++i) {
        if (Tree.Is(i, Node::For))
            Ranges.insert(i, RangeOf(i));
    }
}

int ScriptLoops::LengthOf(int list) const
{
    return Tree.Is(list, Node::Name) ? Lengths.value(Study.Bindings.NumberOf(list), -1) : -1;
}

int ScriptLoops::StepOf(int step, int variable) const
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

bool ScriptLoops::IsSetInBody(int loop, int variable) const
{
    const QVector<int> &sets = Study.Bindings.All().at(variable).Sets;
    return std::any_of(sets.cbegin(), sets.cend(), [&](int set) { return Tree.IsInside(set, Tree.Part(loop, 3)); });
}

/// Whether the body looks at the variable to leave the loop, or the turn.
bool ScriptLoops::IsLeftEarly(int loop, int variable) const
{
    const auto leaves = [this](int i) {
        const Node::Kind kind = Tree.At(i).What;
        return kind == Node::Break || kind == Node::Continue || kind == Node::Return || kind == Node::Throw;
    };
    return Study.Contains(Tree.Part(loop, 3),
        [&](int i) { return Tree.Is(i, Node::If) && Asks(Tree.Part(i, 0), variable) && Study.Contains(i, leaves); });
}

bool ScriptLoops::Asks(int expression, int variable) const
{
    return Study.Contains(
        expression, [&](int i) { return Tree.Is(i, Node::Name) && Study.Bindings.NumberOf(i) == variable; });
}

LoopRange ScriptLoops::RangeOf(int loop) const
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
        && StepOf(Tree.Part(loop, 2), variable) > 0 && !IsSetInBody(loop, variable) && !IsLeftEarly(loop, variable);
    if (!isPlain)
        return LoopRange();
    const int end = Tree.Part(condition, 1);
    range.Variable = variable;
    range.IsLastIncluded = operation.size() == 2;
    const int length = Tree.Is(end, Node::Member, "length") ? LengthOf(Tree.Part(end, 0)) : -1;
    if (length >= 0)
        range.Last = length;
    if (length >= 0 || Study.NumberOf(end, &range.Last))
        range.Last -= range.IsLastIncluded ? 0 : 1;
    else
        range.LastOf = Study.CodeOf(end);
    return range;
}

bool ScriptLoops::GreatestOf(int index, const QString &endOf, double count, double *greatest) const
{
    double shifts = 0;
    double shift = 0;
    while ((Tree.Is(index, Node::Binary, "+") || Tree.Is(index, Node::Binary, "-"))
        && Study.NumberOf(Tree.Part(index, 1), &shift)) {
        shifts += Tree.At(index).Text == QLatin1String("+") ? shift : -shift;
        index = Tree.Part(index, 0);
    }
    const bool isKnown = Study.NumberOf(index, greatest)
        || (Tree.Is(index, Node::Name) && GreatestOfName(index, endOf, count, greatest));
    *greatest += shifts;
    return isKnown;
}

/// Climbs to the loop that counts the variable. A test of it on the way may keep it lower.
bool ScriptLoops::GreatestOfName(int name, const QString &endOf, double count, double *greatest) const
{
    const int variable = Study.Bindings.NumberOf(name);
    for (int inner = name, outer = Tree.At(name).Parent; outer >= 0; inner = outer, outer = Tree.At(outer).Parent) {
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
bool ScriptLoops::IsTest(int outer, int part, int variable) const
{
    const bool isJoined = Tree.Is(outer, Node::Binary, "&&") || Tree.Is(outer, Node::Binary, "||");
    const bool isChoice = Tree.Is(outer, Node::If) || Tree.Is(outer, Node::Conditional) || isJoined;
    const int test = Tree.Part(outer, 0);
    return isChoice && test != part && Asks(test, variable);
}

/// Whether nothing is done with a list but to read its items and its length.
bool ScriptLoops::IsOnlyRead(const ScriptVariable &list) const
{
    return std::all_of(list.Reads.cbegin(), list.Reads.cend(), [this](int name) {
        const int outer = Tree.At(name).Parent;
        const bool isItem = Tree.Is(outer, Node::Item) && Tree.PlaceOf(name) == 0;
        const bool isSet = isItem && Tree.Is(Tree.At(outer).Parent, Node::Assign);
        return !isSet && (isItem || Tree.Is(outer, Node::Member, "length"));
    });
}

} // namespace Orbel
