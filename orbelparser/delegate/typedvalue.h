#pragma once

#include <QString>
#include <QVariant>

class ValueBase;

namespace KV218
{

/// A text of the node as a value of its type: bool, int, qint64, double or QString.
QVariant ValueOfText(const ValueBase &node, const QString &text);

/// The way back. False, with the reason in `error`, for a value that is no such one.
bool TextOfValue(const ValueBase &node, const QVariant &value, QString *text, QString *error);

/// A finite number of a variant or of a text, within the limits of a numeric node. False, with the reason in `error`,
/// for another.
bool NumberOfValue(const ValueBase &node, const QVariant &value, double *number, QString *error);

/// "5000 is above 3000, the highest value"; null for a number within the limits of the node, or for a node without any.
QString BeyondLimits(const ValueBase &node, double number);
QString BeyondLimits(double lowest, double highest, double number);

/// Sets `error`, which may be null, and gives false.
bool Refuse(const QString &reason, QString *error);

} // namespace KV218
