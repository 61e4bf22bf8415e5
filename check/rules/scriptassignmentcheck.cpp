// Assignments of a script that change nothing, or something else than they look like.

#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

class AssignmentCheck
{
public:
    explicit AssignmentCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (!Tree.Is(i, Node::Assign))
                continue;
            CheckSign(i);
            CheckNothing(i);
            CheckLength(i);
            CheckGiven(i);
            CheckLost(i);
        }
    }

private:
    /// `x =+ 1`
    void CheckSign(int assignment)
    {
        const int value = Tree.Part(assignment, 1);
        const Node &sign = Tree.At(value);
        const QString &code = Study.Script.Code();
        const int index = Tree.At(assignment).Index;
        const bool isStuck = sign.What == Node::Prefix && sign.Index == index + 1
            && (sign.Text == QLatin1String("+") || sign.Text == QLatin1String("-"))
            && Tree.At(assignment).Text == QLatin1String("=") && index + 2 < code.size()
            && code.at(index + 2).isSpace();
        if (isStuck)
            Study.Tell(Code::ScriptAssignment, assignment,
                QStringLiteral("This assigns what follows; %1= adds to what was there").arg(sign.Text),
                {Study.PlaceOf(assignment), QLatin1Char('=') + sign.Text, sign.Text + QLatin1Char('=')});
    }

    /// `a = a`, lengths and letters that cannot be set.
    void CheckNothing(int assignment)
    {
        const int target = Tree.Part(assignment, 0);
        const int value = Tree.Part(assignment, 1);
        const bool isSame = Tree.Is(assignment, Node::Assign, "=") && Tree.Is(target, Node::Name)
            && Tree.Is(value, Node::Name) && Tree.At(target).Text == Tree.At(value).Text;
        const int object
            = Tree.Is(target, Node::Member, "length") || Tree.Is(target, Node::Item) ? Tree.Part(target, 0) : -1;
        const bool isFixed = object >= 0
            && (Study.KindOf(object) == ScriptKind::Text
                || (Tree.Is(target, Node::Member) && Study.Bindings.FunctionOf(object) >= 0));
        if (isSame || isFixed)
            Study.Tell(Code::ScriptIdle, assignment, QStringLiteral("This assignment changes nothing"));
    }

    /// `list = list.push(1)`
    void CheckLength(int assignment)
    {
        const int target = Tree.Part(assignment, 0);
        const int value = Tree.Part(assignment, 1);
        const int method = Tree.Is(value, Node::Call) ? Tree.Part(value, 0) : -1;
        if (Tree.Is(assignment, Node::Assign, "=")
            && (Tree.Is(method, Node::Member, "push") || Tree.Is(method, Node::Member, "unshift"))
            && Tree.Is(target, Node::Name) && Study.CodeOf(Tree.Part(method, 0)) == Tree.At(target).Text)
            Study.Tell(Code::ScriptArgument, method,
                QStringLiteral("\"%1\" gives the new length, and not the array").arg(Tree.At(method).Text));
    }

    /// `a.setEnabled(value = 1)`
    void CheckGiven(int assignment)
    {
        const int call = Tree.At(assignment).Parent;
        const int value = Tree.Part(assignment, 1);
        const bool isConstant
            = Tree.Is(value, Node::Number) || Tree.Is(value, Node::Word) || !Study.ConstantOf(value).isNull();
        if (Tree.Is(call, Node::Call) && Tree.Part(call, 0) != assignment && isConstant
            && !Tree.At(assignment).IsInBrackets && Tree.At(assignment).Text == QLatin1String("="))
            Study.Tell(Code::ScriptAssignment, assignment, QStringLiteral("This = assigns; == compares"),
                {Study.PlaceOf(assignment), QStringLiteral("="), QStringLiteral("==")});
    }

    /// A parameter that is set, and which nobody reads then.
    void CheckLost(int assignment)
    {
        const int target = Tree.Part(assignment, 0);
        if (!Tree.Is(target, Node::Name) || !Study.Bindings.At(target).IsParameter
            || !Tree.Is(Tree.At(assignment).Parent, Node::Statement))
            return;
        const ScriptVariable &variable = Study.Bindings.At(target);
        bool isLooped = false;
        for (int i = assignment; i != variable.Function && i >= 0; i = Tree.At(i).Parent)
            isLooped = isLooped || Tree.IsLoop(i) || (Tree.IsFunction(i) && i != variable.Function);
        const bool isRead = std::any_of(variable.Reads.cbegin(), variable.Reads.cend(),
            [&](int read) { return read > assignment || Tree.At(read).Function != variable.Function; });
        if (!isRead && !isLooped && !Study.ReadsArguments(variable.Function))
            Study.Tell(Code::ScriptIdle, assignment,
                QStringLiteral("Nobody reads \"%1\" after this; a parameter is a value of its own").arg(variable.Name));
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
};

} // namespace

void CheckScriptAssignments(const ScriptStudy &study)
{
    AssignmentCheck(study).Run();
}

} // namespace Orbel
