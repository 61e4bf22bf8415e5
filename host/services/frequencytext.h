#pragma once

#include "hostexport.h"

#include <QLocale>
#include <QStringList>

#include <optional>

namespace Orbel
{

/// Frequencies as texts: one speller for all fields that show them. What Write() gives, NumberReader takes back to the
/// last bit.
namespace FrequencyText
{

/// The frequency with the greatest unit that it reaches, in groups of three digits, down to 1 Hz and further where it
/// has a fraction: "145.500 000 MHz". Zeros lead the text up to the digit that stands for 10^`leastPower` Hz, and that
/// digit counts for the unit. Infinity and NaN have no text.
ORBEL_HOST_EXPORT QString Write(double hertz, int leastPower = 0, QChar point = QLatin1Char('.'));

/// A number with its digits in groups of three, as those of Write(): "12500.125" is "12 500.125".
ORBEL_HOST_EXPORT QString Group(const QString &number, QChar point);
/// A decimal number as it stands before a suffix in a field: where the suffix ends in "Hz", in groups, and with a blank
/// unless the suffix brings its own.
ORBEL_HOST_EXPORT QString BeforeSuffix(const QString &number, const QString &suffix, QChar point = QLatin1Char('.'));

/// As Write(), without the zeros at the end: "26.5 GHz", for messages.
ORBEL_HOST_EXPORT QString Short(double hertz, QChar point = QLatin1Char('.'));

/// What a field shows for the text of a node, which is a number in Hz; any other text is shown as it is, and infinity
/// and NaN not at all.
ORBEL_HOST_EXPORT QString OfNode(const QString &nodeText, const QLocale &locale, int leastPower = 0);

/// The units of Write(), the greatest first.
ORBEL_HOST_EXPORT QStringList Units();
/// The power of ten in Hz of a unit in any case, of which "k", "M" and "G" alone will do; nothing for any other text.
ORBEL_HOST_EXPORT std::optional<int> PowerOfUnit(const QString &unit);
/// The power of ten of the unit in a text of Write(); 0 for any other text.
ORBEL_HOST_EXPORT int ShownPower(const QString &text);

/// The text of a node that holds the frequency, in Hz: no unit, no exponent, no groups.
ORBEL_HOST_EXPORT QString Plain(double hertz);

/// The place, from 0, of the digit that stands for 10^`power` Hz in a text of Write(); -1 when it has no such digit.
ORBEL_HOST_EXPORT int PositionOf(const QString &text, int power);
/// The power of ten, in Hz, of the digit at that place in a text of Write(); nothing where no digit stands.
ORBEL_HOST_EXPORT std::optional<int> PowerAt(const QString &text, int position);

} // namespace FrequencyText

} // namespace Orbel
