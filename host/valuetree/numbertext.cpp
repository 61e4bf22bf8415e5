#include "numbertext.h"

#include "saturate.h"

#include <QLocale>

#include <cmath>
#include <optional>

namespace Orbel
{

static constexpr int MostPlaces = 3;

/// The number in units of the last one of up to three decimal places, as most numbers of forms are whole: of all
/// decimals with 15 digits only one is nearest to a double, and a quotient of integers is that double. Nothing for
/// other numbers.
static std::optional<qint64> WholeUnits(double number, int places)
{
    constexpr double powers[] = {1, 10, 100, 1000};
    constexpr double most = 1e12;
    const bool isMinusZero = number == 0 && std::signbit(number);
    if (!(std::fabs(number) < most) || isMinusZero || places < 0 || places > MostPlaces)
        return {};
    const qint64 units = std::llround(number * powers[places]);
    return double(units) / powers[places] == number ? std::optional(units) : std::nullopt;
}

static QString UnitsToText(qint64 units, int places)
{
    char text[24];
    char *const end = text + sizeof text;
    char *first = end;
    qint64 rest = std::abs(units);
    for (int place = 0; place < places; ++place, rest /= 10)
        *--first = char('0' + rest % 10);
    if (places > 0)
        *--first = '.';
    do {
        *--first = char('0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    if (units < 0)
        *--first = '-';
    return QString::fromLatin1(first, int(end - first));
}

QString NumberToText(double number)
{
    if (std::optional<qint64> units = WholeUnits(number, MostPlaces)) {
        int places = MostPlaces;
        for (; places > 0 && *units % 10 == 0; --places)
            *units /= 10;
        return UnitsToText(*units, places);
    }
    const double size = std::fabs(number);
    const bool ordinary = size == 0 || (size >= 1e-15 && size < 1e21);
    return QString::number(number, ordinary ? 'f' : 'g', QLocale::FloatingPointShortest);
}

QString NumberToText(double number, int places)
{
    const std::optional<qint64> units = WholeUnits(number, places);
    return units ? UnitsToText(*units, places) : QString::number(number, 'f', places);
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

} // namespace Orbel
