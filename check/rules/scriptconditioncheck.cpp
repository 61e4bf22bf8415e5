// Conditions of a script that decide nothing, or not what they seem to.

#include "scriptstudy.h"

namespace Orbel
{

namespace
{

class ConditionCheck
{
public:
    explicit ConditionCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            switch (Tree.At(i).What) {
            case Node::If:
                CheckIf(i);
                break;
            case Node::While:
                CheckTest(Tree.Part(i, 0), false);
                break;
            case Node::For:
                CheckTest(Tree.Part(i, 1), false);
                break;
            case Node::Conditional:
                CheckConditional(i);
                break;
            case Node::Prefix:
                if (Tree.At(i).Text == QLatin1String("!"))
                    CheckNegated(i);
                break;
            default:
                break;
            }
        }
    }

private:
    void CheckIf(int node)
    {
        CheckBranches(node);
        CheckTest(Tree.Part(node, 0), true);
        const int then = Tree.Part(node, 1);
        if (Tree.Is(then, Node::Empty) && Tree.At(node).Parts.size() == 2 && Study.CodeOf(then) == QLatin1String(";"))
            Study.Tell(Code::ScriptCondition, then,
                QStringLiteral("The if ends at this semicolon, and what follows is done in every case"));
        CheckRepeated(node);
    }

    void CheckConditional(int node)
    {
        const int condition = Tree.Part(node, 0);
        CheckFunctionTest(condition);
        CheckBranches(node);
        if (Tree.Is(condition, Node::Binary, "+") && !Tree.At(condition).IsInBrackets
            && Study.KindOf(condition) == ScriptKind::Text)
            Study.Tell(Code::ScriptCondition, condition,
                QStringLiteral("The whole sum is asked, and a text is true; put brackets around the question"));
    }

    /// Both ways lead to the same.
    void CheckBranches(int node)
    {
        const int yes = Tree.Part(node, 1);
        const int no = Tree.Part(node, 2);
        if (no >= 0 && Tree.At(yes).Parts.size() > 0 && Study.CodeOf(yes).simplified() == Study.CodeOf(no).simplified())
            Study.TellAtStart(
                Code::ScriptCondition, no, QStringLiteral("The same is done whether the condition holds or not"));
    }

    /// Brackets of its own tell that an assignment is meant.
    void CheckTest(int condition, bool always)
    {
        CheckFunctionTest(condition);
        const int assignment = FindAssignment(condition);
        if (assignment < 0 || Tree.At(assignment).IsInBrackets)
            return;
        const int value = Tree.Part(assignment, 1);
        const bool isConstant = Tree.Is(value, Node::Number) || Tree.Is(value, Node::QuotedText)
            || Tree.Is(value, Node::Word) || !Study.ConstantOf(value).isNull();
        if (always || isConstant)
            Study.Tell(Code::ScriptAssignment, assignment, QStringLiteral("This = assigns; == compares"),
                {Study.PlaceOf(assignment), QStringLiteral("="), QStringLiteral("==")});
    }

    /// The assignment that a condition is, or that stands behind && or || in it.
    int FindAssignment(int condition) const
    {
        if (Tree.Is(condition, Node::Assign, "="))
            return condition;
        const bool isJoined = Tree.Is(condition, Node::Binary, "&&") || Tree.Is(condition, Node::Binary, "||");
        return isJoined ? FindAssignment(Tree.Part(condition, 1)) : -1;
    }

    /// A function is always true; one that may be missing is asked for only by who calls it then.
    void CheckFunctionTest(int condition)
    {
        CheckFoundTest(condition);
        const int operand = Tree.Is(condition, Node::Prefix, "!") ? Tree.Part(condition, 0) : condition;
        const int function = Tree.Is(operand, Node::Name) ? Study.Bindings.FunctionOf(operand) : -1;
        const bool isOwn = Tree.Is(function, Node::FunctionStatement);
        const bool isAsked = Tree.Is(operand, Node::Member) && Study.MethodOf(operand) && !Study.PropertyOf(operand);
        const QString code = Study.CodeOf(qMax(0, operand));
        if (operand >= 0 && CheckControlTest(operand, Tree.At(condition).Parent))
            return;
        if (operand < 0 || (!isOwn && !isAsked) || IsCalledIn(Tree.At(condition).Parent, code))
            return;
        Study.Tell(Code::ScriptCondition, operand,
            QStringLiteral("\"%1\" is a function, which is always true until it is called").arg(code));
    }

    /// A place in a text is 0 where it begins with what is looked for, and -1 where it is not there.
    void CheckFoundTest(int condition)
    {
        const int call = Tree.Is(condition, Node::Prefix, "!") ? Tree.Part(condition, 0) : condition;
        const int function = Tree.Is(call, Node::Call) ? Tree.Part(call, 0) : -1;
        const bool isSearch = Tree.Is(function, Node::Member, "indexOf")
            || Tree.Is(function, Node::Member, "lastIndexOf") || Tree.Is(function, Node::Member, "search");
        if (isSearch && !Study.MakesMember(Tree.At(function).Text))
            Study.Tell(Code::ScriptCondition, function,
                QStringLiteral("\"%1\" gives -1 where nothing is found, which is true, and 0 at the beginning")
                    .arg(Tree.At(function).Text));
    }

    /// A control is there or it is not: who asks for that uses it then.
    bool CheckControlTest(int operand, int statement)
    {
        const WidgetEntry *widget = Study.WidgetOf(operand);
        const QString code = Study.CodeOf(operand);
        const bool isUsed = widget && Study.Contains(statement, [&](int i) {
            return Tree.Is(i, Node::Member) && Study.CodeOf(Tree.Part(i, 0)) == code;
        });
        if (!widget || isUsed)
            return false;
        const QLatin1String value = widget->Info->delegate->valueProperty;
        Study.Tell(Code::ScriptCondition, operand,
            QStringLiteral("\"%1\" is the control itself, which is always true").arg(code),
            value.isEmpty() ? Mend() : Mend{Study.PlaceOf(operand), code, code + QLatin1Char('.') + value});
        return true;
    }

    /// `!f` where f is a function, but not as the test of a condition.
    void CheckNegated(int node)
    {
        const int outer = Tree.At(node).Parent;
        const bool isTest = Tree.Is(outer, Node::If) || Tree.Is(outer, Node::While) || Tree.Is(outer, Node::For)
            || Tree.Is(outer, Node::Conditional) || Tree.Is(outer, Node::Binary);
        const int operand = Tree.Part(node, 0);
        const bool isFunction = (Tree.Is(operand, Node::Name) && Study.Bindings.FunctionOf(operand) >= 0)
            || (Study.MethodOf(operand) && !Study.PropertyOf(operand));
        if (!isTest && isFunction)
            Study.Tell(Code::ScriptCondition, operand,
                QStringLiteral("\"%1\" is a function, which is always true until it is called")
                    .arg(Study.CodeOf(operand)));
    }

    bool IsCalledIn(int node, const QString &code) const
    {
        return Study.Contains(
            node, [&](int i) { return Tree.Is(i, Node::Call) && Study.CodeOf(Tree.Part(i, 0)) == code; });
    }

    /// The same condition again in a chain of else-ifs.
    void CheckRepeated(int node)
    {
        const int condition = Tree.Part(node, 0);
        if (!Study.IsIdle(condition))
            return;
        const QString code = Study.CodeOf(condition);
        for (int inner = node, i = 0; i < 50; ++i) {
            const int outer = Tree.At(inner).Parent;
            if (!Tree.Is(outer, Node::If) || Tree.Part(outer, 2) != inner)
                return;
            if (Study.CodeOf(Tree.Part(outer, 0)) == code || IsCovered(Tree.Part(outer, 0), condition)) {
                Study.TellAtStart(Code::ScriptUnreachable, condition,
                    QStringLiteral("A condition before is true for all of these, and this branch never runs"));
                return;
            }
            inner = outer;
        }
    }

    struct Bound {
        QString Asked;
        bool IsAbove = false;
        bool IsIncluded = false;
        double Number = 0;
    };

    /// `a > 10`
    bool ReadBound(int condition, Bound *bound) const
    {
        const QString text = Tree.Is(condition, Node::Binary) ? Tree.At(condition).Text : QString();
        bound->IsAbove = text.startsWith(QLatin1Char('>'));
        bound->IsIncluded = text.endsWith(QLatin1Char('='));
        bound->Asked = Study.CodeOf(qMax(0, Tree.Part(condition, 0)));
        return (text == QLatin1String(">") || text == QLatin1String("<") || text == QLatin1String(">=")
                   || text == QLatin1String("<="))
            && Study.NumberOf(Tree.Part(condition, 1), &bound->Number);
    }

    /// Whether a condition is true only where an earlier one is, too.
    bool IsCovered(int earlier, int condition) const
    {
        Bound first;
        Bound second;
        if (!ReadBound(earlier, &first) || !ReadBound(condition, &second) || first.Asked != second.Asked
            || first.IsAbove != second.IsAbove)
            return false;
        const double further = first.IsAbove ? second.Number - first.Number : first.Number - second.Number;
        return further > 0 || (further == 0 && (first.IsIncluded || !second.IsIncluded));
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
};

} // namespace

void CheckScriptConditions(const ScriptStudy &study)
{
    ConditionCheck(study).Run();
}

} // namespace Orbel
