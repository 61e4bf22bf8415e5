#pragma once

#include "hostexport.h"

#include <QString>

/// One item of a ValueSelection: the name that operators see, untranslated, a number, and a key. It never changes.
class ORBEL_HOST_EXPORT SelectionItem
{
public:
    explicit SelectionItem(const QString &name, double value = 0.0, long key = 0);
    SelectionItem(const SelectionItem &) = default;
    SelectionItem &operator=(const SelectionItem &) = delete;
    virtual ~SelectionItem();

    /// What the item was made of; the name is not translated.
    QString GetName() const { return Name; }
    double GetValue() const { return Value; }
    long GetKey() const { return Key; }

    /// Items are equal when name, value and key are.
    bool operator==(const SelectionItem &other) const;
    bool operator!=(const SelectionItem &other) const { return !(*this == other); }

private:
    QString Name;
    double Value;
    long Key;
};
