// Loops of a script that cannot end, or do not go through what they seem to.

#include "scriptloops.h"
#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

class LoopCheck
{
public:
    explicit LoopCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree), Loops(study) { }

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
            else if (Tree.Is(i, Node::FunctionStatement))
                CheckRecursion(i);
        }
    }

private:
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

    bool RunsAway(int loop) const
    {
        const int condition = Tree.Part(loop, 1);
        const QString operation = Tree.Is(condition, Node::Binary) ? Tree.At(condition).Text : QString();
        const int name = Tree.Part(condition, 0);
        if (!operation.startsWith(QLatin1Char('<')) && !operation.startsWith(QLatin1Char('>')))
            return false;
        if (!Tree.Is(name, Node::Name) || operation.size() > 2
            || Loops.IsSetInBody(loop, Study.Bindings.NumberOf(name)))
            return false;
        const int step = Loops.StepOf(Tree.Part(loop, 2), Study.Bindings.NumberOf(name));
        return (step < 0 && operation.startsWith(QLatin1Char('<')))
            || (step > 0 && operation.startsWith(QLatin1Char('>')));
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

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    const ScriptLoops Loops;
};

} // namespace

void CheckScriptLoops(const ScriptStudy &study)
{
    LoopCheck(study).Run();
}

} // namespace Orbel
