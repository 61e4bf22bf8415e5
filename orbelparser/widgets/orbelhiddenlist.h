#pragma once

#include "cellgrid.h"
#include "orbeldelegate.h"
#include "propertynames.h"

namespace KV218
{

/// A list of texts that the operator does not see. Class name: `HiddenList`. Items count from 0; `itemCount` says how
/// many there are. A parameter document does not restore the list: use setItemCount() and setItemValue().
class OrbelHiddenList : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelHiddenList(OrbelWidget *widget);

    void CreateValueTree() override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    void TakeValues(const OrbelDelegate &former, const QVariantList &edits) override;

Q_SIGNALS:
    void itemValueChanged(int index, QString value);

public Q_SLOTS:
    /// Drops all items; `itemCount` keeps its value.
    void clear();
    void setItemCount(int count) { ChangeProperty(prop::ItemCount, count); }

public:
    /// Empty for an item that was never set, and for an index out of range.
    Q_INVOKABLE QString itemValue(int index);
    /// Stores a text that differs. An index beyond the length, though not the one right behind the last item, makes the
    /// list longer.
    Q_INVOKABLE void setItemValue(int index, QString value);

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;

private:
    CellGrid Items;
};

} // namespace KV218
