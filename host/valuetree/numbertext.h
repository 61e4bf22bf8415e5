#pragma once

#include "hostexport.h"

#include <QString>

namespace Orbel
{

/// Numbers as text, the same in every language. The text has a decimal point, no group separators, and as few digits as
/// read back to the same number; an exponent only outside 1e-15 to 1e21.
ORBEL_HOST_EXPORT QString NumberToText(double number);
/// The same with so many decimal places and no exponent, as QString::number() spells it, only faster.
ORBEL_HOST_EXPORT QString NumberToText(double number, int places);
/// False, and no change of `number`, for a text that is no finite number. Blanks around it do not matter.
ORBEL_HOST_EXPORT bool TextToNumber(const QString &text, double &number);
/// The same for integers: takes any text of a number without a fraction; one out of range gives the nearest bound.
ORBEL_HOST_EXPORT bool TextToInteger(const QString &text, qint64 &number);

} // namespace Orbel
