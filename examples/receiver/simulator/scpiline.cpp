#include "scpiline.h"

#include <algorithm>

namespace
{

// As the standard has them.
const int LongestMnemonic = 12;
const int LongestSuffix = 12;
const int MostDigits = 255;
const int GreatestExponent = 32000;

bool IsBlank(char letter)
{
    return letter == ' ' || letter == '\t';
}
bool IsDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}
bool IsLetter(char letter)
{
    return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}
bool IsWordLetter(char letter)
{
    return IsLetter(letter) || IsDigit(letter) || letter == '_';
}

/// Reads the units of one line, a character after the other. The first mistake ends it.
class LineReader
{
public:
    explicit LineReader(const QByteArray &line) : Line(line) { }

    QVector<ScpiUnit> ReadAll()
    {
        QVector<ScpiUnit> units;
        while (Place < Line.size()) {
            SkipBlanks();
            if (TakeIf(';') || Place == Line.size())
                continue;
            Unit = ScpiUnit();
            const int start = Place;
            ReadUnit();
            const int end = Unit.Error == ScpiError::None ? Place : Line.size();
            Unit.Text = Line.mid(start, end - start).trimmed();
            units << Unit;
            if (Unit.Error != ScpiError::None)
                break;
        }
        return units;
    }

private:
    char Next() const { return Place < Line.size() ? Line.at(Place) : '\0'; }
    bool AtEnd() const { return Place == Line.size() || Next() == ';'; }
    bool TakeIf(char letter)
    {
        if (Place == Line.size() || Next() != letter)
            return false;
        ++Place;
        return true;
    }
    void SkipBlanks()
    {
        while (IsBlank(Next()))
            ++Place;
    }
    template <class Condition> QByteArray TakeWhile(Condition condition)
    {
        const int start = Place;
        while (Place < Line.size() && condition(Next()))
            ++Place;
        return Line.mid(start, Place - start);
    }
    bool Fail(ScpiError error)
    {
        const bool isText = Place == Line.size() || IsBlank(Next()) || (Next() > ' ' && Next() <= '~');
        Unit.Error = isText ? error : ScpiError::InvalidCharacter;
        return false;
    }

    void ReadUnit()
    {
        if (!(Next() == '*' ? ReadCommonHeader() : ReadHeader()))
            return;
        Unit.IsQuery = TakeIf('?');
        if (!AtEnd() && !IsBlank(Next())) {
            Fail(ScpiError::InvalidSeparator);
            return;
        }
        SkipBlanks();
        while (!AtEnd()) {
            if (!ReadParameter())
                return;
            SkipBlanks();
            if (AtEnd())
                return;
            if (!TakeIf(',')) {
                Fail(ScpiError::InvalidSeparator);
                return;
            }
            SkipBlanks();
            if (AtEnd())
                Fail(ScpiError::SyntaxError);
        }
    }

    bool ReadCommonHeader()
    {
        ++Place;
        QByteArray mnemonic;
        if (!ReadMnemonic(mnemonic))
            return false;
        Unit.Header = {'*' + mnemonic};
        return true;
    }
    bool ReadHeader()
    {
        if (TakeIf(':'))
            Branch.clear();
        Unit.Header = Branch;
        do {
            QByteArray mnemonic;
            if (!ReadMnemonic(mnemonic))
                return false;
            Unit.Header << mnemonic;
        } while (TakeIf(':'));
        Branch = Unit.Header.mid(0, Unit.Header.size() - 1);
        return true;
    }
    bool ReadMnemonic(QByteArray &mnemonic)
    {
        if (!IsLetter(Next()))
            return Fail(ScpiError::SyntaxError);
        mnemonic = TakeWhile(IsWordLetter).toUpper();
        if (mnemonic.size() > LongestMnemonic)
            return Fail(ScpiError::MnemonicTooLong);
        // There is one receiver: the number 1, which may stand behind any mnemonic, means it.
        const int letters = int(std::find_if(mnemonic.cbegin(), mnemonic.cend(), IsDigit) - mnemonic.cbegin());
        if (letters < mnemonic.size() && mnemonic.mid(letters) != "1")
            return Fail(ScpiError::HeaderSuffixOutOfRange);
        mnemonic.truncate(letters);
        return true;
    }

    bool ReadParameter()
    {
        Unit.Parameters.append(ScpiParameter());
        ScpiParameter &parameter = Unit.Parameters.last();
        if (Next() == '"' || Next() == '\'')
            return ReadString(parameter);
        if (IsLetter(Next())) {
            parameter.Text = TakeWhile(IsWordLetter).toUpper();
            return parameter.Text.size() <= LongestMnemonic || Fail(ScpiError::CharacterDataTooLong);
        }
        return ReadNumber(parameter);
    }
    bool ReadString(ScpiParameter &parameter)
    {
        parameter.What = ScpiParameter::String;
        const char quote = Line.at(Place++);
        do {
            parameter.Text += TakeWhile([quote](char letter) { return letter != quote; });
            if (!TakeIf(quote))
                return Fail(ScpiError::InvalidString);
            if (Next() == quote)
                parameter.Text += quote;
        } while (TakeIf(quote)); // a doubled quote is one of the string's own
        return true;
    }
    bool ReadNumber(ScpiParameter &parameter)
    {
        parameter.What = ScpiParameter::Number;
        QByteArray number = Next() == '+' || Next() == '-' ? Line.mid(Place++, 1) : QByteArray();
        const QByteArray whole = TakeWhile(IsDigit);
        const QByteArray part = TakeIf('.') ? TakeWhile(IsDigit) : QByteArray();
        if (whole.isEmpty() && part.isEmpty())
            return Fail(number.isEmpty() ? ScpiError::SyntaxError : ScpiError::InvalidCharacterInNumber);
        if (whole.size() + part.size() > MostDigits)
            return Fail(ScpiError::TooManyDigits);
        number += whole + '.' + part;
        SkipBlanks();
        if (!ReadExponent(number))
            return false;
        SkipBlanks();
        parameter.Suffix = TakeWhile(IsLetter).toUpper();
        if (parameter.Suffix.size() > LongestSuffix)
            return Fail(ScpiError::SuffixTooLong);
        if (Next() == '.' || IsWordLetter(Next()))
            return Fail(ScpiError::InvalidCharacterInNumber);
        parameter.Value = number.toDouble(); // infinite where it is too large, which no limit allows
        return true;
    }
    /// An E with digits behind it; any other one begins the suffix.
    bool ReadExponent(QByteArray &number)
    {
        const int start = Place;
        if (!TakeIf('E') && !TakeIf('e'))
            return true;
        SkipBlanks();
        const QByteArray sign = Next() == '+' || Next() == '-' ? Line.mid(Place++, 1) : QByteArray();
        const QByteArray digits = TakeWhile(IsDigit);
        if (digits.isEmpty()) {
            Place = start;
            return true;
        }
        bool fits = false;
        if (digits.toInt(&fits) > GreatestExponent || !fits)
            return Fail(ScpiError::ExponentTooLarge);
        number += 'E' + sign + digits;
        return true;
    }

    const QByteArray Line;
    int Place = 0;
    ScpiUnit Unit;
    /// Where the next header goes on that does not begin at the root.
    QByteArrayList Branch;
};

/// "FREQuency": the capitals.
QByteArray ShortForm(const QByteArray &mnemonic)
{
    QByteArray form;
    std::copy_if(mnemonic.cbegin(), mnemonic.cend(), std::back_inserter(form),
        [](char letter) { return !(letter >= 'a' && letter <= 'z'); });
    return form;
}

} // namespace

QVector<ScpiUnit> ParseScpiLine(const QByteArray &line)
{
    return LineReader(line).ReadAll();
}

ScpiPattern::ScpiPattern(const QByteArray &text)
{
    QByteArray plain = text;
    plain.replace("[:", ":[").replace(":]", "]:"); // brackets then hold whole mnemonics
    for (QByteArray node : plain.split(':')) {
        const bool isOptional = node.startsWith('[');
        node.replace("[", "").replace("]", "");
        Nodes.append({node.split('|'), isOptional});
    }
}

bool ScpiPattern::MatchesFrom(int node, const QByteArrayList &header, int mnemonic) const
{
    if (node == Nodes.size())
        return mnemonic == header.size();
    if (mnemonic < header.size()) {
        const QByteArray &given = header.at(mnemonic);
        for (const QByteArray &meant : Nodes.at(node).Mnemonics) {
            if ((given == meant.toUpper() || given == ShortForm(meant)) && MatchesFrom(node + 1, header, mnemonic + 1))
                return true;
        }
    }
    return Nodes.at(node).IsOptional && MatchesFrom(node + 1, header, mnemonic);
}

QByteArray ScpiPattern::Shortest() const
{
    QByteArrayList mnemonics;
    for (const Node &node : Nodes) {
        if (!node.IsOptional)
            mnemonics << ShortForm(node.Mnemonics.first());
    }
    return mnemonics.join(':');
}
