#include "frequencytext.h"

#include "frequencyunit.h"

#include <algorithm>
#include <cmath>

namespace Orbel
{

namespace
{

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

} // namespace

QString FrequencyText::Write(double hertz, int leastPower, QChar point)
{
    if (!std::isfinite(hertz))
        return QString();
    const QString plain = Plain(std::fabs(hertz));
    const int end = plain.indexOf(QLatin1Char('.'));
    QString whole = plain.left(end);
    const int highest = std::max(whole.size() - 1, leastPower);
    const auto scale = std::find_if(std::begin(FrequencyUnits), std::end(FrequencyUnits) - 1,
        [highest](const FrequencyUnit &candidate) { return candidate.Power <= highest; });
    whole = whole.rightJustified(std::max(leastPower, scale->Power) + 1, QLatin1Char('0'));
    QString rest = whole.right(scale->Power);
    if (end >= 0)
        rest += plain.mid(end + 1);
    whole.chop(scale->Power);

    QString text = hertz < 0 ? QStringLiteral("-") : QString();
    text += Grouped(whole, true);
    if (!rest.isEmpty())
        text += point + Grouped(rest, false);
    return text + QLatin1Char(' ') + QLatin1String(scale->Name);
}

QString FrequencyText::BeforeSuffix(const QString &number, const QString &suffix, QChar point)
{
    if (!suffix.endsWith(QLatin1String("Hz"), Qt::CaseInsensitive))
        return number;
    const QString grouped = Group(number, point);
    return suffix.at(0).isSpace() ? grouped : grouped + QLatin1Char(' ');
}

QString FrequencyText::Group(const QString &number, QChar point)
{
    const auto isDigit = [](QChar c) { return c.isDigit(); };
    const int first = int(std::find_if(number.begin(), number.end(), isDigit) - number.begin());
    const int end = number.contains(point) ? number.indexOf(point) : number.size();
    const QString whole = number.left(first) + Grouped(number.mid(first, end - first), true);
    return end == number.size() ? whole : whole + point + Grouped(number.mid(end + 1), false);
}

QString FrequencyText::Short(double hertz, QChar point)
{
    const QString text = Write(hertz, 0, point);
    const int unit = text.lastIndexOf(QLatin1Char(' '));
    if (!text.contains(point))
        return text;
    int end = unit;
    while (text.at(end - 1) == QLatin1Char('0') || text.at(end - 1) == QLatin1Char(' '))
        --end;
    if (text.at(end - 1) == point)
        --end;
    return text.left(end) + text.mid(unit);
}

QString FrequencyText::OfNode(const QString &nodeText, const QLocale &locale, int leastPower)
{
    bool isNumber = false;
    const double hertz = nodeText.toDouble(&isNumber);
    return isNumber ? Write(hertz, leastPower, locale.decimalPoint()) : nodeText;
}

QStringList FrequencyText::Units()
{
    QStringList units;
    for (const FrequencyUnit &unit : FrequencyUnits)
        units.append(QLatin1String(unit.Name));
    return units;
}

std::optional<int> FrequencyText::PowerOfUnit(const QString &unit)
{
    for (const FrequencyUnit &known : FrequencyUnits) {
        const bool prefixAlone = known.Power > 0 && unit.compare(known.Prefix(), Qt::CaseInsensitive) == 0;
        if (prefixAlone || unit.compare(QLatin1String(known.Name), Qt::CaseInsensitive) == 0)
            return known.Power;
    }
    return {};
}

int FrequencyText::ShownPower(const QString &text)
{
    return PowerOfUnit(text.mid(text.lastIndexOf(QLatin1Char(' ')) + 1)).value_or(0);
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
    const int power = ShownPower(text);
    return position < point ? power + digitsBetween(position + 1, point) : power - digitsBetween(point, position + 1);
}

} // namespace Orbel
