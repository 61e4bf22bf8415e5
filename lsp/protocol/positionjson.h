#pragma once

#include "textrange.h"

#include <QJsonObject>
#include <QJsonValue>

namespace Orbel
{

/// Places as the protocol writes them. What is missing or no number counts as 0.
TextRange RangeFromJson(const QJsonValue &value);
TextPosition PositionFromJson(const QJsonValue &value);
QJsonObject ToJson(TextPosition position);
QJsonObject ToJson(const TextRange &range);

} // namespace Orbel
