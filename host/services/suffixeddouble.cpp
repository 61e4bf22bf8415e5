#include "suffixeddouble.h"

#include "frequencyunit.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

static const int DecimalBase = 1000;

static QString Plain(double number)
{
    return QString::number(number, 'f', QLocale::FloatingPointShortest);
}

/// Moves the decimal point of a number's text to the left: exact, where a division would round.
static QString ShiftPoint(QString digits, int places)
{
    const bool negative = digits.startsWith(QLatin1Char('-'));
    if (negative)
        digits.remove(0, 1);
    int point = digits.indexOf(QLatin1Char('.'));
    if (point < 0)
        point = digits.size();
    else
        digits.remove(point, 1);
    if (point <= places) {
        digits.prepend(QString(places + 1 - point, QLatin1Char('0')));
        point = places + 1;
    }
    digits.insert(point - places, QLatin1Char('.'));
    while (digits.endsWith(QLatin1Char('0')))
        digits.chop(1);
    if (digits.endsWith(QLatin1Char('.')))
        digits.chop(1);
    return negative ? QLatin1Char('-') + digits : digits;
}

SuffixedDouble::SuffixedDouble(QString unit, int base, bool tight)
    : Unit(std::move(unit)), Base(base < 2 ? DecimalBase : base), Tight(tight)
{
}

void SuffixedDouble::SetSuffix(ESuffix suffix)
{
    Suffix = std::clamp(suffix, ekPlain, ekGiga);
}

QString SuffixedDouble::GetString(double number) const
{
    const int scale = Suffix - ekPlain;
    const QLatin1String prefix = Orbel::FrequencyUnits[ekGiga - Suffix].Prefix();
    QString text;
    if (Base == DecimalBase && std::isfinite(number))
        text = ShiftPoint(Plain(number), 3 * scale);
    else
        text = Plain(number / std::pow(Base, scale));
    return text + (Tight ? QLatin1String("") : QLatin1String(" ")) + prefix + Unit;
}
