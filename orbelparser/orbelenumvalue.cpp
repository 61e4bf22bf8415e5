#include "orbelenumvalue.h"

#include "formlimits.h"
#include "xmlwalk.h"

namespace KV218
{

OrbelEnumValue::OrbelEnumValue(const QString &displayName, const QString &enumIdentifier, const QString &value)
    : DisplayName(displayName), EnumIdentifier(enumIdentifier), Value(value)
{
}

OrbelEnumValue::~OrbelEnumValue() = default;

double OrbelEnumValue::GetDoubleValue(double fallback) const
{
    bool ok = false;
    const double value = Value.toDouble(&ok);
    return ok ? value : fallback;
}

void OrbelEnumValue::ParseORBEL(QXmlStreamReader &reader)
{
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name == element::DisplayName)
            DisplayName = reader.readElementText().left(limit::ShownText);
        else if (name == element::EnumIdentifier)
            EnumIdentifier = reader.readElementText();
        else if (name == element::Value)
            Value = reader.readElementText();
        else
            reader.skipCurrentElement();
    });
}

} // namespace KV218
