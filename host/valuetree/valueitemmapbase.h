#pragma once

#include "ihaschangelogvaluetemplate.h"
#include "valuebase.h"

#include <list>
#include <unordered_map>

/// A node that holds items by key. As text it is a list of the items in their order, each as `Format` spells it, with
/// ";" between. `Adapter` tells the key that an item carries itself. The library has one instance,
/// that of ValueCommentedRangeMap.
///
/// Each change notifies with the code stated at the operation, then with ekChangeValue, for those who only ask for
/// news. The end of a transaction notifies with its own code alone.
template <class Item, class Format, class Adapter>
class ORBEL_HOST_EXPORT ValueItemMapBase : public ValueBase,
                                           public valueitemmap::IHasChangeLogValueTemplate<unsigned int>
{
public:
    /// The items by their keys, in no order.
    using Items = std::unordered_map<unsigned int, Item>;

    /// Replaces the content. A text that is no list of items changes nothing.
    void SetStringValue(QString text, IObserver *except) override;
    QString GetStringValue() const override;
    void Assign(const ValueBase &other) override;
    bool Compare(const ValueBase *other) const override;

    /// The items by key; valid until the next change. Keys without large gaps are walked in ascending order, so that a
    /// list that was stored comes back in its order.
    const Items &data() const;
    /// Stores a list under keys that count from 0 in list order, or from the next free key. With `replace` it is the
    /// whole content afterwards, else it is added. With `keepIds` each item is stored under its own key instead; of
    /// equal keys the last one stays. Notifies with ekChangeContent.
    void Set(const std::list<Item> &items, bool replace, bool keepIds, IObserver *except);
    /// Stores the item, as it is, in place of what the key held. Gives the key. Notifies with ekChangeItemSet.
    unsigned int SetAt(unsigned int key, const Item &item, IObserver *except);
    /// Notifies with ekChangeItemErased when there was something.
    void EraseAt(unsigned int key, IObserver *except);
    /// Notifies with ekChangeContent when there was something.
    void Clear(IObserver *except);
    /// A key that holds nothing and that was not given out since the last Clear() or replacing Set().
    unsigned int CreateNewUniqueKey();

protected:
    ValueItemMapBase(const QString &name, TValueState state);
    ~ValueItemMapBase() override;

private:
    void Replace(Items &&content, IObserver *except);
    void SortByKey() const;

    mutable Items Content;
    mutable bool Sorted = true;
    unsigned int NextKey = 0;
};
