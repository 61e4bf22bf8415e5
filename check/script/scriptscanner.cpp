#include "scriptscanner.h"

#include "scriptbuiltins.h"

namespace Orbel
{

namespace
{

class Scanner
{
public:
    explicit Scanner(const QString &code) : Code(code) { }

    QVector<ScriptToken> Run()
    {
        while (At < Code.size())
            Step();
        return Tokens;
    }
    const QVector<int> &GetComments() const { return Comments; }

private:
    QChar Here(int ahead = 0) const { return At + ahead < Code.size() ? Code.at(At + ahead) : QChar(); }

    static bool IsNamePart(QChar character)
    {
        return character.isLetterOrNumber() || character == QLatin1Char('_') || character == QLatin1Char('$');
    }

    void Step()
    {
        const QChar character = Here();
        if (character.isSpace())
            ++At;
        else if (character == QLatin1Char('/') && Here(1) == QLatin1Char('/'))
            Comments.append(At), SkipTo(QLatin1String("\n"));
        else if (character == QLatin1Char('/') && Here(1) == QLatin1Char('*'))
            SkipTo(QLatin1String("*/"));
        else if (character == QLatin1Char('"') || character == QLatin1Char('\'') || StartsExpression())
            Quoted();
        else if (character.isDigit())
            Take(ScriptToken::Literal);
        else if (IsNamePart(character))
            Take(ScriptToken::Name);
        else
            Tokens.append({ScriptToken::Mark, QString(character), At, At + 1}), ++At;
    }

    void SkipTo(QLatin1String end)
    {
        const int found = Code.indexOf(end, At + 2);
        At = found < 0 ? Code.size() : found + end.size();
    }

    void Take(ScriptToken::Kind kind)
    {
        const int start = At;
        while (At < Code.size() && (IsNamePart(Here()) || (kind == ScriptToken::Literal && Here() == QLatin1Char('.'))))
            ++At;
        Tokens.append({kind, kind == ScriptToken::Name ? Code.mid(start, At - start) : QString(), start, At});
    }

    /// A slash begins a regular expression where no value stands before it.
    bool StartsExpression() const
    {
        if (Here() != QLatin1Char('/'))
            return false;
        if (Tokens.isEmpty())
            return true;
        const ScriptToken &before = Tokens.constLast();
        if (before.What == ScriptToken::Name)
            return ReservedWords().contains(before.Text) && before.Text != QLatin1String("this");
        return before.What == ScriptToken::Mark && !QStringLiteral(")]}").contains(before.Text) && !EndsInStep();
    }

    /// Behind `i++` and `i--` a slash divides.
    bool EndsInStep() const
    {
        const int last = Tokens.size() - 1;
        const auto isMark = [this](int at, const char *marks) {
            return Tokens.at(at).What == ScriptToken::Mark && QString::fromLatin1(marks).contains(Tokens.at(at).Text);
        };
        return last >= 2 && isMark(last, "+-") && isMark(last - 1, Tokens.at(last).Text.toLatin1())
            && Tokens.at(last).Index == Tokens.at(last - 1).End
            && (Tokens.at(last - 2).What == ScriptToken::Name || isMark(last - 2, ")]"));
    }

    void Quoted()
    {
        const int start = At;
        const QChar quote = Here();
        bool inClass = false;
        for (++At; At < Code.size() && Here() != QLatin1Char('\n') && (Here() != quote || inClass); ++At) {
            if (Here() == QLatin1Char('\\'))
                ++At;
            else if (quote == QLatin1Char('/'))
                inClass = Here() == QLatin1Char('[') || (inClass && Here() != QLatin1Char(']'));
        }
        const bool isText = quote != QLatin1Char('/');
        const QString text = isText ? Code.mid(start + 1, At - start - 1) : QString();
        ++At;
        while (!isText && Here().isLetter())
            ++At;
        Tokens.append({ScriptToken::Literal, text, start, qMin(At, Code.size())});
    }

    const QString &Code;
    int At = 0;
    QVector<ScriptToken> Tokens;
    QVector<int> Comments; ///< That end with their line.
};

} // namespace

QVector<int> LineComments(const QString &code)
{
    Scanner scanner(code);
    scanner.Run();
    return scanner.GetComments();
}

QVector<ScriptToken> ScanScript(const QString &code)
{
    return Scanner(code).Run();
}

} // namespace Orbel
