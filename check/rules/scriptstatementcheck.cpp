// Statements of a script that do nothing, calls whose value is none, and numbers that are read otherwise than they
// look.

#include "scriptstudy.h"

namespace Orbel
{

namespace
{

class StatementCheck
{
public:
    explicit StatementCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Statement)) {
                CheckIdle(i);
            } else if (Tree.Is(i, Node::Number)) {
                CheckOctal(i);
            } else if (Tree.Is(i, Node::Call)) {
                CheckOwnValue(i);
                CheckUsed(i);
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
        if ((node.What == Node::QuotedText && isFirst && node.Text.startsWith(QLatin1String("use "))) || isFunction
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

    void CheckOctal(int number)
    {
        const QString &text = Tree.At(number).Text;
        if (text.size() > 1 && text.startsWith(QLatin1Char('0')) && text.at(1).isDigit())
            Study.Tell(Code::ScriptOctal, number, QStringLiteral("%1 begins with 0, and counts by eights").arg(text));
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
