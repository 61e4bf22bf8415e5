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
            SkipTo(QLatin1String("\n"));
        else if (character == QLatin1Char('/') && Here(1) == QLatin1Char('*'))
            SkipTo(QLatin1String("*/"));
        else if (character == QLatin1Char('"') || character == QLatin1Char('\'') || StartsExpression())
            Quoted();
        else if (character.isDigit())
            Take(ScriptToken::Literal);
        else if (IsNamePart(character))
            Take(ScriptToken::Name);
        else
            Tokens.append({ScriptToken::Mark, QString(character), At++});
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
        Tokens.append({kind, kind == ScriptToken::Name ? Code.mid(start, At - start) : QString(), start});
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
        return before.What == ScriptToken::Mark && !QStringLiteral(")]}").contains(before.Text);
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
        Tokens.append({ScriptToken::Literal, isText ? Code.mid(start + 1, At - start - 1) : QString(), start});
        ++At;
        while (quote == QLatin1Char('/') && Here().isLetter())
            ++At;
    }

    const QString &Code;
    int At = 0;
    QVector<ScriptToken> Tokens;
};

} // namespace

QVector<ScriptToken> ScanScript(const QString &code)
{
    return Scanner(code).Run();
}

} // namespace Orbel
