#pragma once

#include "orbelenumvalue.h"

#include <QList>
#include <QSharedData>

namespace KV218
{

/// A named list of choices. Rows keep the order of the definition and count from 0; equal rows are kept. Shared through
/// QExplicitlySharedDataPointer.
class ORBEL_EXPORT OrbelEnum : public QSharedData
{
public:
    OrbelEnum() = default;
    explicit OrbelEnum(const QString &name);
    /// Copies name and rows; the copy is not shared yet.
    OrbelEnum(const OrbelEnum &other) = default;
    virtual ~OrbelEnum();

    /// The `name` of the definition, and the number of rows.
    const QString &GetName() const { return Name; }
    int GetValueCount() const { return Values.size(); }
    /// The row, or an empty one for an index out of range; valid as long as the enumeration is not changed.
    const OrbelEnumValue &GetValueAt(int index) const;
    /// The lowest index whose value text, or display name, equals the text in the same case; -1 without one.
    int firstIndexOfValue(const QString &value) const;
    int firstIndexOfName(const QString &displayName) const;
    /// The first row with that value text, or display name. Without one the *first* row, and an empty one only when
    /// there is no row at all; `found`, unless null, tells the cases apart.
    const OrbelEnumValue &FindValue(const QString &value, bool *found) const;
    const OrbelEnumValue &FindName(const QString &displayName) const;

    /// Adds a row at the end; equal ones are kept.
    void AppendEnumValue(const QString &displayName, const QString &enumIdentifier, const QString &value);
    /// Drops the rows and keeps the name.
    void ClearValues();

    /// Reads name and rows of the `Enum` element on which `reader` stands; rows are appended.
    void ParseORBEL(QXmlStreamReader &reader);

private:
    QString Name;
    QList<OrbelEnumValue> Values;
    OrbelEnumValue EmptyValue;
};

} // namespace KV218
