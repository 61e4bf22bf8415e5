#include "valueselection.h"

#include <algorithm>
#include <cmath>

static constexpr size_t ManyItems = 16; // from here on a search would cost more than an index

static QString ItemName(const SelectionItem &item)
{
    return item.GetName();
}

static long ItemKey(const SelectionItem &item)
{
    return item.GetKey();
}

static double ItemValue(const SelectionItem &item)
{
    return item.GetValue();
}

ValueSelection::ValueSelection(const QString &name, TValueState state) : ValueBase(name, state) { }

ValueSelection::~ValueSelection()
{
    AnnounceEnd();
}

void ValueSelection::SetStringValue(QString text, IObserver *except)
{
    Select(text, except);
}

QString ValueSelection::GetStringValue() const
{
    return Current ? Current->GetName() : QString();
}

ValueType ValueSelection::GetType() const
{
    return ekTypeSelection;
}

QString ValueSelection::GetTypeName() const
{
    return QStringLiteral("selection");
}

void ValueSelection::Assign(const ValueBase &other)
{
    const auto *same = dynamic_cast<const ValueSelection *>(&other);
    if (!same) {
        SetStringValue(other.GetStringValue(), nullptr);
        return;
    }
    if (Compare(same))
        return;
    const std::vector<std::unique_ptr<SelectionItem>> former = std::move(Items);
    const SelectionItem *before = Current;
    Items.clear();
    Current = nullptr;
    RebuildIndex();
    for (const auto &item : same->Items)
        Append(std::make_unique<SelectionItem>(*item));
    if (same->Current)
        Current = GetItemIndex(same->GetCurrentIndex());
    AnnounceItems(before, nullptr);
}

bool ValueSelection::Compare(const ValueBase *other) const
{
    const auto *same = dynamic_cast<const ValueSelection *>(other);
    return same && GetCurrentIndex() == same->GetCurrentIndex()
        && std::equal(Items.begin(), Items.end(), same->Items.begin(), same->Items.end(),
            [](const auto &left, const auto &right) { return *left == *right; });
}

SelectionItem *ValueSelection::GetCurrentItem() const
{
    return Current;
}

bool ValueSelection::Select(long key, IObserver *except)
{
    return MakeCurrent(GetItem(key), except);
}

bool ValueSelection::Select(double value, IObserver *except, bool exact)
{
    if (exact || std::isnan(value))
        return MakeCurrent(GetItem(value), except);
    return MakeCurrent(FromValue(value), except);
}

bool ValueSelection::Select(const wchar_t *name, IObserver *except)
{
    return name && Select(QString::fromWCharArray(name), except);
}

bool ValueSelection::Select(const QString &name, IObserver *except)
{
    return MakeCurrent(GetItem(name), except);
}

void ValueSelection::AddItems(const QStringList &names, IObserver *except)
{
    if (names.isEmpty())
        return;
    const SelectionItem *before = Current;
    for (const QString &name : names) {
        const long position = GetItemCount();
        Append(std::make_unique<SelectionItem>(name, double(position), position + 1));
    }
    AnnounceItems(before, except);
}

void ValueSelection::AddItem(const QString &name, double value, long key, IObserver *except)
{
    AddItem(new SelectionItem(name, value, key), except);
}

void ValueSelection::AddItem(SelectionItem *item, IObserver *except)
{
    if (!item)
        return;
    const SelectionItem *before = Current;
    Append(std::unique_ptr<SelectionItem>(item));
    AnnounceItems(before, except);
}

void ValueSelection::AddItemsFrom(const ValueSelection &other, IObserver *except)
{
    // Counted before, since the other one may be this one.
    const size_t count = other.Items.size();
    if (count == 0)
        return;
    const SelectionItem *before = Current;
    for (size_t i = 0; i < count; ++i)
        Append(std::make_unique<SelectionItem>(*other.Items[i]));
    AnnounceItems(before, except);
}

void ValueSelection::DeleteItem(SelectionItem *item, IObserver *except)
{
    const auto found = std::find_if(Items.begin(), Items.end(), [item](const auto &own) { return own.get() == item; });
    if (found == Items.end())
        return;
    const SelectionItem *before = Current;
    // Kept until all have been notified, so that nobody reads a deleted item in between.
    const std::unique_ptr<SelectionItem> former = std::move(*found);
    Items.erase(found);
    if (Current == item)
        Current = GetItemIndex(0);
    RemoveFromIndex(item);
    AnnounceItems(before, except);
}

void ValueSelection::DeleteItems(IObserver *except)
{
    if (Items.empty())
        return;
    // As in DeleteItem().
    const std::vector<std::unique_ptr<SelectionItem>> former = std::move(Items);
    const SelectionItem *before = Current;
    Items.clear();
    Current = nullptr;
    RebuildIndex();
    AnnounceItems(before, except);
}

long ValueSelection::GetItemCount() const
{
    return long(Items.size());
}

SelectionItem *ValueSelection::GetItemIndex(long position) const
{
    return position >= 0 && position < GetItemCount() ? Items[size_t(position)].get() : nullptr;
}

SelectionItem *ValueSelection::GetItem(const QString &name) const
{
    return Long ? Long->ByName.value(name) : First(ItemName, name);
}

SelectionItem *ValueSelection::GetItem(double value) const
{
    // A number that is none equals no other, but a map has no order for it.
    return Long && !std::isnan(value) ? Long->ByValue.value(value) : First(ItemValue, value);
}

SelectionItem *ValueSelection::GetItem(long key) const
{
    return Long ? Long->ByKey.value(key) : First(ItemKey, key);
}

double ValueSelection::GetCurrentValue() const
{
    return Current ? Current->GetValue() : 0.0;
}

long ValueSelection::GetKeyForItemName(const QString &name) const
{
    const SelectionItem *item = GetItem(name);
    return item ? item->GetKey() : -1;
}

QString ValueSelection::GetItemNameForKey(long key) const
{
    const SelectionItem *item = GetItem(key);
    return item ? item->GetName() : QString();
}

long ValueSelection::GetCurrentIndex() const
{
    const auto found
        = std::find_if(Items.begin(), Items.end(), [this](const auto &item) { return item.get() == Current; });
    return found == Items.end() ? -1 : long(found - Items.begin());
}

bool ValueSelection::SelectIndex(long position, IObserver *except)
{
    return MakeCurrent(GetItemIndex(position), except);
}

bool ValueSelection::MakeCurrent(SelectionItem *item, IObserver *except)
{
    if (item && item != Current) {
        Current = item;
        Announce({ekChangeValue}, except);
    }
    return item;
}

void ValueSelection::Append(std::unique_ptr<SelectionItem> item)
{
    if (!Current)
        Current = item.get();
    Items.push_back(std::move(item));
    if (Long)
        AddToIndex(Items.back().get());
    else if (Items.size() == ManyItems)
        RebuildIndex();
}

void ValueSelection::AnnounceItems(const SelectionItem *before, IObserver *except)
{
    if (Current == before)
        Announce({ekChangeItems}, except);
    else
        Announce({ekChangeItems, ekChangeValue}, except);
}

template <class KeyOf, class Key> SelectionItem *ValueSelection::First(KeyOf keyOf, const Key &key) const
{
    const auto first = std::find_if(Items.begin(), Items.end(), [&](const auto &item) { return keyOf(*item) == key; });
    return first == Items.end() ? nullptr : first->get();
}

/// The item with the least value from `value` on, the first one of several.
SelectionItem *ValueSelection::FromValue(double value) const
{
    if (Long) {
        const auto found = Long->ByValue.lowerBound(value);
        return found == Long->ByValue.end() ? nullptr : *found;
    }
    SelectionItem *least = nullptr;
    for (const auto &item : Items) {
        if (item->GetValue() >= value && (!least || item->GetValue() < least->GetValue()))
            least = item.get();
    }
    return least;
}

void ValueSelection::AddToIndex(SelectionItem *item)
{
    if (!Long->ByName.contains(item->GetName()))
        Long->ByName.insert(item->GetName(), item);
    if (!Long->ByKey.contains(item->GetKey()))
        Long->ByKey.insert(item->GetKey(), item);
    // A number that is none has no order among the others and cannot be looked for.
    if (!std::isnan(item->GetValue()) && !Long->ByValue.contains(item->GetValue()))
        Long->ByValue.insert(item->GetValue(), item);
}

/// Where the item stood in the index, the next one with the same key of that index takes its place.
void ValueSelection::RemoveFromIndex(const SelectionItem *item)
{
    if (!Long)
        return;
    const auto remove = [&](auto &index, const auto &key, auto keyOf) {
        if (index.value(key) != item)
            return;
        if (SelectionItem *next = First(keyOf, key))
            index.insert(key, next);
        else
            index.remove(key);
    };
    remove(Long->ByName, item->GetName(), ItemName);
    remove(Long->ByKey, item->GetKey(), ItemKey);
    if (!std::isnan(item->GetValue()))
        remove(Long->ByValue, item->GetValue(), ItemValue);
}

void ValueSelection::RebuildIndex()
{
    Long.reset();
    if (Items.size() < ManyItems)
        return;
    Long = std::make_unique<Index>();
    for (const auto &item : Items)
        AddToIndex(item.get());
}
