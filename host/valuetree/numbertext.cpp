#include "numbertext.h"

#include "saturate.h"

#include <QLocale>

#include <cmath>

/// Whole thousandths, as most numbers of forms are, without the search for the shortest text: of all decimals with 15
/// digits only one is nearest to a double, and a quotient of integers is that double. Null for other numbers.
static QString ThousandthsToText(double number)
{
    constexpr double most = 1e12;
    if (!(std::fabs(number) < most) || number == 0)
        return QString();
    const qint64 thousandths = std::llround(number * 1000);
    if (double(thousandths) / 1000 != number)
        return QString();
    qint64 rest = std::abs(thousandths);
    int places = 3;
    for (; places > 0 && rest % 10 == 0; --places)
        rest /= 10;
    char text[24];
    char *const end = text + sizeof text;
    char *first = end;
    for (int place = 0; place < places; ++place, rest /= 10)
        *--first = char('0' + rest % 10);
    if (places > 0)
        *--first = '.';
    for (; rest > 0 || first == end || *first == '.'; rest /= 10)
        *--first = char('0' + rest % 10);
    if (number < 0)
        *--first = '-';
    return QString::fromLatin1(first, int(end - first));
}

QString NumberToText(double number)
{
    const QString plain = ThousandthsToText(number);
    if (!plain.isEmpty())
        return plain;
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
