#include "todoubleex.h"

#include <cmath>

double Ember::toDoubleEx(const QString &text, bool *ok)
{
    QString plain = text;
    plain.replace(QLatin1Char(','), QLatin1Char('.'));
    bool read = false;
    const double number = plain.toDouble(&read);
    const bool good = read && std::isfinite(number);
    if (ok)
        *ok = good;
    return good ? number : 0.0;
}
