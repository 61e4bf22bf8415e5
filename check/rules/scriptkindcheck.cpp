// Comparisons, sums and choices of a script whose sides never meet.

#include "propertynames.h"
#include "scriptstudy.h"

#include <algorithm>
#include <cmath>

namespace Orbel
{

namespace
{

using Node = ScriptNode;
namespace prop = KV218::prop;

/// How many terms of a sum are looked at.
constexpr int MostTerms = 100;

bool IsOne(const QString &text, std::initializer_list<const char *> words)
{
    return std::any_of(words.begin(), words.end(), [&](const char *word) { return text == QLatin1String(word); });
}

bool IsNumberText(const QString &text)
{
    bool isNumber = text.trimmed().isEmpty();
    if (!isNumber)
        text.trimmed().toDouble(&isNumber);
    return isNumber || text.startsWith(QLatin1String("0x"));
}

class KindCheck
{
public:
    explicit KindCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            const Node &node = Tree.At(i);
            if (node.What == Node::Switch)
                CheckSwitch(i);
            else if (node.What == Node::Call)
                CheckCall(i);
            else if (node.What == Node::Assign)
                CheckAssign(i);
            else if (node.What == Node::Binary && IsOne(node.Text, {"==", "!=", "===", "!=="}))
                CheckEqual(i);
            else if (node.What == Node::Binary && IsOne(node.Text, {"&&", "||"}))
                CheckJoined(i);
            else if (node.What == Node::Binary && IsOne(node.Text, {"<", ">", "<=", ">="}))
                CheckOrder(i);
            else if (node.What == Node::Binary && node.Text == QLatin1String("+"))
                CheckSum(i);
            else if (node.What == Node::Binary && IsOne(node.Text, {"^", "&", "|"}))
                CheckBits(i);
            else if (node.What == Node::Member)
                CheckMethod(i);
            else if (node.What == Node::Binary && IsOne(node.Text, {"-", "*", "/", "%"}))
                CheckArithmetic(i);
        }
    }

private:
    ScriptKind KindOf(int node) const { return Study.KindOf(node); }
    int Left(int node) const { return Tree.Part(node, 0); }
    int Right(int node) const { return Tree.Part(node, 1); }

    /// What stands for a control or a function where a value is wanted.
    QString Misused(int node) const
    {
        if (KindOf(node) == ScriptKind::Control)
            return QStringLiteral("\"%1\" is the control itself, not its value").arg(Study.CodeOf(node));
        const bool isFunction
            = KindOf(node) == ScriptKind::Function && (Tree.Is(node, Node::Member) || IsOwnFunction(node));
        return isFunction ? QStringLiteral("\"%1\" is a function, and is not called").arg(Study.CodeOf(node))
                          : QString();
    }

    bool IsOwnFunction(int node) const { return Tree.Is(node, Node::Name) && Study.Bindings.FunctionOf(node) >= 0; }

    bool TellMisused(int node, int other, Code code)
    {
        const QString misused = Misused(node);
        const ScriptKind against = KindOf(other);
        const bool isOfItsKind = against == KindOf(node) || against == ScriptKind::Nothing
            || against == ScriptKind::Object || Tree.Is(other, Node::Word, "null") || !Misused(other).isEmpty();
        // Two unknown things may be two controls.
        const bool isUnknown = against == ScriptKind::Any && code == Code::ScriptComparison;
        if (misused.isEmpty() || isOfItsKind || isUnknown)
            return false;
        const WidgetEntry *widget = Study.WidgetOf(node);
        const QLatin1String value = widget ? widget->Info->delegate->valueProperty : QLatin1String();
        const QString name = Study.CodeOf(node);
        Study.Tell(code, node, misused,
            value.isEmpty() || !Tree.Is(node, Node::Name)
                ? Mend()
                : Mend{Study.PlaceOf(node), name, name + QLatin1Char('.') + value});
        return true;
    }

    void CheckEqual(int node)
    {
        const QString &text = Tree.At(node).Text;
        const bool isStrict = text.size() == 3;
        if (Tree.Is(Left(node), Node::Name, "NaN") || Tree.Is(Right(node), Node::Name, "NaN")) {
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("Nothing equals NaN, not even NaN; isNaN() tells whether it is one"));
            return;
        }
        if (TellMisused(Left(node), Right(node), Code::ScriptComparison)
            || TellMisused(Right(node), Left(node), Code::ScriptComparison) || TellSame(node) || TellNegated(node))
            return;
        if (CheckChoice(Left(node), Right(node), isStrict) || CheckChoice(Right(node), Left(node), isStrict))
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
        const bool areBounds = IsOne(one, {"<", ">", "<=", ">="}) && IsOne(two, {"<", ">", "<=", ">="})
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
        const bool isCompared = Tree.Is(left, Node::Binary) && IsOne(Tree.At(left).Text, {"==", "===", "!=", "!=="});
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
        const QString text = Tree.Is(other, Node::Quoted) ? Study.ConstantOf(other) : QString();
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
                QStringLiteral("A truth value never equals the text \"%1\"").arg(text), MendBool(node, other, text));
        else if ((a == ScriptKind::Number || a == ScriptKind::NumberText) && isWord)
            Study.Tell(Code::ScriptComparison, node, QStringLiteral("A number never equals the text \"%1\"").arg(text));
        else if (a == ScriptKind::Nothing && Tree.Is(one, Node::Member) && IsGivenConstant(other, b))
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("\"%1\" is not stated, and undefined when the script starts").arg(Study.CodeOf(one)));
        else if (Tree.Is(one, Node::Binary, "/") && IsWhole(Right(one)) && IsWhole(other))
            Study.Tell(
                Code::ScriptComparison, node, QStringLiteral("A division keeps its rest; Math.floor() drops it"));
        else if (isStrict && a == ScriptKind::NumberText && b == ScriptKind::Number && !IsNumberBy(one))
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

    Mend MendBool(int, int text, const QString &word) const
    {
        const bool isBool = word == QLatin1String("true") || word == QLatin1String("false");
        return isBool ? Mend{Study.PlaceOf(text), Study.CodeOf(text), word} : Mend();
    }

    /// Whether a property is a number where it is read, since its own signal has just told of a change.
    bool IsNumberBy(int node) const
    {
        const int function = Tree.At(node).Function;
        const WidgetEntry *widget = Tree.Is(node, Node::Member) ? Study.WidgetOf(Left(node)) : nullptr;
        if (!widget || Tree.At(node).Text != prop::Value)
            return Study.ChoicesOf(node) == nullptr && !Tree.Is(node, Node::Member) && function != Tree.Root();
        const QVector<ScriptConnection> connections = Study.ConnectionsOf(function);
        return !connections.isEmpty() && Study.Bindings.CallsOf(function).isEmpty()
            && !Study.Bindings.RunsAtStart(function)
            && std::all_of(connections.cbegin(), connections.cend(),
                [&](const ScriptConnection &each) { return Study.WidgetOf(each.Control) == widget; });
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
        if (Tree.Is(asked, Node::Prefix, "typeof") && Tree.Is(name, Node::Quoted)
            && !IsOne(text, {"undefined", "object", "function", "number", "string", "boolean", "unknown"}))
            Study.Sink.AddMisspelt(Code::ScriptComparison, Study.PlaceOf(name) + 1,
                QStringLiteral("typeof never gives \"%1\"").arg(text), text,
                {QStringLiteral("undefined"), QStringLiteral("object"), QStringLiteral("function"),
                    QStringLiteral("number"), QStringLiteral("string"), QStringLiteral("boolean")});
    }

    void CheckOrder(int node)
    {
        if (TellMisused(Left(node), Right(node), Code::ScriptComparison)
            || TellMisused(Right(node), Left(node), Code::ScriptComparison) || TellSame(node))
            return;
        const bool isChain = Tree.Is(Left(node), Node::Binary) && !Tree.At(Left(node)).IsInBrackets
            && IsOne(Tree.At(Left(node)).Text, {"<", ">", "<=", ">="});
        if (isChain) {
            Study.Tell(Code::ScriptComparison, node,
                QStringLiteral("The truth value of the comparison in front is compared; write && between two"));
            return;
        }
        const bool areTexts
            = KindOf(Left(node)) == ScriptKind::NumberText && KindOf(Right(node)) == ScriptKind::NumberText;
        if (areTexts && !IsNumberBy(Left(node)) && !IsNumberBy(Right(node)))
            Study.Tell(Code::ScriptTextOrder, node,
                QStringLiteral("\"%1\" and \"%2\" are texts until they are set, and compared letter by letter")
                    .arg(Study.CodeOf(Left(node)), Study.CodeOf(Right(node))));
        for (const int side : {Left(node), Right(node)}) {
            const QString text = Tree.Is(side, Node::Quoted) ? Study.ConstantOf(side) : QString();
            const ScriptKind other = KindOf(side == Left(node) ? Right(node) : Left(node));
            if (!text.isNull() && !IsNumberText(text)
                && (other == ScriptKind::Number || other == ScriptKind::NumberText || other == ScriptKind::Bool))
                Study.Tell(Code::ScriptComparison, node,
                    QStringLiteral("A number is neither more nor less than the text \"%1\"").arg(text));
        }
    }

    // choices

    /// True when something was told.
    bool CheckChoice(int choice, int other, bool isStrict)
    {
        const EnumEntry *rows = Study.ChoicesOf(choice);
        double number = 0;
        if (!rows)
            return CheckSources(choice, other);
        if (Study.NumberOf(other, &number)) {
            const QString text = Tree.At(other).Text;
            const bool isThere
                = std::any_of(rows->Values.cbegin(), rows->Values.cend(), [number](const QString &value) {
                      bool isNumber = false;
                      return value.toDouble(&isNumber) == number && isNumber;
                  });
            if (isThere && !isStrict)
                return false;
            Study.Tell(isThere ? Code::ScriptComparison : Code::ScriptChoice, other,
                isThere ? QStringLiteral("A choice is a text, which is never taken for the number %1").arg(text)
                        : QStringLiteral("No row of \"%1\" has the value %2").arg(rows->Name, text));
            return true;
        }
        return TellChoice(*rows, other);
    }

    /// A parameter that gets choices of several enumerations, and is compared with what one of them does not have.
    bool CheckSources(int parameter, int constant)
    {
        const QString text = Study.ConstantOf(constant);
        if (text.isNull() || !Tree.Is(parameter, Node::Name) || !Study.Bindings.At(parameter).IsParameter)
            return false;
        const QVector<ScriptStudy::Source> sources = Study.ChoicesGivenTo(parameter);
        const bool isMeant = std::any_of(sources.cbegin(), sources.cend(),
            [&](const ScriptStudy::Source &source) { return source.Rows && source.Rows->Values.contains(text); });
        for (const ScriptStudy::Source &source : sources) {
            if (isMeant && source.Rows && !source.Rows->Values.contains(text) && !ToldSources.contains(source.Node)) {
                ToldSources.insert(source.Node);
                Study.Tell(Code::ScriptChoice, source.Node,
                    QStringLiteral("This gives a choice of \"%1\", and the function asks for \"%2\" of another one")
                        .arg(source.Rows->Name, text));
            }
        }
        return isMeant;
    }

    bool TellChoice(const EnumEntry &rows, int constant)
    {
        const QString text = Study.ConstantOf(constant);
        if (text.isNull() || rows.Values.contains(text))
            return false;
        QStringList values;
        QString meant;
        for (const EnumRow &row : rows.Rows) {
            values.append(row.Value);
            if (row.DisplayName == text || (meant.isEmpty() && row.Identifier == text))
                meant = row.Value;
        }
        const QString told = QStringLiteral("No row of \"%1\" has the value \"%2\"").arg(rows.Name, text);
        const int place = Study.Script.PlaceOf(Tree.At(constant).Index + 1);
        if (!Tree.Is(constant, Node::Quoted))
            Study.Tell(Code::ScriptChoice, constant, told + QStringLiteral(", which is one of another enumeration"));
        else if (meant.isEmpty())
            Study.Sink.AddMisspelt(Code::ScriptChoice, place, told, text, values);
        else
            Study.Sink.Add(Code::ScriptChoice, place,
                told + QStringLiteral(", which is not what scripts see; its value is \"%1\"").arg(meant),
                {place, text, meant.toHtmlEscaped()});
        return true;
    }

    void CheckSwitch(int node)
    {
        const int asked = Left(node);
        const ScriptKind kind = KindOf(asked);
        TellMisused(asked, -1, Code::ScriptSum);
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
            if (!CheckChoice(asked, value, true) && !isBoth)
                TellNeverCase(kind, asked, value);
        }
    }

    void TellNeverCase(ScriptKind kind, int asked, int value)
    {
        const ScriptKind other = KindOf(value);
        const bool isText = kind == ScriptKind::NumberText && other == ScriptKind::Number && !IsNumberBy(asked);
        const bool never = isText
            || (kind == ScriptKind::Bool && (other == ScriptKind::Text || other == ScriptKind::Number))
            || (kind == ScriptKind::Number && other == ScriptKind::Text);
        if (never)
            Study.Tell(Code::ScriptComparison, value,
                QStringLiteral("\"%1\" is never of the same kind as this case").arg(Study.CodeOf(asked)));
    }

    void CheckCall(int call)
    {
        const int function = Left(call);
        const WidgetEntry *widget = Tree.Is(function, Node::Member) ? Study.WidgetOf(Left(function)) : nullptr;
        if (!widget || Tree.At(call).Parts.size() != 2 || !widget->States(prop::EnumName)
            || Study.MaySet(*widget, prop::EnumName))
            return;
        const EnumEntry *rows = Study.Form.FindEnum(widget->TextOf(prop::EnumName));
        if (!rows || rows->Rows.isEmpty()
            || !IsOne(Tree.At(function).Text, {"setCurrentValue", "setFirstValueAsCurrent", "firstIndexOfValue"}))
            return;
        double number = 0;
        if (!Study.NumberOf(Right(call), &number))
            TellChoice(*rows, Right(call));
        else if (!rows->Values.contains(Study.CodeOf(Right(call))))
            Study.Tell(Code::ScriptChoice, Right(call),
                QStringLiteral("No row of \"%1\" has the value %2").arg(rows->Name, Study.CodeOf(Right(call))));
    }

    void CheckAssign(int node)
    {
        const QString &text = Tree.At(node).Text;
        if (text == QLatin1String("=")) {
            if (const EnumEntry *rows = Tree.Is(Left(node), Node::Member) ? Study.ChoicesOf(Left(node)) : nullptr)
                TellChoice(*rows, Right(node));
        } else if (text == QLatin1String("+=")) {
            const bool isOwnText = KindOf(Left(node)) == ScriptKind::NumberText
                && (KindOf(Right(node)) == ScriptKind::Number || KindOf(Right(node)) == ScriptKind::NumberText);
            if ((isOwnText && !IsNumberBy(Left(node)))
                || (Tree.Is(Right(node), Node::Number) && StartsAsNumberText(Left(node)))) {
                TellTextSum(Left(node));
                return;
            }
            const bool isText = KindOf(Right(node)) == ScriptKind::NumberText && !IsNumberBy(Right(node));
            if (isText && (KindOf(Left(node)) == ScriptKind::Number || KindOf(Left(node)) == ScriptKind::NumberText))
                TellTextSum(Right(node));
            else if (isText && Tree.Is(Left(node), Node::Name) && StartsAsNumber(Study.Bindings.At(Left(node))))
                TellTextSum(Right(node));
        }
    }

    /// A variable that begins as a quoted number, and is never set to anything else.
    bool StartsAsNumberText(int name) const
    {
        if (!Tree.Is(name, Node::Name))
            return false;
        const QVector<int> &sets = Study.Bindings.At(name).Sets;
        const int value = Tree.Is(sets.value(0, -1), Node::Declarator) ? Left(sets.constFirst()) : -1;
        const bool isQuoted = Tree.Is(value, Node::Quoted) && !Tree.At(value).Text.isEmpty();
        return isQuoted && IsNumberText(Tree.At(value).Text)
            && std::all_of(
                sets.cbegin() + 1, sets.cend(), [this](int set) { return Tree.Is(set, Node::Assign, "+="); });
    }

    bool StartsAsNumber(const ScriptVariable &variable) const
    {
        const int set = variable.Sets.value(0, -1);
        return Tree.Is(set, Node::Declarator) && Tree.Is(Left(set), Node::Number);
    }

    // sums

    void TellTextSum(int node)
    {
        Study.Tell(Code::ScriptTextSum, node,
            QStringLiteral("\"%1\" is a text until it is set, and + puts texts together").arg(Study.CodeOf(node)));
    }

    void CheckSum(int node)
    {
        if (TellMisused(Left(node), Right(node), Code::ScriptSum)
            || TellMisused(Right(node), Left(node), Code::ScriptSum))
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
            if (KindOf(side) == ScriptKind::NumberText && isSum && !IsNumberBy(side)) {
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
        const bool isOfText = IsOne(name,
            {"toUpperCase", "toLowerCase", "substring", "substr", "charAt", "split", "replace", "indexOf", "match",
                "concat", "trim"});
        const bool isOfNumber = IsOne(name, {"toFixed", "toPrecision", "toExponential"});
        const bool isNumber = kind == ScriptKind::Number || kind == ScriptKind::Bool;
        const bool isText = kind == ScriptKind::Text || (kind == ScriptKind::NumberText && !IsNumberBy(Left(member)));
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
            if (!Misused(side).isEmpty() && TellMisused(side, other, Code::ScriptSum))
                return;
            const bool isWords = Tree.Is(side, Node::Binary, "+") && KindOf(side) == ScriptKind::Text && HasWord(side);
            const QString text = Tree.Is(side, Node::Quoted) ? Study.ConstantOf(side) : QString();
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
                if (Tree.Is(side, Node::Quoted) && !IsNumberText(Tree.At(side).Text))
                    return true;
            }
        }
        return false;
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QSet<int> ToldSources;
};

} // namespace

void CheckScriptKinds(const ScriptStudy &study)
{
    KindCheck(study).Run();
}

} // namespace Orbel
