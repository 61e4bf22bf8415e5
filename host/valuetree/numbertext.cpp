#include "numbertext.h"

#include "saturate.h"

#include <QLocale>

#include <cmath>

QString NumberToText(double number)
{
    const double size = std::fabs(number);
    const bool ordinary = size == 0 || (size >= 1e-15 && size < 1e21);
    return QString::number(number, ordinary ? 'f' : 'g', QLocale::FloatingPointShortest);
}

bool TextToNumber(const QString &text, double &number)
{
    bool ok = false;
    const double read = text.toDouble(&ok);
    if (!ok || !std::isfinite(read))
        return false;
    number = read;
    return true;
}

/// Drops a fraction of zeros, which says no more than the digits before it.
static QString WithoutZeroFraction(const QString &text)
{
    int end = text.size();
    while (end > 0 && text.at(end - 1) == QLatin1Char('0'))
        --end;
    return end > 0 && text.at(end - 1) == QLatin1Char('.') ? text.left(end - 1) : text;
}

bool TextToInteger(const QString &text, qint64 &number)
{
    bool ok = false;
    const qint64 exact = WithoutZeroFraction(text.trimmed()).toLongLong(&ok);
    if (ok) {
        number = exact;
        return true;
    }
    // Through double only what needs it, as an exponent does: beyond 53 bits it rounds.
    double read = 0;
    if (!TextToNumber(text, read) || std::trunc(read) != read)
        return false;
    number = Saturated<qint64>(read);
    return true;
}
