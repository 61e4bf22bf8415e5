#pragma once

#include "scriptscanner.h"

namespace Orbel
{

/// A part of a script: a statement, an expression, or a piece of one.
struct ScriptNode {
    enum Kind {
        // statements
        Program, ///< Statements.
        Block, ///< Statements.
        Variables, ///< Declarators.
        Declarator, ///< `Text` is the name; perhaps a value.
        FunctionStatement, ///< `Text` is the name; Parameters, and a Block.
        Empty, ///< Also stands for a part of a `for` that is left out.
        Statement, ///< An expression.
        If, ///< Condition, statement, perhaps another one.
        For, ///< Start, condition, step, statement.
        ForIn, ///< Target, object, statement.
        While, ///< Condition, statement.
        Do, ///< Statement, condition.
        Return, ///< Perhaps an expression.
        Break, ///< `Text` is the label.
        Continue, ///< `Text` is the label.
        Throw, ///< An expression.
        Try, ///< Block, perhaps Catch, perhaps a Block that is done at last.
        Catch, ///< `Text` is the name; a Block.
        Switch, ///< Expression, cases.
        Case, ///< Expression, statements.
        Default, ///< Statements.
        Label, ///< `Text` is the name; a statement.
        With, ///< Object, statement.
        // expressions
        Parameter, ///< `Text` is the name.
        Name,
        This,
        Number, ///< `Text` as it is written.
        QuotedText, ///< `Text` is what stands between the quotation marks, as it is written.
        Pattern,
        Word, ///< true, false or null.
        Array, ///< Items; Empty where one is left out.
        Object, ///< Pairs.
        Pair, ///< `Text` is the key; a value.
        FunctionExpression, ///< As FunctionStatement; the name may be empty.
        Member, ///< `Text` is the name behind the dot; the object.
        Item, ///< Object and index in brackets.
        Call, ///< Function and arguments.
        New, ///< Function and arguments.
        Prefix, ///< `Text` is the operator; an operand.
        Postfix,
        Binary, ///< `Text` is the operator, also `,`, `&&` and `||`.
        Conditional, ///< Condition and two expressions.
        Assign, ///< `Text` is the operator; target and value.
    };
    Kind What;
    QString Text;
    int Index = 0; ///< Where it begins in the code; a Member, where its name does; a Binary or Assign, its operator.
    int First = 0; ///< The lowest number of what stands inside; all from there to the node itself do.
    int Start = 0; ///< Where its code begins; that of a Binary begins with its left side.
    int End = 0; ///< Behind its last character.
    QVector<int> Parts = {}; ///< In their order in the script.
    int Parent = -1;
    int Function = -1; ///< The innermost function around it, or the program; of that itself -1.
    bool IsInBrackets = false; ///< An expression that has round brackets of its own.
};

using Node = ScriptNode;

/// A script as a tree. Parts have lower numbers than what they are parts of, the program the highest of all.
class ORBEL_CHECK_INTERNAL ScriptTree
{
public:
    /// `tokens` are those of the code.
    ScriptTree(const QString &code, const QVector<ScriptToken> &tokens);

    /// False for a script that cannot be read, or that nests deeper than scripts of forms do; then there are no nodes.
    bool IsWhole() const { return !Nodes.isEmpty(); }
    const QVector<ScriptNode> &All() const { return Nodes; }
    const ScriptNode &At(int node) const { return Nodes.at(node); }
    int Root() const { return Nodes.size() - 1; }

    bool Is(int node, ScriptNode::Kind kind) const { return node >= 0 && At(node).What == kind; }
    bool Is(int node, ScriptNode::Kind kind, const char *text) const
    {
        return Is(node, kind) && At(node).Text == QLatin1String(text);
    }
    bool IsFunction(int node) const
    {
        return Is(node, ScriptNode::FunctionStatement) || Is(node, ScriptNode::FunctionExpression);
    }
    bool IsLoop(int node) const;
    /// -1 beyond the last one.
    int Part(int node, int index) const { return node < 0 ? -1 : At(node).Parts.value(index, -1); }
    /// Which part of its parent a node is.
    int PlaceOf(int node) const { return At(At(node).Parent).Parts.indexOf(node); }
    /// Whether a node stands in another one, or is it.
    bool IsInside(int node, int outer) const { return node <= outer && node >= At(outer).First; }
    /// The code of a node, without round brackets of its own.
    QString CodeOf(int node) const { return Code.mid(At(node).Start, At(node).End - At(node).Start); }

private:
    QString Code;
    QVector<ScriptNode> Nodes;
};

} // namespace Orbel
