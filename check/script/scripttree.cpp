#include "scripttree.h"

#include "scriptbuiltins.h"

namespace Orbel
{

namespace
{

/// Brackets and statements inside each other; the readers of a tree may go as deep.
constexpr int MostDepth = 150;

struct Operator {
    const char *text;
    int rank; ///< The higher, the closer it binds; 0 assigns.
};

/// Longer ones before their beginnings.
constexpr Operator Operators[] = {{">>>=", 0}, {"===", 6}, {"!==", 6}, {">>>", 8}, {"<<=", 0}, {">>=", 0}, {"&&", 2},
    {"||", 1}, {"==", 6}, {"!=", 6}, {"<=", 7}, {">=", 7}, {"++", -1}, {"--", -1}, {"+=", 0}, {"-=", 0}, {"*=", 0},
    {"/=", 0}, {"%=", 0}, {"&=", 0}, {"|=", 0}, {"^=", 0}, {"<<", 8}, {">>", 8}, {"<", 7}, {">", 7}, {"+", 9}, {"-", 9},
    {"*", 10}, {"/", 10}, {"%", 10}, {"&", 5}, {"^", 4}, {"|", 3}, {"=", 0}, {"!", -1}, {"~", -1}};

/// A token as the grammar has it.
struct Word {
    ScriptToken::Kind What;
    QString Text;
    int Index;
    int End;
    bool BeginsLine;
};

/// The operator that stands in the code at an index; empty for any other mark.
QLatin1String OperatorAt(const QString &code, int index)
{
    for (const Operator &known : Operators) {
        const bool mayBe = code.at(index) == QLatin1Char(*known.text);
        if (mayBe && code.midRef(index, int(qstrlen(known.text))) == QLatin1String(known.text))
            return QLatin1String(known.text);
    }
    return QLatin1String();
}

/// Joins marks that stand side by side to operators.
QVector<Word> WordsOf(const QString &code, const QVector<ScriptToken> &tokens)
{
    QVector<Word> words;
    words.reserve(tokens.size() + 1);
    int end = 0;
    for (int i = 0; i < tokens.size(); ++i) {
        const ScriptToken &token = tokens.at(i);
        Word word{token.What, token.Text, token.Index, token.End,
            code.midRef(end, token.Index - end).contains(QLatin1Char('\n'))};
        const QLatin1String text = token.What == ScriptToken::Mark ? OperatorAt(code, token.Index) : QLatin1String();
        if (!text.isEmpty()) {
            word.Text = text;
            word.End = token.Index + text.size();
            i += text.size() - 1;
        }
        end = word.End;
        words.append(word);
    }
    words.append({ScriptToken::Mark, QString(), code.size(), code.size(), true});
    return words;
}

/// Reads by descent. What it cannot read makes it fail as a whole.
class Reader
{
public:
    Reader(const QString &code, const QVector<ScriptToken> &tokens) : Code(code), Words(WordsOf(code, tokens)) { }

    QVector<Node> Run()
    {
        QVector<int> statements;
        while (!Failed && At + 1 < Words.size())
            statements.append(ReadStatement());
        Add(Node::Program, QString(), 0, statements);
        return Failed ? QVector<Node>() : Nodes;
    }

private:
    /// Counts how deep the reading is.
    class Level
    {
    public:
        explicit Level(Reader &reader) : Owner(reader)
        {
            if (++Owner.Depth > MostDepth)
                Owner.Failed = true;
        }
        ~Level() { --Owner.Depth; }
        Q_DISABLE_COPY(Level)

    private:
        Reader &Owner;
    };

    const Word &Here(int ahead = 0) const { return Words.at(qMin(At + ahead, Words.size() - 1)); }
    bool IsMark(const char *text, int ahead = 0) const
    {
        return Here(ahead).What == ScriptToken::Mark && Here(ahead).Text == QLatin1String(text);
    }
    bool IsName(int ahead = 0) const { return Here(ahead).What == ScriptToken::Name; }
    bool IsWord(const char *text) const { return IsName() && Here().Text == QLatin1String(text); }

    bool TakeMark(const char *text)
    {
        if (Failed || !IsMark(text))
            return false;
        ++At;
        return true;
    }
    bool TakeWord(const char *text)
    {
        if (Failed || !IsWord(text))
            return false;
        ++At;
        return true;
    }
    void Expect(const char *mark)
    {
        if (!TakeMark(mark))
            Failed = true;
    }
    QString TakeName()
    {
        if (!IsName() || Failed) {
            Failed = true;
            return QString();
        }
        return Words.at(At++).Text;
    }
    /// What ends a statement, written or not.
    void EndStatement()
    {
        if (!TakeMark(";") && !IsMark("}") && !IsMark("") && !Here().BeginsLine)
            Failed = true;
    }

    int Add(Node::Kind kind, const QString &text, int index, const QVector<int> &parts = {})
    {
        const int end = At > 0 ? Words.at(At - 1).End : 0;
        for (const int part : parts)
            Nodes[part].Parent = Nodes.size();
        const int first = parts.isEmpty() ? Nodes.size() : Nodes.at(parts.constFirst()).First;
        const int start = parts.isEmpty() ? index : qMin(index, Fronts.at(parts.constFirst()));
        Nodes.append({kind, text, index, first, start, end, parts});
        Fronts.append(start);
        return Nodes.size() - 1;
    }

    int ReadStatement()
    {
        const Level level(*this);
        const int start = Here().Index;
        if (Failed)
            return AddFailed();
        if (IsMark("{"))
            return ReadBlock();
        if (TakeMark(";"))
            return Add(Node::Empty, QString(), start);
        if (IsName() && ReservedWords().contains(Here().Text)) {
            const int statement = ReadWorded(start);
            if (statement >= 0)
                return statement;
        }
        if (IsName() && IsMark(":", 1) && !ReservedWords().contains(Here().Text)) {
            const QString name = TakeName();
            ++At;
            return Add(Node::Label, name, start, {ReadStatement()});
        }
        const int expression = ReadExpression();
        EndStatement();
        return Add(Node::Statement, QString(), start, {expression});
    }

    int AddFailed()
    {
        Failed = true;
        return Add(Node::Empty, QString(), Here().Index);
    }

    int ReadBlock()
    {
        const int start = Here().Index;
        Expect("{");
        QVector<int> statements;
        while (!Failed && !IsMark("}"))
            statements.append(IsMark("") ? AddFailed() : ReadStatement());
        Expect("}");
        return Add(Node::Block, QString(), start, statements);
    }

    /// A statement that begins with a word of the language; -1 when it is an expression.
    int ReadWorded(int start)
    {
        if (IsWord("var") || IsWord("const"))
            return ReadVariables(true);
        if (IsWord("function"))
            return ReadFunction(Node::FunctionStatement);
        if (TakeWord("if"))
            return ReadIf(start);
        if (TakeWord("for"))
            return ReadFor(start);
        if (TakeWord("while")) {
            const int condition = ReadCondition();
            const int body = ReadStatement();
            return Add(Node::While, QString(), start, {condition, body});
        }
        if (TakeWord("do"))
            return ReadDo(start);
        if (TakeWord("return"))
            return ReadWithValue(Node::Return, start);
        if (TakeWord("throw"))
            return ReadWithValue(Node::Throw, start);
        if (TakeWord("break"))
            return ReadJump(Node::Break, start);
        if (TakeWord("continue"))
            return ReadJump(Node::Continue, start);
        if (TakeWord("try"))
            return ReadTry(start);
        if (TakeWord("switch"))
            return ReadSwitch(start);
        if (TakeWord("with")) {
            const int object = ReadCondition();
            const int body = ReadStatement();
            return Add(Node::With, QString(), start, {object, body});
        }
        if (TakeWord("debugger")) {
            EndStatement();
            return Add(Node::Empty, QString(), start);
        }
        return -1;
    }

    int ReadCondition()
    {
        Expect("(");
        const int expression = ReadExpression();
        Expect(")");
        return expression;
    }

    int ReadIf(int start)
    {
        QVector<int> parts{ReadCondition()};
        parts.append(ReadStatement());
        if (TakeWord("else"))
            parts.append(ReadStatement());
        return Add(Node::If, QString(), start, parts);
    }

    int ReadOptional(const char *end)
    {
        return IsMark(end) ? Add(Node::Empty, QString(), Here().Index) : ReadExpression();
    }

    int ReadFor(int start)
    {
        Expect("(");
        NoIn = true;
        const int first = IsWord("var") ? ReadVariables(false) : ReadOptional(";");
        NoIn = false;
        if (TakeWord("in")) {
            const int object = ReadExpression();
            Expect(")");
            const int body = ReadStatement();
            return Add(Node::ForIn, QString(), start, {first, object, body});
        }
        Expect(";");
        const int condition = ReadOptional(";");
        Expect(";");
        const int step = ReadOptional(")");
        Expect(")");
        const int body = ReadStatement();
        return Add(Node::For, QString(), start, {first, condition, step, body});
    }

    int ReadDo(int start)
    {
        const int body = ReadStatement();
        if (!TakeWord("while"))
            Failed = true;
        const int condition = ReadCondition();
        TakeMark(";");
        return Add(Node::Do, QString(), start, {body, condition});
    }

    int ReadWithValue(Node::Kind kind, int start)
    {
        QVector<int> parts;
        if (!IsMark(";") && !IsMark("}") && !IsMark("") && !Here().BeginsLine)
            parts.append(ReadExpression());
        EndStatement();
        return Add(kind, QString(), start, parts);
    }

    int ReadJump(Node::Kind kind, int start)
    {
        const QString label = IsName() && !Here().BeginsLine ? TakeName() : QString();
        EndStatement();
        return Add(kind, label, start);
    }

    int ReadTry(int start)
    {
        QVector<int> parts{ReadBlock()};
        const int catches = Here().Index;
        if (TakeWord("catch")) {
            Expect("(");
            const QString name = TakeName();
            Expect(")");
            const int block = ReadBlock();
            parts.append(Add(Node::Catch, name, catches, {block}));
        }
        if (TakeWord("finally"))
            parts.append(ReadBlock());
        return Add(Node::Try, QString(), start, parts);
    }

    int ReadSwitch(int start)
    {
        QVector<int> parts{ReadCondition()};
        Expect("{");
        while (!Failed && !TakeMark("}")) {
            const int index = Here().Index;
            QVector<int> inside;
            const bool isDefault = TakeWord("default");
            if (!isDefault) {
                if (!TakeWord("case"))
                    Failed = true;
                inside.append(ReadExpression());
            }
            Expect(":");
            while (!Failed && !IsMark("}") && !IsWord("case") && !IsWord("default"))
                inside.append(IsMark("") ? AddFailed() : ReadStatement());
            parts.append(Add(isDefault ? Node::Default : Node::Case, QString(), index, inside));
        }
        return Add(Node::Switch, QString(), start, parts);
    }

    int ReadVariables(bool isStatement)
    {
        const int start = Words.at(At++).Index;
        QVector<int> declarators;
        do {
            const int index = Here().Index;
            const QString name = TakeName();
            QVector<int> parts;
            if (TakeMark("="))
                parts.append(ReadAssignment());
            declarators.append(Add(Node::Declarator, name, index, parts));
        } while (TakeMark(","));
        if (isStatement)
            EndStatement();
        return Add(Node::Variables, QString(), start, declarators);
    }

    /// From the word `function` on.
    int ReadFunction(Node::Kind kind)
    {
        const int start = Words.at(At++).Index;
        const QString name = IsName() ? TakeName() : QString();
        return ReadParameters(kind, name, start);
    }

    int ReadParameters(Node::Kind kind, const QString &name, int start)
    {
        Expect("(");
        QVector<int> parts;
        while (!Failed && !IsMark(")")) {
            const int index = Here().Index;
            const QString parameter = TakeName();
            parts.append(Add(Node::Parameter, parameter, index));
            if (!IsMark(")"))
                Expect(",");
        }
        Expect(")");
        const bool wasNoIn = NoIn;
        NoIn = false;
        parts.append(ReadBlock());
        NoIn = wasNoIn;
        return Add(kind, name, start, parts);
    }

    int ReadExpression()
    {
        int left = ReadAssignment();
        while (!Failed && IsMark(",")) {
            const int index = Words.at(At++).Index;
            const int right = ReadAssignment();
            left = Add(Node::Binary, QStringLiteral(","), index, {left, right});
        }
        return left;
    }

    static const Operator *FindOperator(const Word &word)
    {
        for (const Operator &known : Operators) {
            if (word.What == ScriptToken::Mark && word.Text == QLatin1String(known.text))
                return &known;
        }
        return nullptr;
    }

    int ReadAssignment()
    {
        const Level level(*this);
        if (Failed)
            return AddFailed();
        const int target = ReadConditional();
        const Operator *known = FindOperator(Here());
        if (!known || known->rank != 0)
            return target;
        const Word word = Words.at(At++);
        const int value = ReadAssignment();
        return Add(Node::Assign, word.Text, word.Index, {target, value});
    }

    int ReadConditional()
    {
        const int condition = ReadBinary(1);
        if (!IsMark("?"))
            return condition;
        const int index = Words.at(At++).Index;
        const bool wasNoIn = NoIn;
        NoIn = false;
        const int yes = ReadAssignment();
        NoIn = wasNoIn;
        Expect(":");
        const int no = ReadAssignment();
        return Add(Node::Conditional, QString(), index, {condition, yes, no});
    }

    int RankHere() const
    {
        if (const Operator *known = FindOperator(Here()))
            return known->rank > 0 ? known->rank : -1;
        return (IsWord("in") && !NoIn) || IsWord("instanceof") ? 7 : -1;
    }

    int ReadBinary(int least)
    {
        int left = ReadPrefix();
        while (!Failed && RankHere() >= least) {
            const int rank = RankHere();
            const Word word = Words.at(At++);
            const int right = ReadBinary(rank + 1);
            left = Add(Node::Binary, word.Text, word.Index, {left, right});
        }
        return left;
    }

    int ReadPrefix()
    {
        const Level level(*this);
        if (Failed)
            return AddFailed();
        const bool isWord = IsWord("typeof") || IsWord("void") || IsWord("delete");
        const bool isMark = IsMark("!") || IsMark("~") || IsMark("+") || IsMark("-") || IsMark("++") || IsMark("--");
        if (!isWord && !isMark)
            return ReadPostfix();
        const Word word = Words.at(At++);
        const int operand = ReadPrefix();
        return Add(Node::Prefix, word.Text, word.Index, {operand});
    }

    int ReadPostfix()
    {
        const int operand = ReadCalls(ReadPrimary());
        if ((!IsMark("++") && !IsMark("--")) || Here().BeginsLine || Failed)
            return operand;
        const Word word = Words.at(At++);
        return Add(Node::Postfix, word.Text, word.Index, {operand});
    }

    int ReadCalls(int object, bool isNew = false)
    {
        while (!Failed) {
            const int index = Here().Index;
            if (TakeMark(".")) {
                const int place = Here().Index;
                const QString name = TakeName();
                object = Add(Node::Member, name, place, {object});
            } else if (TakeMark("[")) {
                const int inside = ReadBracketed("]");
                object = Add(Node::Item, QString(), index, {object, inside});
            } else if (!isNew && IsMark("(")) {
                object = Add(Node::Call, QString(), index, ReadArguments(object));
            } else {
                break;
            }
        }
        return object;
    }

    int ReadBracketed(const char *end)
    {
        const bool wasNoIn = NoIn;
        NoIn = false;
        const int expression = ReadExpression();
        NoIn = wasNoIn;
        Expect(end);
        return expression;
    }

    /// The function in front, then the arguments.
    QVector<int> ReadArguments(int function)
    {
        const bool wasNoIn = NoIn;
        NoIn = false;
        Expect("(");
        QVector<int> parts{function};
        while (!Failed && !IsMark(")")) {
            parts.append(ReadAssignment());
            if (!IsMark(")"))
                Expect(",");
        }
        Expect(")");
        NoIn = wasNoIn;
        return parts;
    }

    int ReadPrimary()
    {
        const Level level(*this);
        if (Failed)
            return AddFailed();
        const Word word = Here();
        if (IsWord("function"))
            return ReadFunction(Node::FunctionExpression);
        if (TakeWord("new")) {
            const int function = ReadCalls(ReadPrimary(), true);
            return Add(
                Node::New, QString(), word.Index, IsMark("(") ? ReadArguments(function) : QVector<int>{function});
        }
        if (TakeMark("(")) {
            const int expression = ReadBracketed(")");
            Nodes[expression].IsInBrackets = true;
            Fronts[expression] = word.Index;
            return expression;
        }
        if (TakeMark("["))
            return ReadArray(word.Index);
        if (TakeMark("{"))
            return ReadObject(word.Index);
        if (IsMark(".") && Here(1).What == ScriptToken::Literal && Code.at(Here(1).Index).isDigit()) {
            ++At;
            return AddNumber(word.Index, Words.at(At++));
        }
        if (word.What == ScriptToken::Mark)
            return AddFailed();
        ++At;
        if (word.What == ScriptToken::Literal)
            return AddLiteral(word);
        if (word.Text == QLatin1String("this"))
            return Add(Node::This, QString(), word.Index);
        if (word.Text == QLatin1String("true") || word.Text == QLatin1String("false")
            || word.Text == QLatin1String("null"))
            return Add(Node::Word, word.Text, word.Index);
        return ReservedWords().contains(word.Text) ? AddFailed() : Add(Node::Name, word.Text, word.Index);
    }

    int AddLiteral(const Word &word)
    {
        const QChar first = Code.at(word.Index);
        if (first == QLatin1Char('/'))
            return Add(Node::Pattern, QString(), word.Index);
        if (first.isDigit())
            return AddNumber(word.Index, word);
        return Add(Node::QuotedText, word.Text, word.Index);
    }

    /// An exponent's sign is no mark of its own.
    int AddNumber(int index, const Word &digits)
    {
        const QStringRef text = Code.midRef(digits.Index, digits.End - digits.Index);
        if (text.endsWith(QLatin1Char('e'), Qt::CaseInsensitive) && !text.startsWith(QLatin1String("0x"))
            && (IsMark("-") || IsMark("+")) && Here().Index == digits.End)
            At += 2;
        return Add(Node::Number, Code.mid(index, Words.at(At - 1).End - index), index);
    }

    int ReadArray(int index)
    {
        const bool wasNoIn = NoIn;
        NoIn = false;
        QVector<int> items;
        while (!Failed && !IsMark("]")) {
            items.append(IsMark(",") ? Add(Node::Empty, QString(), Here().Index) : ReadAssignment());
            if (!IsMark("]"))
                Expect(",");
        }
        Expect("]");
        NoIn = wasNoIn;
        return Add(Node::Array, QString(), index, items);
    }

    int ReadObject(int index)
    {
        const bool wasNoIn = NoIn;
        NoIn = false;
        QVector<int> pairs;
        while (!Failed && !IsMark("}")) {
            pairs.append(ReadPair());
            if (!IsMark("}"))
                Expect(",");
        }
        Expect("}");
        NoIn = wasNoIn;
        return Add(Node::Object, QString(), index, pairs);
    }

    int ReadPair()
    {
        const Word key = Words.at(At++);
        const bool isAccess = (key.Text == QLatin1String("get") || key.Text == QLatin1String("set")) && IsName();
        const QString name = isAccess ? TakeName()
            : key.Text.isEmpty()      ? Code.mid(key.Index, key.End - key.Index)
                                      : key.Text;
        if (key.What == ScriptToken::Mark)
            Failed = true;
        if (!isAccess)
            Expect(":");
        const int value = isAccess ? ReadParameters(Node::FunctionExpression, QString(), key.Index) : ReadAssignment();
        return Add(Node::Pair, name, key.Index, {value});
    }

    const QString Code;
    const QVector<Word> Words;
    QVector<Node> Nodes;
    QVector<int> Fronts; ///< Where each begins, with its round brackets.
    int At = 0;
    int Depth = 0;
    bool NoIn = false; ///< In the head of a `for`.
    bool Failed = false;
};

} // namespace

ScriptTree::ScriptTree(const QString &code, const QVector<ScriptToken> &tokens)
    : Code(code), Nodes(Reader(code, tokens).Run())
{
    for (int i = Nodes.size() - 2; i >= 0; --i) {
        const int parent = Nodes.at(i).Parent;
        Nodes[i].Function = parent == Root() || IsFunction(parent) ? parent : Nodes.at(parent).Function;
    }
}

bool ScriptTree::IsLoop(int node) const
{
    return Is(node, Node::For) || Is(node, Node::ForIn) || Is(node, Node::While) || Is(node, Node::Do);
}

} // namespace Orbel
