#pragma once

#include "selectionitem.h"
#include "valuebase.h"

#include <QHash>
#include <QMap>
#include <QStringList>

#include <memory>
#include <vector>

/// A node that holds a list of items, one of which is current. The first item that is added becomes current, and so
/// does the first one left when the current one is deleted; only an empty selection has none.
///
/// Names, values and keys may occur twice: the first item in list order counts. Look-ups cost constant, by value
/// logarithmic time. Changed items notify with ekChangeItems, then with ekChangeValue if the current item changed by
/// it.
class ORBEL_HOST_EXPORT ValueSelection : public ValueBase
{
public:
    explicit ValueSelection(const QString &name, TValueState state = ekStateUsable);
    ~ValueSelection() override;

    /// Selects the item of that name, if there is one.
    void SetStringValue(QString text, IObserver *except) override;
    /// The current item's name; empty when there is none.
    QString GetStringValue() const override;
    ValueType GetType() const override;
    QString GetTypeName() const override;
    void Assign(const ValueBase &other) override;
    bool Compare(const ValueBase *other) const override;

    /// Null when there are no items. Owned by the selection, as all items that it gives.
    virtual SelectionItem *GetCurrentItem() const;
    /// Makes the item of that key current. False, and no change, when there is none.
    virtual bool Select(long key, IObserver *except);
    /// Makes the item with the least value not below `value` current, with `exact` only one that has this very value.
    /// False, and no change, when there is none.
    virtual bool Select(double value, IObserver *except, bool exact);
    virtual bool Select(const wchar_t *name, IObserver *except);
    virtual bool Select(const QString &name, IObserver *except);
    /// Appends one item for each name, with values counting from 0 and keys from 1 by position in the whole list.
    virtual void AddItems(const QStringList &names, IObserver *except);
    virtual void AddItem(const QString &name, double value, long key, IObserver *except);
    /// Appends the item and owns it; null does nothing.
    virtual void AddItem(SelectionItem *item, IObserver *except);
    virtual void AddItemsFrom(const ValueSelection &other, IObserver *except);
    /// Deletes the item; one that is not in this selection is left alone.
    virtual void DeleteItem(SelectionItem *item, IObserver *except);
    virtual void DeleteItems(IObserver *except);
    virtual long GetItemCount() const;
    /// The item at a position from 0; null out of range.
    virtual SelectionItem *GetItemIndex(long position) const;
    /// The item by name, by its very value, by key; null when there is none.
    virtual SelectionItem *GetItem(const QString &name) const;
    virtual SelectionItem *GetItem(double value) const;
    virtual SelectionItem *GetItem(long key) const;
    /// The current item's value; 0 when there is none.
    virtual double GetCurrentValue() const;
    /// -1 when there is no such item.
    virtual long GetKeyForItemName(const QString &name) const;
    /// Empty when there is no such item.
    virtual QString GetItemNameForKey(long key) const;

    /// Position of the current item from 0, -1 when there is none. Costs time by the number of items.
    long GetCurrentIndex() const;
    /// Makes the item at a position from 0 current. False, and no change, out of range.
    bool SelectIndex(long position, IObserver *except);

private:
    bool MakeCurrent(SelectionItem *item, IObserver *except);
    void Append(std::unique_ptr<SelectionItem> item);
    void AnnounceItems(const SelectionItem *before, IObserver *except);
    template <class KeyOf, class Key> SelectionItem *First(KeyOf keyOf, const Key &key) const;
    SelectionItem *FromValue(double value) const;
    void AddToIndex(SelectionItem *item);
    void RemoveFromIndex(const SelectionItem *item);
    void RebuildIndex();

    /// The first item of each name, key and value.
    struct Index {
        QHash<QString, SelectionItem *> ByName;
        QHash<long, SelectionItem *> ByKey;
        QMap<double, SelectionItem *> ByValue;
    };

    std::vector<std::unique_ptr<SelectionItem>> Items;
    SelectionItem *Current = nullptr;
    /// Only for a long list; those of forms are mostly short.
    std::unique_ptr<Index> Long;
};
