#include "typedvalue.h"

#include "ivaluenumeric.h"
#include "numbertext.h"
#include "valuebase.h"
#include "valueformat.h"

#include <cmath>

namespace KV218
{

bool Refuse(const QString &reason, QString *error)
{
    if (error)
        *error = reason;
    return false;
}

static QString Quoted(const QVariant &value)
{
    return QLatin1Char('"') + value.toString() + QLatin1Char('"');
}

static bool ToBool(const QVariant &value, bool *state)
{
    const int type = value.userType();
    if (type == QMetaType::QString || type == QMetaType::QByteArray)
        return FormatBool<bool>::FromText(value.toString().trimmed(), *state);
    *state = value.toBool();
    return value.canConvert<bool>();
}

QVariant ValueOfText(const ValueBase &node, const QString &text)
{
    double number = 0;
    qint64 whole = 0;
    bool state = false;
    switch (node.GetType()) {
    case ekTypeBoolean:
        FormatBool<bool>::FromText(text, state);
        return state;
    case ekTypeInt:
        Orbel::TextToInteger(text, whole);
        return int(whole);
    case ekTypeInt64:
        Orbel::TextToInteger(text, whole);
        return whole;
    case ekTypeDouble:
        Orbel::TextToNumber(text, number);
        return number;
    default:
        return text;
    }
}

bool NumberOfValue(const ValueBase &node, const QVariant &value, double *number, QString *error)
{
    bool isNumber = false;
    *number = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(*number) || value.userType() == QMetaType::Bool)
        return Refuse(QStringLiteral("%1 is no number").arg(Quoted(value)), error);
    const bool isWhole = node.GetType() == ekTypeDouble || std::trunc(*number) == *number;
    return isWhole || Refuse(QStringLiteral("%1 is no whole number").arg(Orbel::NumberToText(*number)), error);
}

QString BeyondLimits(const ValueBase &node, double number)
{
    const auto *limits = dynamic_cast<const IValueNumeric *>(&node);
    return limits ? BeyondLimits(limits->GetMin(), limits->GetMax(), number) : QString();
}

QString BeyondLimits(double lowest, double highest, double number)
{
    using Orbel::NumberToText;
    if (number > highest)
        return QStringLiteral("%1 is above %2, the highest value").arg(NumberToText(number), NumberToText(highest));
    if (number < lowest)
        return QStringLiteral("%1 is below %2, the lowest value").arg(NumberToText(number), NumberToText(lowest));
    return QString();
}

bool TextOfValue(const ValueBase &node, const QVariant &value, QString *text, QString *error)
{
    if (node.GetType() == ekTypeBoolean) {
        bool state = false;
        if (!ToBool(value, &state))
            return Refuse(QStringLiteral("%1 is neither true nor false").arg(Quoted(value)), error);
        *text = FormatBool<bool>::ToText(state);
        return true;
    }
    if (!value.canConvert<QString>())
        return Refuse(QStringLiteral("A text is wanted, not a %1").arg(QLatin1String(value.typeName())), error);
    *text = value.toString();
    return true;
}

} // namespace KV218
