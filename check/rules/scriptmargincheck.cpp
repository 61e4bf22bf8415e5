// Statements of a script whose margins tell something else than their order.

#include "scriptstudy.h"

namespace Orbel
{

namespace
{

class MarginCheck
{
public:
    explicit MarginCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::If))
                CheckElse(i);
            if (!Tree.Is(i, Node::Block) && !Tree.Is(i, Node::Program))
                continue;
            const QVector<int> &parts = Tree.At(i).Parts;
            for (int at = 0; at + 1 < parts.size(); ++at) {
                CheckEmptyLoop(parts.at(at), parts.at(at + 1));
                CheckDependent(parts.at(at), parts.at(at + 1));
            }
        }
    }

private:
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

    /// A loop that ends at a semicolon, above what looks like its body.
    void CheckEmptyLoop(int loop, int next)
    {
        if (!Tree.IsLoop(loop) || Tree.Is(loop, Node::Do) || !Tree.Is(Tree.At(loop).Parts.constLast(), Node::Empty))
            return;
        const QString margin = MarginOf(next);
        const QString outer = MarginOf(loop);
        if (!margin.isNull() && !outer.isNull() && margin.size() > outer.size())
            Study.Sink.Add(Code::ScriptCondition, Study.Script.PlaceOf(Tree.At(loop).End - 1),
                QStringLiteral("The loop ends at this semicolon, and what follows is done once"));
    }

    /// A statement that stands as if it depended on the condition above.
    void CheckDependent(int statement, int next)
    {
        const int dependent = DependentOf(statement);
        if (dependent < 0)
            return;
        const QString margin = MarginOf(dependent);
        const QString outer = MarginOf(statement);
        if (!margin.isNull() && !outer.isNull() && margin != outer && margin.startsWith(outer)
            && MarginOf(next) == margin)
            Study.TellAtStart(Code::ScriptCondition, next,
                QStringLiteral("This is done in every case; only the statement before depends on the condition"));
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

    const ScriptStudy &Study;
    const ScriptTree &Tree;
};

} // namespace

void CheckScriptMargins(const ScriptStudy &study)
{
    MarginCheck(study).Run();
}

} // namespace Orbel
