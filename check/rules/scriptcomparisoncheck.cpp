// Comparisons of a script whose sides never meet, or always do.

#include "propertynames.h"
#include "scriptchoicecheck.h"
#include "scriptstudy.h"
#include "scriptvalues.h"

#include <cmath>

namespace Orbel
{

namespace
{

class ComparisonCheck
{
public:
    explicit ComparisonCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree), Values(study), Choices(study)
    {
    }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            const Node &node = Tree.At(i);
            if (node.What == Node::Switch)
                CheckSwitch(i);
            else if (node.What != Node::Binary)
                continue;
            else if (IsAny(node.Text, {"==", "!=", "===", "!=="}))
                CheckEqual(i);
            else if (IsAny(node.Text, {"&&", "||"}))
                CheckJoined(i);
            else if (IsAny(node.Text, {"<", ">", "<=", ">="}))
                CheckOrder(i);
        }
    }

private:
    ScriptKind KindOf(int node) const { return Study.KindOf(node); }
    int Left(int node) const { return Tree.Part(node, 0); }
    int Right(int node) const { return Tree.Part(node, 1); }

    void CheckEqual(int node)
    {
        const QString &text = Tree.At(node).Text;
        const bool isStrict = text.size() == 3;
        if (Tree.Is(Left(node), Node::Name, "NaN") || Tree.Is(Right(node), Node::Name, "NaN")) {
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("Nothing equals NaN, not even NaN; isNaN() tells whether it is one"));
            return;
        }
        if (Values.TellMisused(Left(node), Right(node), Code::ScriptComparison)
            || Values.TellMisused(Right(node), Left(node), Code::ScriptComparison) || TellSame(node)
            || TellNegated(node))
            return;
        if (Choices.Compare(Left(node), Right(node), isStrict) || Choices.Compare(Right(node), Left(node), isStrict))
            return;
        TellNever(node, Left(node), Right(node), isStrict);
        TellNever(node, Right(node), Left(node), isStrict);
        CheckTypeName(Left(node), Right(node));
        CheckTypeName(Right(node), Left(node));
    }

    /// `!a == b` asks whether (!a) is b.
    bool TellNegated(int node)
    {
        const int left = Left(node);
        double number = 0;
        const bool isValue = !Study.ConstantOf(Right(node)).isNull() || Study.NumberOf(Right(node), &number)
            || KindOf(Right(node)) == ScriptKind::Text;
        if (!Tree.Is(left, Node::Prefix, "!") || Tree.At(left).IsInBrackets || !isValue)
            return false;
        const QString &text = Tree.At(node).Text;
        const QString code = Study.CodeOf(node);
        Study.Tell(Code::ScriptComparison, left,
            QStringLiteral("! is about \"%1\" alone, and its truth value is compared").arg(Study.CodeOf(Left(left))),
            text.startsWith(QLatin1Char('=')) ? Mend{Study.PlaceOf(left), code,
                Study.CodeOf(Left(left)) + QLatin1String(" !") + text.mid(1) + QLatin1Char(' ')
                    + Study.CodeOf(Right(node))}
                                              : Mend());
        return true;
    }

    /// The sides of a comparison with a constant.
    bool ReadCompared(int node, const char *operation, QString *asked, QString *constant) const
    {
        double number = 0;
        const bool fits = Tree.Is(node, Node::Binary)
            && (Tree.At(node).Text == QLatin1String(operation)
                || Tree.At(node).Text == QLatin1String(operation) + QLatin1Char('='));
        if (!fits || !Study.IsIdle(node))
            return false;
        *asked = Study.CodeOf(Left(node));
        *constant = Study.NumberOf(Right(node), &number) ? QString::number(number) : Study.ConstantOf(Right(node));
        return !constant->isNull();
    }

    /// `a != 1 || a != 2` is always true, `a == 1 && a == 2` never.
    void CheckJoined(int node)
    {
        const bool isOr = Tree.At(node).Text == QLatin1String("||");
        const char *const operation = isOr ? "!=" : "==";
        QString first[2];
        QString second[2];
        const int left = Tree.Is(Left(node), Node::Binary, isOr ? "||" : "&&") ? Right(Left(node)) : Left(node);
        if (ReadCompared(left, operation, &first[0], &first[1])
            && ReadCompared(Right(node), operation, &second[0], &second[1]) && first[0] == second[0]
            && first[1] != second[1])
            Study.Tell(Code::ScriptComparison, left,
                isOr ? QStringLiteral("One of the two always differs, so that this is true for any value")
                     : QStringLiteral("\"%1\" is never both, so that this is never true").arg(first[0]));
        CheckConstantSide(node);
        if (!Tree.Is(left, Node::Name) && Study.CodeOf(left) == Study.CodeOf(Right(node)) && Study.IsIdle(left))
            Study.Tell(Code::ScriptComparison, node, QStringLiteral("Both sides ask the same"));
        CheckBounds(node, left, isOr);
    }

    /// `a >= 0 || a < 10` is always true, `a < 0 && a > 10` never.
    void CheckBounds(int node, int left, bool isOr)
    {
        double first = 0;
        double second = 0;
        const QString one = Tree.Is(left, Node::Binary) ? Tree.At(left).Text : QString();
        const QString two = Tree.Is(Right(node), Node::Binary) ? Tree.At(Right(node)).Text : QString();
        const bool areBounds = IsAny(one, {"<", ">", "<=", ">="}) && IsAny(two, {"<", ">", "<=", ">="})
            && one.at(0) != two.at(0) && Study.NumberOf(Right(left), &first)
            && Study.NumberOf(Right(Right(node)), &second)
            && Study.CodeOf(Left(left)) == Study.CodeOf(Left(Right(node)));
        const double least = one.startsWith(QLatin1Char('>')) ? first : second;
        const double most = one.startsWith(QLatin1Char('>')) ? second : first;
        if (areBounds && (isOr ? least < most : least > most))
            Study.Tell(Code::ScriptComparison, left,
                isOr ? QStringLiteral("One of the two is true for any value") : QStringLiteral("No value is both"));
    }

    /// `a == 1 || 2`: the second is no comparison.
    void CheckConstantSide(int node)
    {
        double number = 0;
        const int left = Left(node);
        const bool isCompared = Tree.Is(left, Node::Binary) && IsAny(Tree.At(left).Text, {"==", "===", "!=", "!=="});
        const bool isConstant = !Study.ConstantOf(Right(node)).isNull() || Study.NumberOf(Right(node), &number);
        if (isCompared && isConstant)
            Study.Tell(Code::ScriptCondition, Right(node),
                QStringLiteral("\"%1\" is compared with nothing here, and decides by itself")
                    .arg(Study.CodeOf(Right(node))));
    }

    void TellNever(int node, int one, int other, bool isStrict)
    {
        const ScriptKind a = KindOf(one);
        const ScriptKind b = KindOf(other);
        const QString text = Tree.Is(other, Node::QuotedText) ? Study.ConstantOf(other) : QString();
        const bool isWord = !text.isNull() && !IsNumberText(text);
        const QString operation = Tree.At(node).Text;
        double number = 0;
        const bool isOtherNumber = Study.NumberOf(other, &number) && number != 0 && number != 1;
        if (Tree.Is(one, Node::Binary) && a == ScriptKind::Number && !isStrict && HasFraction(one))
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral(
                    "Fractions are seldom equal to the last place; compare the difference with a small number"));
        else if (a == ScriptKind::Bool && isOtherNumber)
            Study.Tell(
                Code::ScriptComparison, node, QStringLiteral("A truth value never equals %1").arg(Study.CodeOf(other)));
        else if (a == ScriptKind::Bool && Tree.Is(one, Node::Member) && Tree.Is(other, Node::Member)
            && (b == ScriptKind::Text || b == ScriptKind::Nothing))
            Study.Tell(Code::ScriptComparison, node, QStringLiteral("A truth value never equals a text"));
        else if (a == ScriptKind::Bool && isWord)
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("A truth value never equals the text \"%1\"").arg(text), MendBool(other, text));
        else if ((a == ScriptKind::Number || a == ScriptKind::NumberText) && isWord)
            Study.Tell(Code::ScriptComparison, node, QStringLiteral("A number never equals the text \"%1\"").arg(text));
        else if (a == ScriptKind::Nothing && Tree.Is(one, Node::Member) && IsGivenConstant(other, b))
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("\"%1\" is not stated, and undefined when the script starts").arg(Study.CodeOf(one)));
        else if (Tree.Is(one, Node::Binary, "/") && IsWhole(Right(one)) && IsWhole(other))
            Study.Tell(
                Code::ScriptComparison, node, QStringLiteral("A division keeps its rest; Math.floor() drops it"));
        else if (isStrict && a == ScriptKind::NumberText && b == ScriptKind::Number && !Values.IsNumberBy(one))
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("\"%1\" is a text until it is set, and %2 never takes a text for a number")
                    .arg(Study.CodeOf(one), operation));
        else if (isStrict && a == ScriptKind::Bool && (b == ScriptKind::Number || b == ScriptKind::Text))
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("%1 never takes a truth value for %2")
                    .arg(operation, QLatin1String(b == ScriptKind::Number ? "a number" : "a text")));
        else if (isStrict && a == ScriptKind::Number && b == ScriptKind::Text)
            Study.Tell(
                Code::ScriptComparison, node, QStringLiteral("%1 never takes a number for a text").arg(operation));
    }

    /// Whether a computation has a number that the engine keeps only nearly; halves and quarters it keeps.
    bool HasFraction(int node) const
    {
        constexpr double exact = 1024;
        double number = 0;
        for (; Tree.Is(node, Node::Binary); node = Left(node)) {
            if (Study.NumberOf(Right(node), &number) && std::fmod(number * exact, 1) != 0)
                return true;
        }
        return Study.NumberOf(node, &number) && std::fmod(number * exact, 1) != 0;
    }

    /// What undefined never equals, and is not meant to stand for.
    bool IsGivenConstant(int node, ScriptKind kind) const
    {
        return kind == ScriptKind::Text || kind == ScriptKind::Number || Tree.Is(node, Node::Word, "false");
    }

    bool IsWhole(int node) const
    {
        double number = 0;
        return Study.NumberOf(node, &number) && number != 0 && number == double(int(number));
    }

    Mend MendBool(int text, const QString &word) const
    {
        const bool isBool = word == QLatin1String("true") || word == QLatin1String("false");
        return isBool ? Mend{Study.PlaceOf(text), Study.CodeOf(text), word} : Mend();
    }

    bool TellSame(int node)
    {
        const QString &operation = Tree.At(node).Text;
        const bool isOrder = operation.startsWith(QLatin1Char('<')) || operation.startsWith(QLatin1Char('>'));
        const bool isVariable = isOrder && Tree.Is(Left(node), Node::Name) && Tree.Is(Right(node), Node::Name);
        const bool isProperty = Tree.Is(Left(node), Node::Member) && Study.WidgetOf(Left(Left(node)));
        if ((!isProperty && !isVariable) || Study.CodeOf(Left(node)) != Study.CodeOf(Right(node)))
            return false;
        Study.Tell(Code::ScriptComparison, node,
            QStringLiteral("\"%1\" is compared with itself").arg(Study.CodeOf(Left(node))));
        return true;
    }

    void CheckTypeName(int asked, int name)
    {
        const QString text = Study.ConstantOf(name);
        if (Tree.Is(asked, Node::Prefix, "typeof") && Tree.Is(name, Node::QuotedText)
            && !IsAny(text, {"undefined", "object", "function", "number", "string", "boolean", "unknown"}))
            Study.Sink.AddMisspelt(Code::ScriptComparison, Study.PlaceOf(name) + 1,
                QStringLiteral("typeof never gives \"%1\"").arg(text), text,
                {QStringLiteral("undefined"), QStringLiteral("object"), QStringLiteral("function"),
                    QStringLiteral("number"), QStringLiteral("string"), QStringLiteral("boolean")});
    }

    void CheckOrder(int node)
    {
        if (Values.TellMisused(Left(node), Right(node), Code::ScriptComparison)
            || Values.TellMisused(Right(node), Left(node), Code::ScriptComparison) || TellSame(node))
            return;
        const bool isChain = Tree.Is(Left(node), Node::Binary) && !Tree.At(Left(node)).IsInBrackets
            && IsAny(Tree.At(Left(node)).Text, {"<", ">", "<=", ">="});
        if (isChain) {
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("The truth value of the comparison in front is compared; write && between two"));
            return;
        }
        const bool areTexts
            = KindOf(Left(node)) == ScriptKind::NumberText && KindOf(Right(node)) == ScriptKind::NumberText;
        if (areTexts && !Values.IsNumberBy(Left(node)) && !Values.IsNumberBy(Right(node)))
            Study.Tell(Code::ScriptTextOrder, node,
                QStringLiteral("\"%1\" and \"%2\" are texts until they are set, and compared letter by letter")
                    .arg(Study.CodeOf(Left(node)), Study.CodeOf(Right(node))));
        for (const int side : {Left(node), Right(node)}) {
            const QString text = Tree.Is(side, Node::QuotedText) ? Study.ConstantOf(side) : QString();
            const ScriptKind other = KindOf(side == Left(node) ? Right(node) : Left(node));
            if (!text.isNull() && !IsNumberText(text)
                && (other == ScriptKind::Number || other == ScriptKind::NumberText || other == ScriptKind::Bool))
                Study.Tell(Code::ScriptComparison, node,
                    QStringLiteral("A number is neither more nor less than the text \"%1\"").arg(text));
        }
    }

    void CheckSwitch(int node)
    {
        const int asked = Left(node);
        const ScriptKind kind = KindOf(asked);
        Values.TellMisused(asked, -1, Code::ScriptSum);
        QVector<int> values;
        QSet<QString> texts;
        for (const int row : Tree.At(node).Parts.mid(1)) {
            if (!Tree.Is(row, Node::Case))
                continue;
            values.append(Left(row));
            texts.insert(Study.ConstantOf(Left(row)));
        }
        for (const int value : qAsConst(values)) {
            // `case 1: case "1":` is meant for both kinds.
            const bool isBoth = Tree.Is(value, Node::Number) && texts.contains(Tree.At(value).Text);
            if (!Choices.Compare(asked, value, true) && !isBoth)
                TellNeverCase(kind, asked, value);
        }
    }

    void TellNeverCase(ScriptKind kind, int asked, int value)
    {
        const ScriptKind other = KindOf(value);
        const bool isText = kind == ScriptKind::NumberText && other == ScriptKind::Number && !Values.IsNumberBy(asked);
        const bool never = isText
            || (kind == ScriptKind::Bool && (other == ScriptKind::Text || other == ScriptKind::Number))
            || (kind == ScriptKind::Number && other == ScriptKind::Text);
        if (never)
            Study.Tell(Code::ScriptComparison, value,
                QStringLiteral("\"%1\" is never of the same kind as this case").arg(Study.CodeOf(asked)));
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    const ScriptValues Values;
    ScriptChoiceCheck Choices;
};

} // namespace

void CheckScriptComparisons(const ScriptStudy &study)
{
    ComparisonCheck(study).Run();
}

} // namespace Orbel
