// Statements of a script that do nothing, never run, or do something else than they look like.

#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

namespace
{

using Node = ScriptNode;

class StatementCheck
{
public:
    explicit StatementCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            switch (Tree.At(i).What) {
            case Node::Statement:
                CheckIdle(i);
                break;
            case Node::If:
                CheckIf(i);
                break;
            case Node::While:
                CheckTest(Tree.Part(i, 0), false);
                break;
            case Node::For:
                CheckTest(Tree.Part(i, 1), false);
                break;
            case Node::Prefix:
                if (Tree.At(i).Text == QLatin1String("!"))
                    CheckNegated(i);
                break;
            case Node::Conditional:
                CheckFunctionTest(Tree.Part(i, 0));
                CheckBranches(i);
                if (Tree.Is(Tree.Part(i, 0), Node::Binary, "+") && !Tree.At(Tree.Part(i, 0)).IsInBrackets
                    && Study.KindOf(Tree.Part(i, 0)) == ScriptKind::Text)
                    Study.Tell(Code::ScriptCondition, Tree.Part(i, 0),
                        QStringLiteral("The whole sum is asked, and a text is true; put brackets around the question"));
                break;
            case Node::Switch:
                CheckSwitch(i);
                break;
            case Node::Object:
                CheckKeys(i);
                break;
            case Node::Call:
                CheckOwnValue(i);
                CheckUsed(i);
                break;
            case Node::Number:
                if (Tree.At(i).Text.size() > 1 && Tree.At(i).Text.startsWith(QLatin1Char('0'))
                    && Tree.At(i).Text.at(1).isDigit())
                    Study.Tell(Code::ScriptOctal, i,
                        QStringLiteral("%1 begins with 0, and counts by eights").arg(Tree.At(i).Text));
                break;
            case Node::Assign:
                CheckSign(i);
                CheckNothing(i);
                CheckGiven(i);
                CheckLost(i);
                break;
            case Node::Block:
            case Node::Program:
                CheckUnreachable(i);
                CheckMargins(i);
                CheckOverwritten(i);
                break;
            default:
                break;
            }
        }
    }

private:
    void CheckIdle(int statement)
    {
        const int expression = Tree.Part(statement, 0);
        const Node &node = Tree.At(expression);
        const bool isFunction = (Study.MethodOf(expression) && !Study.PropertyOf(expression))
            || (node.What == Node::Name && Study.Bindings.FunctionOf(expression) >= 0)
            || node.What == Node::FunctionExpression;
        if (CheckDropped(expression))
            return;
        // A text may be a directive, a last statement the value of the script.
        const bool isFirst = Tree.PlaceOf(statement) == 0;
        if ((node.What == Node::Quoted && isFirst && node.Text.startsWith(QLatin1String("use "))) || isFunction
            || !Study.IsIdle(expression) || IsPlain(expression))
            return;
        const bool compares
            = node.What == Node::Binary && (node.Text == QLatin1String("==") || node.Text == QLatin1String("==="));
        Study.Tell(Code::ScriptIdle, expression,
            compares ? QStringLiteral("This compares and does nothing; = assigns")
                     : QStringLiteral("This statement has no effect"),
            compares ? Mend{Study.PlaceOf(expression), node.Text, QStringLiteral("=")} : Mend());
    }

    /// Methods of texts give a new text, and change nothing.
    bool CheckDropped(int expression)
    {
        const int method = Tree.Is(expression, Node::Call) ? Tree.Part(expression, 0) : -1;
        static const QSet<QString> pure{QStringLiteral("replace"), QStringLiteral("toUpperCase"),
            QStringLiteral("toLowerCase"), QStringLiteral("substring"), QStringLiteral("substr"),
            QStringLiteral("trim"), QStringLiteral("charAt"), QStringLiteral("toFixed"), QStringLiteral("concat"),
            QStringLiteral("split")};
        // An object of the script's own may do anything by such a name.
        const bool hasFunction
            = method >= 0 && Study.Contains(expression, [this](int i) { return Tree.IsFunction(i); });
        if (!Tree.Is(method, Node::Member) || !pure.contains(Tree.At(method).Text) || hasFunction
            || Study.MakesMember(Tree.At(method).Text) || Study.ClassOf(Tree.Part(method, 0))
            || Study.KindOf(Tree.Part(method, 0)) == ScriptKind::Object)
            return false;
        Study.Tell(Code::ScriptIdle, method,
            QStringLiteral("\"%1\" gives a new text, which nobody takes").arg(Tree.At(method).Text));
        return true;
    }

    /// What somebody may leave standing on purpose: a constant, or a name of the program's own at its end.
    bool IsPlain(int expression) const
    {
        const Node::Kind kind = Tree.At(expression).What;
        const bool isLast = Tree.At(Tree.Root()).Parts.constLast() == Tree.At(expression).Parent;
        return kind == Node::Number || kind == Node::Word || kind == Node::Object
            || (isLast && kind == Node::Name && !Study.ClassOf(expression));
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

    /// An else that stands under another if than the one that it belongs to.
    void CheckElse(int node)
    {
        const int no = Tree.Part(node, 2);
        const QString &code = Study.Script.Code();
        const int word = no < 0 ? -1 : code.lastIndexOf(QLatin1String("else"), Tree.At(no).Start - 1);
        if (word < 0 || Tree.Is(Tree.At(node).Parent, Node::Block) || !Tree.Is(Tree.At(node).Parent, Node::If)
            || Tree.PlaceOf(node) != 1)
            return;
        const int line = code.lastIndexOf(QLatin1Char('\n'), word) + 1;
        const QString margin = code.mid(line, word - line);
        if (margin.trimmed().isEmpty() && margin == MarginOf(Tree.At(node).Parent) && margin != MarginOf(node))
            Study.Sink.Add(Code::ScriptCondition, Study.Script.PlaceOf(word),
                QStringLiteral("This else belongs to the if inside, and not to the one that it stands under"));
    }

    /// `a = a`, lengths and letters that cannot be set, push() for the array.
    void CheckNothing(int assignment)
    {
        const int target = Tree.Part(assignment, 0);
        const int value = Tree.Part(assignment, 1);
        const bool isPlain = Tree.At(assignment).Text == QLatin1String("=");
        const bool isSame = isPlain && Tree.Is(target, Node::Name) && Tree.Is(value, Node::Name)
            && Tree.At(target).Text == Tree.At(value).Text;
        const int object
            = Tree.Is(target, Node::Member, "length") || Tree.Is(target, Node::Item) ? Tree.Part(target, 0) : -1;
        const bool isFixed = object >= 0
            && (Study.KindOf(object) == ScriptKind::Text
                || (Tree.Is(target, Node::Member) && Study.Bindings.FunctionOf(object) >= 0));
        if (isSame || isFixed)
            Study.Tell(Code::ScriptIdle, assignment, QStringLiteral("This assignment changes nothing"));
        const int method = Tree.Is(value, Node::Call) ? Tree.Part(value, 0) : -1;
        if (isPlain && (Tree.Is(method, Node::Member, "push") || Tree.Is(method, Node::Member, "unshift"))
            && Tree.Is(target, Node::Name) && Study.CodeOf(Tree.Part(method, 0)) == Tree.At(target).Text)
            Study.Tell(Code::ScriptArgument, method,
                QStringLiteral("\"%1\" gives the new length, and not the array").arg(Tree.At(method).Text));
    }

    /// What gives nothing, where a value is wanted.
    void CheckUsed(int call)
    {
        const int function = Tree.Part(call, 0);
        const ScriptMethod *method = Study.MethodOf(function);
        const int outer = Tree.At(call).Parent;
        const bool isWanted = Tree.Is(outer, Node::Declarator)
            || (Tree.Is(outer, Node::Assign) && Tree.PlaceOf(call) == 1)
            || (Tree.Is(outer, Node::Call) && Tree.PlaceOf(call) > 0 && !Study.Bindings.IsConnection(outer))
            || Tree.Is(outer, Node::Binary, "+") || Tree.Is(outer, Node::Binary, "==");
        if (method && isWanted && !method->IsSignal && KindOfType(method->Result) == ScriptKind::Nothing)
            Study.Tell(
                Code::ScriptArgument, function, QStringLiteral("\"%1\" gives no value").arg(Tree.At(function).Text));
    }

    void CheckIf(int node)
    {
        CheckBranches(node);
        CheckElse(node);
        CheckTest(Tree.Part(node, 0), true);
        const int then = Tree.Part(node, 1);
        if (Tree.Is(then, Node::Empty) && Tree.At(node).Parts.size() == 2 && Study.CodeOf(then) == QLatin1String(";"))
            Study.Tell(Code::ScriptCondition, then,
                QStringLiteral("The if ends at this semicolon, and what follows is done in every case"));
        CheckRepeated(node);
    }

    /// Brackets of its own tell that an assignment is meant.
    void CheckTest(int condition, bool always)
    {
        CheckFunctionTest(condition);
        const int assignment = FindAssignment(condition);
        if (assignment < 0 || Tree.At(assignment).IsInBrackets)
            return;
        const int value = Tree.Part(assignment, 1);
        const bool isConstant = Tree.Is(value, Node::Number) || Tree.Is(value, Node::Quoted)
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

    void CheckSwitch(int node)
    {
        QSet<QString> seen;
        for (int i = 1; i < Tree.At(node).Parts.size(); ++i) {
            const int row = Tree.Part(node, i);
            const int value = Tree.Is(row, Node::Case) ? Tree.Part(row, 0) : -1;
            if (Tree.Is(value, Node::Binary, "||") || Tree.Is(value, Node::Binary, ","))
                Study.Tell(Code::ScriptCondition, value,
                    QStringLiteral("A case is one value; write a case of its own for each"));
            const QString constant = value < 0 ? QString() : Study.ConstantOf(value);
            // The text "1" is another value than the number 1.
            const QString code = value < 0 ? QString()
                : constant.isNull()        ? Study.CodeOf(value)
                                           : QLatin1Char('"') + constant;
            if (value >= 0 && seen.contains(code))
                Study.Tell(Code::ScriptUnreachable, value, QStringLiteral("An earlier case takes this value already"));
            seen.insert(code);
            CheckFall(node, i);
        }
    }

    /// A case that goes on into the next, which sets the same anew.
    void CheckFall(int node, int number)
    {
        const int row = Tree.Part(node, number);
        const int next = Tree.Part(node, number + 1);
        const int last = Tree.At(row).Parts.isEmpty() ? -1 : Tree.At(row).Parts.constLast();
        const int first = next < 0 ? -1 : Tree.Part(next, Tree.Is(next, Node::Case) ? 1 : 0);
        const QString target = TargetOf(last);
        if (!target.isEmpty() && target == TargetOf(first) && !AsksFor(first, target))
            Study.Tell(Code::ScriptUnreachable, row,
                QStringLiteral("This case goes on into the next one, which sets \"%1\" anew; a break is missing")
                    .arg(target));
    }

    /// Whether what a statement sets depends on what was there: `a = a + 1`.
    bool AsksFor(int statement, const QString &target) const
    {
        const QString name = target.section(QLatin1Char('.'), 0, 0);
        return Study.Contains(Tree.Part(Tree.Part(statement, 0), 1),
            [&](int i) { return Tree.Is(i, Node::Call) || (Tree.Is(i, Node::Name) && Tree.At(i).Text == name); });
    }

    /// What a statement sets: `a = 1` and `a.setValue(1)`.
    QString TargetOf(int statement) const
    {
        const int expression = Tree.Is(statement, Node::Statement) ? Tree.Part(statement, 0) : -1;
        if (Tree.Is(expression, Node::Assign, "="))
            return Study.CodeOf(Tree.Part(expression, 0));
        const int function = Tree.Is(expression, Node::Call) ? Tree.Part(expression, 0) : -1;
        const bool isSetter = Tree.Is(function, Node::Member) && Tree.At(function).Text.startsWith(QLatin1String("set"))
            && Tree.At(expression).Parts.size() == 2;
        return isSetter ? Study.CodeOf(function) : QString();
    }

    bool SetsConstant(int statement) const
    {
        const int expression = Tree.Part(statement, 0);
        const int value = Tree.Part(expression, 1);
        double number = 0;
        return Study.NumberOf(value, &number) || !Study.ConstantOf(qMax(0, value)).isNull();
    }

    /// Two constants for one thing, one right behind the other.
    void CheckOverwritten(int block)
    {
        const QVector<int> &parts = Tree.At(block).Parts;
        for (int i = 0; i + 1 < parts.size(); ++i) {
            const QString target = TargetOf(parts.at(i));
            const int setter = Tree.Part(Tree.Part(parts.at(i), 0), 0);
            const WidgetEntry *widget = Tree.Is(setter, Node::Member) ? Study.WidgetOf(Tree.Part(setter, 0)) : nullptr;
            // What does not show may tell each of its values, and an object of the script's own anything.
            const bool isHeard = Tree.Is(Tree.Part(parts.at(i), 0), Node::Call) && (!widget || !widget->Has(ekShown));
            if (!target.isEmpty() && !isHeard && target == TargetOf(parts.at(i + 1)) && SetsConstant(parts.at(i))
                && SetsConstant(parts.at(i + 1)))
                Study.TellAtStart(Code::ScriptUnreachable, parts.at(i + 1),
                    QStringLiteral("The statement before gives \"%1\" another value, for nothing").arg(target));
        }
    }

    void CheckKeys(int object)
    {
        QSet<QString> keys;
        for (const int pair : Tree.At(object).Parts) {
            const QString &key = Tree.At(pair).Text;
            if (keys.contains(key) && !Tree.Is(Tree.Part(pair, 0), Node::FunctionExpression))
                Study.Tell(Code::ScriptUnreachable, pair,
                    QStringLiteral("The key \"%1\" stands twice, and the later one counts").arg(key));
            keys.insert(key);
        }
    }

    /// `a.setValue(a.value)`
    void CheckOwnValue(int call)
    {
        const int function = Tree.Part(call, 0);
        const int argument = Tree.Part(call, 1);
        const bool isSame = Tree.Is(function, Node::Member) && Tree.Is(argument, Node::Member)
            && Tree.At(call).Parts.size() == 2 && Study.WidgetOf(Tree.Part(function, 0))
            && Study.WidgetOf(Tree.Part(function, 0)) == Study.WidgetOf(Tree.Part(argument, 0))
            && Tree.At(function).Text == SetterOf(Tree.At(argument).Text);
        if (isSame)
            Study.Tell(
                Code::ScriptIdle, function, QStringLiteral("\"%1\" is set to what it is").arg(Study.CodeOf(argument)));
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

    void CheckUnreachable(int block)
    {
        const QVector<int> &parts = Tree.At(block).Parts;
        for (int i = 0; i + 1 < parts.size(); ++i) {
            const Node::Kind kind = Tree.At(parts.at(i)).What;
            const Node::Kind next = Tree.At(parts.at(i + 1)).What;
            const bool ends
                = kind == Node::Return || kind == Node::Throw || kind == Node::Break || kind == Node::Continue;
            // A break behind a return is a habit.
            if (!ends || next == Node::FunctionStatement || next == Node::Empty || next == Node::Break)
                continue;
            Study.TellAtStart(Code::ScriptUnreachable, parts.at(i + 1), QStringLiteral("Nothing from here on runs"));
            return;
        }
    }

    /// What stands in front of a node in its line, when that is blank; null otherwise.
    QString MarginOf(int node) const
    {
        const QString &code = Study.Script.Code();
        const int start = Tree.At(node).Start;
        const int line = code.lastIndexOf(QLatin1Char('\n'), start - 1) + 1;
        const QString margin = start == 0 ? QString() : code.mid(line, start - line);
        return margin.trimmed().isEmpty() ? margin + QLatin1String("") : QString();
    }

    /// The one statement that depends on a condition or a loop without braces; -1 for others.
    int DependentOf(int statement) const
    {
        const QVector<int> &parts = Tree.At(statement).Parts;
        const bool depends = Tree.Is(statement, Node::If) || Tree.Is(statement, Node::For)
            || Tree.Is(statement, Node::ForIn) || Tree.Is(statement, Node::While);
        const int last = depends ? parts.constLast() : -1;
        return last < 0 || Tree.Is(last, Node::Block) || Tree.Is(last, Node::If) || Tree.Is(last, Node::Empty) ? -1
                                                                                                               : last;
    }

    /// A statement that stands as if it depended on the condition above.
    void CheckMargins(int block)
    {
        const QVector<int> &parts = Tree.At(block).Parts;
        for (int i = 0; i + 1 < parts.size(); ++i) {
            const bool isEmpty = Tree.IsLoop(parts.at(i)) && !Tree.Is(parts.at(i), Node::Do)
                && Tree.Is(Tree.At(parts.at(i)).Parts.constLast(), Node::Empty);
            if (!isEmpty)
                continue;
            const QString margin = MarginOf(parts.at(i + 1));
            const QString outer = MarginOf(parts.at(i));
            if (!margin.isNull() && !outer.isNull() && margin.size() > outer.size())
                Study.Sink.Add(Code::ScriptCondition, Study.Script.PlaceOf(Tree.At(parts.at(i)).End - 1),
                    QStringLiteral("The loop ends at this semicolon, and what follows is done once"));
        }
        for (int i = 0; i + 1 < parts.size(); ++i) {
            const int dependent = DependentOf(parts.at(i));
            if (dependent < 0)
                continue;
            const QString margin = MarginOf(dependent);
            const QString outer = MarginOf(parts.at(i));
            if (!margin.isNull() && !outer.isNull() && margin != outer && margin.startsWith(outer)
                && MarginOf(parts.at(i + 1)) == margin)
                Study.TellAtStart(Code::ScriptCondition, parts.at(i + 1),
                    QStringLiteral("This is done in every case; only the statement before depends on the condition"));
        }
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
};

} // namespace

void CheckScriptStatements(const ScriptStudy &study)
{
    StatementCheck(study).Run();
}

} // namespace Orbel
