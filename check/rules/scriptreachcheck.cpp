// Parts of a script that never run, or whose effect is replaced at once.

#include "scriptstudy.h"

namespace Orbel
{

namespace
{

class ReachCheck
{
public:
    explicit ReachCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Switch)) {
                CheckSwitch(i);
            } else if (Tree.Is(i, Node::Object)) {
                CheckKeys(i);
            } else if (Tree.Is(i, Node::Block) || Tree.Is(i, Node::Program)) {
                CheckUnreachable(i);
                CheckOverwritten(i);
            }
        }
    }

private:
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

    const ScriptStudy &Study;
    const ScriptTree &Tree;
};

} // namespace

void CheckScriptReach(const ScriptStudy &study)
{
    ReachCheck(study).Run();
}

} // namespace Orbel
