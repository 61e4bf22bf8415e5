// Sums and other computations of a script with what is no number, and methods of texts for numbers.

#include "scriptstudy.h"
#include "scriptvalues.h"

#include <algorithm>

namespace Orbel
{

namespace
{

/// How many terms of a sum are looked at.
constexpr int MostTerms = 100;

class SumCheck
{
public:
    explicit SumCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree), Values(study) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            const Node &node = Tree.At(i);
            if (node.What == Node::Assign && node.Text == QLatin1String("+="))
                CheckAppended(i);
            else if (node.What == Node::Member)
                CheckMethod(i);
            else if (node.What != Node::Binary)
                continue;
            else if (node.Text == QLatin1String("+"))
                CheckSum(i);
            else if (IsAny(node.Text, {"^", "&", "|"}))
                CheckBits(i);
            else if (IsAny(node.Text, {"-", "*", "/", "%"}))
                CheckArithmetic(i);
        }
    }

private:
    ScriptKind KindOf(int node) const { return Study.KindOf(node); }
    int Left(int node) const { return Tree.Part(node, 0); }
    int Right(int node) const { return Tree.Part(node, 1); }

    /// `sum += gain.value`
    void CheckAppended(int node)
    {
        const bool isOwnText = KindOf(Left(node)) == ScriptKind::NumberText
            && (KindOf(Right(node)) == ScriptKind::Number || KindOf(Right(node)) == ScriptKind::NumberText);
        if ((isOwnText && !Values.IsNumberBy(Left(node)))
            || (Tree.Is(Right(node), Node::Number) && StartsAsNumberText(Left(node)))) {
            TellTextSum(Left(node));
            return;
        }
        const bool isText = KindOf(Right(node)) == ScriptKind::NumberText && !Values.IsNumberBy(Right(node));
        if (isText && (KindOf(Left(node)) == ScriptKind::Number || KindOf(Left(node)) == ScriptKind::NumberText))
            TellTextSum(Right(node));
        else if (isText && Tree.Is(Left(node), Node::Name) && StartsAsNumber(Study.Bindings.At(Left(node))))
            TellTextSum(Right(node));
    }

    /// A variable that begins as a quoted number, and is never set to anything else.
    bool StartsAsNumberText(int name) const
    {
        if (!Tree.Is(name, Node::Name))
            return false;
        const QVector<int> &sets = Study.Bindings.At(name).Sets;
        const int value = Tree.Is(sets.value(0, -1), Node::Declarator) ? Left(sets.constFirst()) : -1;
        const bool isQuoted = Tree.Is(value, Node::QuotedText) && !Tree.At(value).Text.isEmpty();
        return isQuoted && IsNumberText(Tree.At(value).Text)
            && std::all_of(
                sets.cbegin() + 1, sets.cend(), [this](int set) { return Tree.Is(set, Node::Assign, "+="); });
    }

    bool StartsAsNumber(const ScriptVariable &variable) const
    {
        const int set = variable.Sets.value(0, -1);
        return Tree.Is(set, Node::Declarator) && Tree.Is(Left(set), Node::Number);
    }

    void TellTextSum(int node)
    {
        Study.Tell(Code::ScriptTextSum, node,
            QStringLiteral("\"%1\" is a text until it is set, and + puts texts together").arg(Study.CodeOf(node)));
    }

    void CheckSum(int node)
    {
        if (Values.TellMisused(Left(node), Right(node), Code::ScriptSum)
            || Values.TellMisused(Right(node), Left(node), Code::ScriptSum))
            return;
        CheckTextNumber(node);
        CheckUndefined(node);
        const bool isPart
            = KindOf(Left(node)) == ScriptKind::NumberText || KindOf(Right(node)) == ScriptKind::NumberText;
        if (TellAppended(node) || !isPart || IsAmongTexts(node))
            return;
        for (const int side : {Left(node), Right(node)}) {
            const ScriptKind other = KindOf(side == Left(node) ? Right(node) : Left(node));
            const bool isSum
                = other == ScriptKind::Number || other == ScriptKind::NumberText || other == ScriptKind::Any;
            if (KindOf(side) == ScriptKind::NumberText && isSum && !Values.IsNumberBy(side)) {
                TellTextSum(side);
                return;
            }
        }
    }

    /// Marks of bits, where others are meant.
    void CheckBits(int node)
    {
        double number = 0;
        // Who writes bits writes them in hexadecimal.
        const bool isPower = Tree.At(node).Text == QLatin1String("^") && Study.NumberOf(Left(node), &number)
            && Study.NumberOf(Right(node), &number)
            && !Study.CodeOf(node).contains(QLatin1Char('x'), Qt::CaseInsensitive);
        if (isPower)
            Study.Tell(Code::ScriptSum, node, QStringLiteral("^ joins bits; Math.pow() gives a power"));
        const int outer = Tree.At(node).Parent;
        const bool isTest
            = (Tree.Is(outer, Node::If) || Tree.Is(outer, Node::While) || Tree.Is(outer, Node::Conditional))
            && Tree.PlaceOf(node) == 0 && Tree.At(node).Text != QLatin1String("^");
        const bool isMixed = (KindOf(Left(node)) == ScriptKind::Bool) != (KindOf(Right(node)) == ScriptKind::Bool);
        if (isTest && isMixed)
            Study.Tell(Code::ScriptCondition, node,
                QStringLiteral("%1 joins bits; %1%1 joins conditions").arg(Tree.At(node).Text));
    }

    /// Methods of texts for a number, and of numbers for a text.
    void CheckMethod(int member)
    {
        const QString &name = Tree.At(member).Text;
        const ScriptKind kind = KindOf(Left(member));
        const bool isCall = Tree.Is(Tree.At(member).Parent, Node::Call) && Tree.PlaceOf(member) == 0;
        const bool isOfText = IsAny(name,
            {"toUpperCase", "toLowerCase", "substring", "substr", "charAt", "split", "replace", "indexOf", "match",
                "concat", "trim"});
        const bool isOfNumber = IsAny(name, {"toFixed", "toPrecision", "toExponential"});
        const bool isNumber = kind == ScriptKind::Number || kind == ScriptKind::Bool;
        const bool isText
            = kind == ScriptKind::Text || (kind == ScriptKind::NumberText && !Values.IsNumberBy(Left(member)));
        if (isCall && !Study.MakesMember(name) && ((isOfText && isNumber) || (isOfNumber && isText)))
            Study.Tell(Code::ScriptNoFunction, member,
                QStringLiteral("%1 has no \"%2\"")
                    .arg(
                        QLatin1String(isNumber ? "A number" : "A text, as a stated number is until it is set,"), name));
        const int list = Tree.Is(Left(member), Node::Name) && isCall ? Left(member) : -1;
        const int set
            = list >= 0 && Study.Bindings.At(list).Sets.size() == 1 ? Study.Bindings.At(list).Sets.constFirst() : -1;
        const int array = Tree.Is(set, Node::Declarator) ? Left(set) : -1;
        if (name == QLatin1String("sort") && Tree.Is(array, Node::Array)
            && Tree.At(Tree.At(member).Parent).Parts.size() == 1 && Tree.Is(Left(array), Node::Number))
            Study.Tell(Code::ScriptTextOrder, member,
                QStringLiteral("Without a function sort() takes numbers for texts: 10 comes before 9"));
    }

    /// A text of the definition that is a number, plus a number.
    void CheckTextNumber(int node)
    {
        const int method = Tree.Is(Left(node), Node::Call) ? Left(Left(node)) : -1;
        if (Tree.Is(method, Node::Member, "toFixed") && KindOf(Right(node)) == ScriptKind::Number
            && !IsAmongOtherTexts(node)) {
            Study.Tell(Code::ScriptTextSum, node, QStringLiteral("toFixed() gives a text, and + puts texts together"));
            return;
        }
        const PropertyEntry *stated = Tree.Is(Left(node), Node::Member) ? Study.PropertyOf(Left(node)) : nullptr;
        if (stated && KindOf(Left(node)) == ScriptKind::Text && Tree.Is(Right(node), Node::Number)
            && !stated->Text.isEmpty() && IsNumberText(stated->Text) && !IsAmongOtherTexts(node))
            TellTextSum(Left(node));
    }

    bool IsAmongOtherTexts(int node) const
    {
        const int outer = Tree.At(node).Parent;
        return Tree.Is(outer, Node::Binary, "+") && !Tree.At(node).IsInBrackets;
    }

    void CheckUndefined(int node)
    {
        for (const int side : {Left(node), Right(node)}) {
            if (KindOf(side) == ScriptKind::Nothing && Tree.Is(side, Node::Member))
                Study.Tell(Code::ScriptSum, side,
                    QStringLiteral("\"%1\" is not stated, and undefined when the script starts")
                        .arg(Study.CodeOf(side)));
        }
    }

    /// `"Channel " + i + 1`: nobody appends a number to a text that he could write into it.
    bool TellAppended(int node)
    {
        const int front = Left(node);
        const bool isChain = Tree.Is(front, Node::Binary, "+") && !Tree.At(front).IsInBrackets
            && Tree.Is(Right(node), Node::Number) && KindOf(front) == ScriptKind::Text
            && (KindOf(Right(front)) == ScriptKind::Any || KindOf(Right(front)) == ScriptKind::Number
                || KindOf(Right(front)) == ScriptKind::NumberText)
            && !Tree.Is(Right(front), Node::Number) && !Tree.At(Right(front)).IsInBrackets;
        if (isChain)
            Study.Tell(Code::ScriptSum, node,
                QStringLiteral("The number is put behind the text; put brackets around the sum"));
        return isChain;
    }

    /// Whether a sum is part of a longer one with a text in it, which it is not parted from by brackets.
    bool IsAmongTexts(int node) const
    {
        for (int i = 0; i < MostTerms && !Tree.At(node).IsInBrackets; ++i) {
            if (!Tree.Is(Tree.At(node).Parent, Node::Binary, "+"))
                break;
            node = Tree.At(node).Parent;
        }
        const int outer = Tree.At(node).Parent;
        if (Tree.Is(outer, Node::Assign, "+="))
            return true;
        // A chain leans to the left. What is longer than any that a person writes is not looked into.
        int i = node;
        for (int length = 0; length < MostTerms; ++length, i = Left(i)) {
            if (!Tree.Is(i, Node::Binary, "+") || (i != node && Tree.At(i).IsInBrackets))
                return false;
            if (KindOf(Left(i)) == ScriptKind::Text || KindOf(Right(i)) == ScriptKind::Text)
                return true;
        }
        return true;
    }

    void CheckArithmetic(int node)
    {
        for (const int side : {Left(node), Right(node)}) {
            const int other = side == Left(node) ? Right(node) : Left(node);
            if (!Values.Misused(side).isEmpty() && Values.TellMisused(side, other, Code::ScriptSum))
                return;
            const bool isWords = Tree.Is(side, Node::Binary, "+") && KindOf(side) == ScriptKind::Text && HasWord(side);
            const QString text = Tree.Is(side, Node::QuotedText) ? Study.ConstantOf(side) : QString();
            if (isWords || (!text.isNull() && !IsNumberText(text))) {
                Study.Tell(
                    Code::ScriptSum, node, QStringLiteral("%1 makes no number of a text").arg(Tree.At(node).Text));
                return;
            }
        }
    }

    /// Whether a chain of sums has a text that is no number.
    bool HasWord(int node) const
    {
        for (int i = node; Tree.Is(i, Node::Binary, "+"); i = Left(i)) {
            for (const int side : {Left(i), Right(i)}) {
                if (Tree.Is(side, Node::QuotedText) && !IsNumberText(Tree.At(side).Text))
                    return true;
            }
        }
        return false;
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    const ScriptValues Values;
};

} // namespace

void CheckScriptSums(const ScriptStudy &study)
{
    SumCheck(study).Run();
}

} // namespace Orbel
