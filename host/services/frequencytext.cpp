#include "frequencytext.h"

#include <algorithm>
#include <cmath>

namespace
{

struct Scale {
    int Power;
    const char *Unit;
};
constexpr Scale Scales[] = {{9, "GHz"}, {6, "MHz"}, {3, "kHz"}, {0, "Hz"}};

/// The power of ten that a typed unit stands for.
std::optional<int> PowerOfUnit(const QString &unit)
{
    if (unit.isEmpty())
        return 0;
    for (const Scale &scale : Scales) {
        const QLatin1String full(scale.Unit);
        const bool prefixAlone = scale.Power > 0 && unit.compare(full.left(1), Qt::CaseInsensitive) == 0;
        if (prefixAlone || unit.compare(full, Qt::CaseInsensitive) == 0)
            return scale.Power;
    }
    return {};
}

bool IsPoint(QChar character, const QLocale &locale)
{
    return character == QLatin1Char('.') || character == QLatin1Char(',') || character == locale.decimalPoint();
}

QString WithoutBlanks(const QString &text)
{
    QString bare;
    bare.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(bare), [](QChar c) { return !c.isSpace(); });
    return bare;
}

/// Groups of three digits; a shorter one leads the digits, or ends them.
QString Grouped(const QString &digits, bool shorterLeads)
{
    QString grouped;
    for (int i = 0; i < digits.size(); ++i) {
        const int place = shorterLeads ? digits.size() - i : i;
        if (i > 0 && place % 3 == 0)
            grouped += QLatin1Char(' ');
        grouped += digits.at(i);
    }
    return grouped;
}

/// The power of ten of the digit before the point.
int PowerOfText(const QString &text)
{
    return PowerOfUnit(text.mid(text.lastIndexOf(QLatin1Char(' ')) + 1)).value_or(0);
}

} // namespace

std::optional<double> FrequencyText::Read(const QString &text, const QLocale &locale)
{
    const QString bare = WithoutBlanks(text);
    QString whole;
    QString fraction;
    bool behindPoint = false;
    int i = 0;
    const bool minus = bare.startsWith(QLatin1Char('-')) || bare.startsWith(QChar(0x2212));
    if (minus || bare.startsWith(QLatin1Char('+')))
        ++i;
    for (; i < bare.size(); ++i) {
        const QChar character = bare.at(i);
        if (character.isDigit())
            (behindPoint ? fraction : whole) += QChar(u'0' + character.digitValue());
        else if (!behindPoint && IsPoint(character, locale))
            behindPoint = true;
        else
            break;
    }
    const std::optional<int> power = PowerOfUnit(bare.mid(i));
    if (!power || whole.size() + fraction.size() == 0)
        return {};
    fraction = fraction.leftJustified(*power, QLatin1Char('0'));
    const QString plain = whole + fraction.left(*power) + QLatin1Char('.') + fraction.mid(*power) + QLatin1Char('0');
    const double hertz = plain.toDouble();
    if (!std::isfinite(hertz))
        return {};
    return minus ? -hertz : hertz;
}

QString FrequencyText::Write(double hertz, int leastPower, QChar point)
{
    if (!std::isfinite(hertz))
        return QString();
    const QString plain = Plain(std::fabs(hertz));
    const int end = plain.indexOf(QLatin1Char('.'));
    QString whole = plain.left(end);
    const int highest = std::max(whole.size() - 1, leastPower);
    const auto scale = std::find_if(
        std::begin(Scales), std::end(Scales) - 1, [=](const Scale &candidate) { return candidate.Power <= highest; });
    whole = whole.rightJustified(std::max(leastPower, scale->Power) + 1, QLatin1Char('0'));
    QString rest = whole.right(scale->Power);
    if (end >= 0)
        rest += plain.mid(end + 1);
    whole.chop(scale->Power);

    QString text = hertz < 0 ? QStringLiteral("-") : QString();
    text += Grouped(whole, true);
    if (!rest.isEmpty())
        text += point + Grouped(rest, false);
    return text + QLatin1Char(' ') + QLatin1String(scale->Unit);
}

QString FrequencyText::Plain(double hertz)
{
    return QString::number(hertz, 'f', QLocale::FloatingPointShortest);
}

int FrequencyText::PositionOf(const QString &text, int power)
{
    for (int i = 0; i < text.size(); ++i) {
        if (PowerAt(text, i) == power)
            return i;
    }
    return -1;
}

std::optional<int> FrequencyText::PowerAt(const QString &text, int position)
{
    if (position < 0 || position >= text.size() || !text.at(position).isDigit())
        return {};
    int point = 0;
    const auto belongsToWhole = [](QChar c) { return c.isDigit() || c == QLatin1Char(' ') || c == QLatin1Char('-'); };
    while (point < text.size() && belongsToWhole(text.at(point)))
        ++point;
    const auto digitsBetween = [&](int from, int to) {
        return int(std::count_if(text.begin() + from, text.begin() + to, [](QChar c) { return c.isDigit(); }));
    };
    const int power = PowerOfText(text);
    return position < point ? power + digitsBetween(position + 1, point) : power - digitsBetween(point, position + 1);
}
