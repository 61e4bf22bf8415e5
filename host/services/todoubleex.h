#pragma once

#include "hostexport.h"

#include <QString>

namespace Ember
{

/// The number in a text that an operator typed: decimal point or decimal comma, blanks around it and an exponent are
/// fine. All else, as group separators, infinities and letters behind the number, gives 0 and sets `ok`, which may be
/// null, to false.
ORBEL_HOST_EXPORT double toDoubleEx(const QString &text, bool *ok);

} // namespace Ember
