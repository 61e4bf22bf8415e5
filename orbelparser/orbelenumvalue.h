#pragma once

#include "orbelexport.h"

#include <QString>

class QXmlStreamReader;

namespace KV218
{

/// One row of an enumeration. The display name is what the operator reads, the identifier what scripts write, the value
/// text what parameter documents carry.
class ORBEL_EXPORT OrbelEnumValue
{
public:
    OrbelEnumValue() = default;
    OrbelEnumValue(const QString &displayName, const QString &enumIdentifier, const QString &value);
    OrbelEnumValue(const OrbelEnumValue &) = default;
    OrbelEnumValue &operator=(const OrbelEnumValue &) = default;
    virtual ~OrbelEnumValue();

    /// As they stand in the definition; empty for what is missing.
    const QString &GetDisplayName() const { return DisplayName; }
    const QString &GetEnumIdentifier() const { return EnumIdentifier; }
    const QString &GetValue() const { return Value; }
    /// The value text as a number, with the decimal point of C; `fallback` when it is none.
    double GetDoubleValue(double fallback) const;

    /// Reads the children of the `EnumValue` element in which `reader` stands; texts are taken as they stand.
    void ParseORBEL(QXmlStreamReader &reader);

private:
    QString DisplayName;
    QString EnumIdentifier;
    QString Value;
};

} // namespace KV218
