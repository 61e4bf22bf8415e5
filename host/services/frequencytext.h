#pragma once

#include "hostexport.h"

#include <QLocale>
#include <QString>

#include <optional>

/// Frequencies as texts: one reader and one speller for all fields that show them. What Write() gives, Read() takes
/// back to the last bit.
namespace FrequencyText
{

/// The frequency in Hz that an operator typed: a number, then "Hz", "k", "kHz", "M", "MHz", "G", "GHz" in any case, or
/// nothing for Hz. The decimal point is ".", "," or the one of `locale`, and there is at most one, so that neither can
/// separate groups; blanks of any kind may stand anywhere, digits may be of any script. Moving the point is exact: no
/// number is multiplied. Nothing for any other text.
ORBEL_HOST_EXPORT std::optional<double> Read(const QString &text, const QLocale &locale = QLocale::c());

/// The frequency with the greatest unit that it reaches, in groups of three digits, down to 1 Hz and further where it
/// has a fraction: "145.500 000 MHz". Zeros lead the text up to the digit that stands for 10^`leastPower` Hz, and that
/// digit counts for the unit. Infinity and NaN have no text.
ORBEL_HOST_EXPORT QString Write(double hertz, int leastPower = 0, QChar point = QLatin1Char('.'));

/// The text of a node that holds the frequency, in Hz: no unit, no exponent, no groups.
ORBEL_HOST_EXPORT QString Plain(double hertz);

/// The place, from 0, of the digit that stands for 10^`power` Hz in a text of Write(); -1 when it has no such digit.
ORBEL_HOST_EXPORT int PositionOf(const QString &text, int power);
/// The power of ten, in Hz, of the digit at that place in a text of Write(); nothing where no digit stands.
ORBEL_HOST_EXPORT std::optional<int> PowerAt(const QString &text, int position);

} // namespace FrequencyText
