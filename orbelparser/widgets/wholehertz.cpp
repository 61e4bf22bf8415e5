#include "wholehertz.h"

#include <cmath>

namespace KV218
{

QString WholeHertz(const QVariant &value)
{
    const QString text = value.toString();
    bool isWhole = false;
    bool isNumber = false;
    // As they stand: a double would round what is longer than its digits.
    text.trimmed().toLongLong(&isWhole);
    const double hertz = value.toDouble(&isNumber);
    if (isWhole || !isNumber || !std::isfinite(hertz))
        return text;
    return QString::number(std::trunc(hertz), 'f', 0);
}

qint64 HertzOf(const QString &text)
{
    bool fits = false;
    const qint64 hertz = text.toLongLong(&fits);
    return fits ? hertz : qint64(text.toULongLong());
}

} // namespace KV218
