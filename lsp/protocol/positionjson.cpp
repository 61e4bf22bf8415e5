#include "positionjson.h"

namespace Orbel
{

namespace
{

const QString Line = QStringLiteral("line");
const QString Character = QStringLiteral("character");
const QString Start = QStringLiteral("start");
const QString End = QStringLiteral("end");

} // namespace

TextPosition PositionFromJson(const QJsonValue &value)
{
    return {value[Line].toInt(), value[Character].toInt()};
}

TextRange RangeFromJson(const QJsonValue &value)
{
    return {PositionFromJson(value[Start]), PositionFromJson(value[End])};
}

QJsonObject ToJson(TextPosition position)
{
    return {{Line, position.Line}, {Character, position.Character}};
}

QJsonObject ToJson(const TextRange &range)
{
    return {{Start, ToJson(range.From)}, {End, ToJson(range.To)}};
}

} // namespace Orbel
