#include "decimalarithmetic.h"

#include <QLocale>
#include <QString>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace Orbel
{

namespace
{

/// A number as digits * 10^exponent, without zeros at the end.
struct Decimal {
    qint64 Digits = 0;
    int Exponent = 0;
};

Decimal ToDecimal(double number)
{
    if (!std::isfinite(number) || number == 0)
        return {};
    const QString text = QString::number(number, 'e', QLocale::FloatingPointShortest);
    const int end = text.indexOf(QLatin1Char('e'));
    QString digits = text.left(end);
    const int point = digits.indexOf(QLatin1Char('.'));
    int exponent = text.midRef(end + 1).toInt();
    if (point >= 0) {
        digits.remove(point, 1);
        exponent -= digits.size() - point;
    }
    return {digits.toLongLong(), exponent};
}

/// False when the product does not fit.
bool Multiply(qint64 &number, qint64 factor)
{
    if (number != 0 && std::llabs(factor) > std::numeric_limits<qint64>::max() / std::llabs(number))
        return false;
    number *= factor;
    return true;
}

/// Writes the number with a lower exponent. False when its digits do not fit then.
bool Expand(Decimal &number, int exponent)
{
    while (number.Exponent > exponent) {
        if (!Multiply(number.Digits, 10))
            return false;
        --number.Exponent;
    }
    return true;
}

} // namespace

int DecimalPlaces(double number)
{
    return std::max(0, -ToDecimal(number).Exponent);
}

int PlacesOfFirstDigit(double number)
{
    const Decimal decimal = ToDecimal(number);
    const int behindFirst = QString::number(std::llabs(decimal.Digits)).size() - 1;
    return std::max(0, -decimal.Exponent - behindFirst);
}

double WithSteps(double value, double step, int count)
{
    Decimal sum = ToDecimal(value);
    Decimal move = ToDecimal(step);
    const int exponent = std::min(sum.Exponent, move.Exponent);
    const bool fits = Expand(sum, exponent) && Expand(move, exponent) && Multiply(move.Digits, count)
        && std::llabs(sum.Digits) < std::numeric_limits<qint64>::max() - std::llabs(move.Digits);
    if (!fits)
        return value + step * count;
    return QStringLiteral("%1e%2").arg(sum.Digits + move.Digits).arg(exponent).toDouble();
}

double WithoutNoise(double number)
{
    if (!std::isfinite(number) || std::trunc(number) == number)
        return number;
    return QString::number(number, 'g', std::numeric_limits<double>::digits10).toDouble();
}

} // namespace Orbel
