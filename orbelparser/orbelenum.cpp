#include "orbelenum.h"

#include "formlimits.h"
#include "xmlwalk.h"

#include <algorithm>

namespace KV218
{

namespace
{

template <class Accessor> int FirstIndex(const QList<OrbelEnumValue> &values, Accessor accessor, const QString &text)
{
    const auto found = std::find_if(
        values.cbegin(), values.cend(), [&](const OrbelEnumValue &value) { return (value.*accessor)() == text; });
    return found == values.cend() ? -1 : int(found - values.cbegin());
}

} // namespace

OrbelEnum::OrbelEnum(const QString &name) : Name(name) { }

OrbelEnum::~OrbelEnum() = default;

const OrbelEnumValue &OrbelEnum::GetValueAt(int index) const
{
    return index >= 0 && index < Values.size() ? Values.at(index) : EmptyValue;
}

int OrbelEnum::firstIndexOfValue(const QString &value) const
{
    return FirstIndex(Values, &OrbelEnumValue::GetValue, value);
}

int OrbelEnum::firstIndexOfName(const QString &displayName) const
{
    return FirstIndex(Values, &OrbelEnumValue::GetDisplayName, displayName);
}

const OrbelEnumValue &OrbelEnum::FindValue(const QString &value, bool *found) const
{
    const int index = firstIndexOfValue(value);
    if (found)
        *found = index >= 0;
    // Meant: a miss gives the first row, so an unknown value shows as the first choice.
    return GetValueAt(qMax(0, index));
}

const OrbelEnumValue &OrbelEnum::FindName(const QString &displayName) const
{
    // Meant: a miss gives the first row, so an unknown value shows as the first choice.
    return GetValueAt(qMax(0, firstIndexOfName(displayName)));
}

void OrbelEnum::AppendEnumValue(const QString &displayName, const QString &enumIdentifier, const QString &value)
{
    Values.append(OrbelEnumValue(displayName, enumIdentifier, value));
}

void OrbelEnum::ClearValues()
{
    Values.clear();
}

void OrbelEnum::ParseORBEL(QXmlStreamReader &reader)
{
    Name = reader.attributes().value(attribute::Name).toString();
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name != element::EnumValue || Values.size() >= limit::EnumRows) {
            reader.skipCurrentElement();
            return;
        }
        OrbelEnumValue value;
        value.ParseORBEL(reader);
        Values.append(value);
    });
}

} // namespace KV218
