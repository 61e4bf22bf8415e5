#pragma once

#include "ivaluefrequencyitemmap.h"
#include "valueitemmapbase.h"

/// A node that holds ranges of frequencies by key.
template <class Item, class Format, class Adapter>
class ORBEL_HOST_EXPORT ValueFrequencyItemMap : public ValueItemMapBase<Item, Format, Adapter>,
                                                public IValueFrequencyItemMap
{
public:
    explicit ValueFrequencyItemMap(const QString &name, TValueState state = ekStateUsable)
        : ValueItemMapBase<Item, Format, Adapter>(name, state)
    {
    }
    ~ValueFrequencyItemMap() override { this->AnnounceEnd(); }

    ValueType GetType() const override { return ekTypeRangeMap; }
    QString GetTypeName() const override { return QStringLiteral("range map"); }
};
