#pragma once

#include <QVariant>

namespace KV218
{

/// The frequency as parameter documents carry it: whole hertz without an exponent, whatever type the value has; a
/// fraction is cut off. A text that is no number stays as it is.
QString WholeHertz(const QVariant &value);

/// The frequency that a text of WholeHertz() states; 0 for a text that is no whole number.
qint64 HertzOf(const QString &text);

} // namespace KV218
