#include "scriptbindings.h"

namespace Orbel
{

ScriptBindings::ScriptBindings(const ScriptTree &tree) : Tree(tree)
{
    Declare();
    Resolve();
    if (Tree.IsWhole())
        FindStarted();
}

int ScriptBindings::Variable(int function, const QString &name, bool isMade)
{
    const QPair<int, QString> key(function, name);
    const auto found = Numbers.constFind(key);
    const int number = found == Numbers.constEnd() ? Variables.size() : *found;
    if (number == Variables.size()) {
        Numbers.insert(key, number);
        Variables.append(ScriptVariable{name, function});
    }
    Variables[number].IsMade = Variables.at(number).IsMade || isMade;
    return number;
}

void ScriptBindings::AddSet(int variable, int node)
{
    Variables[variable].Sets.append(node);
}

void ScriptBindings::Declare()
{
    for (int i = 0; i < Tree.All().size(); ++i) {
        const Node &node = Tree.At(i);
        switch (node.What) {
        case Node::Declarator:
            Means.insert(i, Variable(node.Function, node.Text, true));
            if (!node.Parts.isEmpty())
                AddSet(Means.value(i), i);
            break;
        case Node::Parameter:
            Means.insert(i, Variable(node.Function, node.Text, true));
            Variables[Means.value(i)].IsParameter = true;
            break;
        case Node::FunctionStatement:
            Means.insert(i, Variable(node.Function, node.Text, true));
            AddSet(Means.value(i), i);
            break;
        case Node::FunctionExpression:
            if (!node.Text.isEmpty())
                AddSet(Variable(i, node.Text, true), i);
            break;
        case Node::Catch:
            AddSet(Variable(node.Function, node.Text, true), i);
            break;
        default:
            break;
        }
    }
}

int ScriptBindings::Lookup(int node, const QString &name)
{
    for (int function = Tree.At(node).Function; function >= 0; function = Tree.At(function).Function) {
        const int found = Numbers.value({function, name}, -1);
        if (found >= 0)
            return found;
    }
    return Variable(Tree.Root(), name, false);
}

void ScriptBindings::Resolve()
{
    for (int i = 0; i < Tree.All().size(); ++i) {
        if (!Tree.Is(i, Node::Name))
            continue;
        const int variable = Lookup(i, Tree.At(i).Text);
        Means.insert(i, variable);
        const int parent = Tree.At(i).Parent;
        const Node &outer = Tree.At(parent);
        const bool isFirst = outer.Parts.constFirst() == i;
        const bool isAssigned = outer.What == Node::Assign && isFirst;
        const bool isStepped = (outer.What == Node::Prefix || outer.What == Node::Postfix)
            && (outer.Text == QLatin1String("++") || outer.Text == QLatin1String("--"));
        if (isAssigned || isStepped || (outer.What == Node::ForIn && isFirst))
            AddSet(variable, parent);
        const bool isOnlySet = (isAssigned && outer.Text == QLatin1String("="))
            || (outer.What == Node::ForIn && isFirst) || (isStepped && Tree.Is(outer.Parent, Node::Statement));
        if (!isOnlySet)
            Variables[variable].Reads.append(i);
    }
    for (int i = 0; i < Tree.All().size(); ++i) {
        // `for (var key in list)`
        const int head = Tree.Is(i, Node::ForIn) ? Tree.Part(i, 0) : -1;
        if (Tree.Is(head, Node::Variables))
            AddSet(Means.value(Tree.Part(head, 0)), i);
    }
}

const ScriptVariable *ScriptBindings::FindGlobal(const QString &name) const
{
    const int number = Numbers.value({Tree.Root(), name}, -1);
    return number < 0 || !Variables.at(number).IsMade ? nullptr : &Variables.at(number);
}

int ScriptBindings::ValueOf(int set) const
{
    const Node &node = Tree.At(set);
    if (Tree.IsFunction(set))
        return set;
    if (node.What == Node::Declarator)
        return Tree.Part(set, 0);
    return node.What == Node::Assign && node.Text == QLatin1String("=") ? Tree.Part(set, 1) : -1;
}

int ScriptBindings::FunctionOf(int node) const
{
    if (Tree.IsFunction(node))
        return node;
    if (!Tree.Is(node, Node::Name))
        return -1;
    const ScriptVariable &variable = At(node);
    const int value = variable.Sets.size() == 1 ? ValueOf(variable.Sets.constFirst()) : -1;
    return Tree.IsFunction(value) ? value : -1;
}

bool ScriptBindings::IsConnection(int call) const
{
    const int function = Tree.Is(call, Node::Call) ? Tree.Part(call, 0) : -1;
    return Tree.Is(function, Node::Member, "connect") || Tree.Is(function, Node::Member, "disconnect");
}

/// Functions that are called, or handed over to somebody who may call them, from what runs at the start.
void ScriptBindings::FindStarted()
{
    QHash<int, QVector<int>> mentions; // of other functions, by the function in which they stand
    for (int i = 0; i < Tree.All().size(); ++i) {
        const int function = FunctionOf(i);
        const int parent = Tree.At(i).Parent;
        if (function < 0 || parent < 0)
            continue;
        const bool isCalled = (Tree.Is(parent, Node::Call) || Tree.Is(parent, Node::New)) && Tree.Part(parent, 0) == i;
        if (isCalled)
            Calls[function].append(parent);
        const bool isArgument = Tree.Is(parent, Node::Call) && !isCalled && !IsConnection(parent);
        const bool isMember = Tree.Is(parent, Node::Member); // call, apply, bind
        const bool isKept
            = Tree.Is(parent, Node::Array) || Tree.Is(parent, Node::Pair) || Tree.Is(parent, Node::Return);
        const bool isOwnName = Tree.IsFunction(i) && !Tree.Is(Tree.Part(parent, 0), Node::Member);
        const bool isGiven = (Tree.Is(parent, Node::Assign) && Tree.Part(parent, 1) == i && !isOwnName)
            || (Tree.Is(parent, Node::Declarator) && !isOwnName) || Tree.Is(parent, Node::Conditional)
            || Tree.Is(parent, Node::Binary);
        if (isArgument || isMember || isKept || isGiven)
            PassedOn.insert(function);
        if (isCalled || isArgument || isMember || isKept)
            mentions[Tree.At(i).Function].append(function);
    }
    QVector<int> fresh{Tree.Root()};
    while (!fresh.isEmpty()) {
        const int function = fresh.takeLast();
        if (AtStart.contains(function))
            continue;
        AtStart.insert(function);
        fresh += mentions.value(function);
    }
}

} // namespace Orbel
