#include "numberreader.h"

#include "frequencytext.h"

#include <algorithm>
#include <cmath>

namespace Orbel
{

namespace
{

constexpr QLatin1Char Minus('-');
constexpr QLatin1Char Point('.');
constexpr QLatin1Char Comma(',');
constexpr QLatin1Char Zero('0');
constexpr double LargestNumber = 1e308;
constexpr double LargestWhole = 9.2e18; // what 64 bits hold

bool IsBlank(uint character)
{
    // Marks without a width come with texts that are pasted from documents.
    return QChar::isSpace(character) || QChar::category(character) == QChar::Other_Format;
}

bool IsApostrophe(uint character)
{
    return character == u'\'' || character == u'\u2019';
}

bool IsDigit(QChar character)
{
    return character >= Zero && character <= QLatin1Char('9');
}

/// What of "." and "," is the decimal point; null when none is.
QChar PointOf(const QString &number)
{
    const bool pointOnce = number.count(Point) == 1;
    const bool commaOnce = number.count(Comma) == 1;
    if (pointOnce && commaOnce)
        return number.lastIndexOf(Point) > number.lastIndexOf(Comma) ? Point : Comma;
    if (pointOnce)
        return Point;
    return commaOnce ? QChar(Comma) : QChar();
}

TypedNumber Refused(const QString &reason)
{
    return {QValidator::Invalid, qQNaN(), qQNaN(), reason};
}

enum class Grouping { Right, Begun, Wrong };

/// How `mark` groups the digits of one side of the decimal point. Groups at its end may be in the middle of their
/// typing.
Grouping GroupingOf(const QString &side, QLatin1Char mark, bool isFraction)
{
    const QStringList groups = side.split(mark);
    if (groups.size() == 1)
        return Grouping::Right;
    const auto isWhole = [](const QString &group) { return group.size() == 3; };
    const bool begins = isFraction ? isWhole(groups.first()) : !groups.first().isEmpty();
    if (!begins || !std::all_of(groups.begin() + 1, groups.end() - 1, isWhole) || groups.last().size() > 3)
        return Grouping::Wrong;
    return isWhole(groups.last()) ? Grouping::Right : Grouping::Begun;
}

} // namespace

/// A number as it is written: its digits on both sides of the decimal point.
struct NumberReader::Digits {
    bool IsNegative = false;
    bool HasPoint = false;
    QString Whole;
    QString Fraction;
    Grouping Groups = Grouping::Right;

    /// Takes the characters of a number; none but digits, signs and marks.
    static Digits From(QString number)
    {
        Digits digits;
        digits.IsNegative = number.startsWith(Minus);
        number.remove(Minus).remove(QLatin1Char('+'));
        const QChar pointMark = PointOf(number);
        digits.HasPoint = !pointMark.isNull();
        const int point = digits.HasPoint ? number.indexOf(pointMark) : number.size();
        digits.Whole = number.left(point);
        digits.Fraction = number.mid(point + 1);
        digits.Groups = digits.TakeGroups(pointMark);
        return digits;
    }

    Digits Moved(int power) const
    {
        const QString whole = Whole.rightJustified(-power, Zero);
        const QString all = whole + Fraction.leftJustified(power, Zero);
        Digits moved = *this;
        moved.Whole = all.left(whole.size() + power);
        moved.Fraction = all.mid(whole.size() + power);
        return moved;
    }

    double Value() const
    {
        const double size = QString(Zero + Whole + Point + Fraction + Zero).toDouble();
        return IsNegative && size != 0 ? -size : size;
    }

    bool IsEmpty() const { return Whole.isEmpty() && Fraction.isEmpty(); }

    int Decimals() const
    {
        int count = Fraction.size();
        while (count > 0 && Fraction.at(count - 1) == Zero)
            --count;
        return count;
    }

private:
    /// Removes the marks between groups.
    Grouping TakeGroups(QChar pointMark)
    {
        Grouping found = Grouping::Right;
        for (const QLatin1Char mark : {Point, Comma}) {
            if (mark == pointMark)
                continue;
            const Grouping whole = GroupingOf(Whole, mark, false);
            const Grouping fraction = GroupingOf(Fraction, mark, true);
            const bool cut = HasPoint && whole == Grouping::Begun;
            found = std::max({found, cut ? Grouping::Wrong : whole, fraction});
            Whole.remove(mark);
            Fraction.remove(mark);
        }
        return found;
    }
};

NumberReader NumberReader::OfHertz(const QLocale &locale)
{
    NumberReader reader;
    reader.Locale = locale;
    reader.IsFrequency = true;
    return reader;
}

TypedNumber TypedNumber::AsFinal() const
{
    TypedNumber final = *this;
    if (State == QValidator::Intermediate) {
        final.State = QValidator::Invalid;
        final.Text = NumberReader::tr("no number");
    }
    return final;
}

TypedNumber NumberReader::Read(const QString &text) const
{
    QString number = Plain(text);
    const QString own = Plain(Suffix);
    const bool hasOwn = !own.isEmpty() && number.endsWith(own, Qt::CaseInsensitive);
    if (hasOwn)
        number.chop(own.size());
    const auto isPart = [](QChar c) { return IsDigit(c) || c == Point || c == Comma; };
    const bool hasSign = number.startsWith(Minus) || number.startsWith(QLatin1Char('+'));
    const int end = int(std::find_if_not(number.begin() + int(hasSign), number.end(), isPart) - number.begin());
    const QString unit = number.mid(end);
    number.truncate(end);

    const Digits digits = Digits::From(number);
    const bool goesOn = digits.Groups == Grouping::Begun && unit.isEmpty();
    if (digits.Groups != Grouping::Right && !goesOn) {
        const bool two = number.count(Point) + number.count(Comma) == 2;
        return Refused(two ? tr("two decimal points") : tr("groups have three digits"));
    }
    if (digits.IsEmpty())
        return unit.isEmpty() ? TypedNumber() : Refused(tr("no number"));
    if (goesOn)
        return {};
    if (unit.isEmpty())
        return Judge(digits, hasOwn ? ShownPower : PowerWithoutUnit(digits));
    // The suffix that a field keeps behind the typed text, or the end of a unit that ends alike.
    std::optional<int> power = PowerOf(unit);
    if (!power && hasOwn)
        power = PowerOf(unit + own);
    if (power)
        return Judge(digits, *power);
    constexpr int most = 12;
    const QString told = unit.size() > most ? unit.left(most) + QChar(0x2026) : unit;
    return MayBecomeUnit(unit) ? TypedNumber() : Refused(tr("unknown unit \"%1\"").arg(told));
}

QString NumberReader::Spell(double number) const
{
    if (IsFrequency)
        return FrequencyText::Short(number, Locale.decimalPoint());
    return FrequencyText::Plain(number).replace(Point, Locale.decimalPoint()) + Suffix;
}

/// The text with the characters that the rules are told in, without blanks and what else groups anywhere.
QString NumberReader::Plain(const QString &text) const
{
    QString plain;
    for (const uint character : text.toUcs4()) {
        if (IsBlank(character) || IsApostrophe(character) || character == u'_')
            continue;
        if (QChar::isDigit(character))
            plain += QChar(u'0' + QChar::digitValue(character));
        else if (character == u'.' || character == u',')
            plain += QChar(character);
        else if (character == Locale.decimalPoint().unicode())
            plain += Point;
        else if (character == Locale.groupSeparator().unicode())
            continue;
        else if (character == u'\u2212' || character == Locale.negativeSign().unicode())
            plain += Minus;
        else
            plain += QString::fromUcs4(&character, 1);
    }
    return plain;
}

std::optional<int> NumberReader::PowerOf(const QString &unit) const
{
    if (!Suffix.isEmpty() && unit.compare(Plain(Suffix), Qt::CaseInsensitive) == 0)
        return ShownPower;
    return IsFrequency ? FrequencyText::PowerOfUnit(unit) : std::nullopt;
}

bool NumberReader::MayBecomeUnit(const QString &unit) const
{
    QStringList units{Plain(Suffix)};
    if (IsFrequency)
        units += FrequencyText::Units();
    return std::any_of(
        units.begin(), units.end(), [&](const QString &known) { return known.startsWith(unit, Qt::CaseInsensitive); });
}

int NumberReader::PowerWithoutUnit(const Digits &digits) const
{
    if (!IsFrequency || TakesShownUnit)
        return ShownPower;
    const bool maybeHertz = IsWithin(Value(digits, 0));
    const bool prefersShown = digits.HasPoint && IsWithin(Value(digits, ShownPower));
    return maybeHertz && !prefersShown ? 0 : ShownPower;
}

double NumberReader::Value(const Digits &digits, int power) const
{
    const double number = digits.Moved(power).Value();
    // Zero has no sign.
    return IsWhole ? std::round(number) + 0.0 : number;
}

bool NumberReader::IsInRange(double number) const
{
    return std::fabs(number) < (IsWhole ? LargestWhole : LargestNumber);
}

bool NumberReader::IsWithin(double number) const
{
    return IsInRange(number) && number >= Minimum && number <= Maximum;
}

TypedNumber NumberReader::Judge(const Digits &digits, int power) const
{
    const double number = Value(digits, power);
    if (!IsInRange(number))
        return Refused(tr("too large"));
    if (number > Maximum)
        return Refused(tr("above %1").arg(Spell(Maximum)));
    if (number < Minimum)
        return Refused(tr("below %1").arg(Spell(Minimum)));
    const Digits held = IsWhole ? Digits::From(FrequencyText::Plain(number)) : digits.Moved(power);
    const Digits shown = held.Moved(-ShownPower);
    if (shown.Decimals() > Decimals)
        return Refused(
            Decimals > 0 ? tr("at most %n digits behind the point", nullptr, Decimals) : tr("whole numbers only"));
    const QString text = IsFrequency ? FrequencyText::Write(number, 0, Locale.decimalPoint()) : Spell(number);
    return {QValidator::Acceptable, number, shown.Value(), text};
}

} // namespace Orbel
