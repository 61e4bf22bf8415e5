#include "scriptscanner.h"

#include "scriptbuiltins.h"

#include <algorithm>

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
        return character.isLetterOrNumber() || character.isMark() || character == QLatin1Char('_')
            || character == QLatin1Char('$');
    }

    bool StandsHere(const char *mark) const
    {
        return Here() == QLatin1Char(*mark) && Code.midRef(At, int(qstrlen(mark))) == QLatin1String(mark);
    }

    void Step()
    {
        const QChar character = Here();
        if (character.isSpace())
            ++At;
        else if (StandsHere("//") || StandsHere("<!--") || (StandsHere("-->") && IsFirstInLine()))
            SkipLine();
        else if (StandsHere("/*"))
            SkipComment();
        else if (character == QLatin1Char('"') || character == QLatin1Char('\'') || StartsExpression())
            Quoted();
        else if (character.isDigit())
            Take(ScriptToken::Literal);
        else if (IsNamePart(character))
            Take(ScriptToken::Name);
        else
            TakeMark();
    }

    static bool EndsLine(QChar character)
    {
        return character == QLatin1Char('\n') || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator;
    }

    bool IsFirstInLine() const
    {
        int before = At - 1;
        while (before >= 0 && Code.at(before).isSpace() && !EndsLine(Code.at(before)))
            --before;
        return before < 0 || EndsLine(Code.at(before));
    }

    /// The engine knows the comments of old HTML pages, too.
    void SkipLine()
    {
        Comments.append(At);
        while (At < Code.size() && !EndsLine(Here()))
            ++At;
    }

    void SkipComment()
    {
        const int end = Code.indexOf(QLatin1String("*/"), At + 2);
        At = end < 0 ? Code.size() : end + 2;
    }

    /// Brackets tell when they close whether an expression may begin behind them.
    void TakeMark()
    {
        const QChar mark = Here();
        if (mark == QLatin1Char('('))
            Open.append(IsBehind({"if", "while", "for", "with"}));
        else if (mark == QLatin1Char('{'))
            Open.append(Tokens.isEmpty() || IsBehind({")", "{", "}", ";", "else", "do", "try", "finally"}));
        else if (mark == QLatin1Char('['))
            Open.append(false);
        IsBlockClosed = QStringLiteral(")]}").contains(mark) && !Open.isEmpty() && Open.takeLast();
        Tokens.append({ScriptToken::Mark, QString(mark), At, At + 1});
        ++At;
    }

    bool IsBehind(std::initializer_list<const char *> words) const
    {
        return !Tokens.isEmpty() && Tokens.constLast().What != ScriptToken::Literal
            && std::any_of(words.begin(), words.end(),
                [this](const char *word) { return Tokens.constLast().Text == QLatin1String(word); });
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
        if (before.What == ScriptToken::Mark && QStringLiteral(")]}").contains(before.Text))
            return IsBlockClosed;
        return before.What == ScriptToken::Mark && !EndsInStep();
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
    QVector<bool> Open; ///< For each open bracket whether an expression may begin behind it.
    bool IsBlockClosed = false; ///< The last mark closed such a bracket.
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
