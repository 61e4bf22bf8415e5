#include "valueselection.h"

#include <algorithm>
#include <cmath>

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
    const auto found = ByValue.lowerBound(value);
    return MakeCurrent(found == ByValue.end() ? nullptr : *found, except);
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
    // Kept until all have been told, so that nobody reads a deleted item in between.
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
    return ByName.value(name);
}

SelectionItem *ValueSelection::GetItem(double value) const
{
    return std::isnan(value) ? nullptr : ByValue.value(value);
}

SelectionItem *ValueSelection::GetItem(long key) const
{
    return ByKey.value(key);
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
    AddToIndex(item.get());
    if (!Current)
        Current = item.get();
    Items.push_back(std::move(item));
}

void ValueSelection::AnnounceItems(const SelectionItem *before, IObserver *except)
{
    if (Current == before)
        Announce({ekChangeItems}, except);
    else
        Announce({ekChangeItems, ekChangeValue}, except);
}

void ValueSelection::AddToIndex(SelectionItem *item)
{
    if (!ByName.contains(item->GetName()))
        ByName.insert(item->GetName(), item);
    if (!ByKey.contains(item->GetKey()))
        ByKey.insert(item->GetKey(), item);
    // A number that is none has no order among the others and cannot be looked for.
    if (!std::isnan(item->GetValue()) && !ByValue.contains(item->GetValue()))
        ByValue.insert(item->GetValue(), item);
}

/// Where the item stood in the index, the next one with the same key of that index takes its place.
void ValueSelection::RemoveFromIndex(const SelectionItem *item)
{
    const auto remove = [&](auto &index, const auto &key, auto keyOf) {
        if (index.value(key) != item)
            return;
        const auto next
            = std::find_if(Items.begin(), Items.end(), [&](const auto &other) { return keyOf(*other) == key; });
        if (next == Items.end())
            index.remove(key);
        else
            index.insert(key, next->get());
    };
    remove(ByName, item->GetName(), [](const SelectionItem &other) { return other.GetName(); });
    remove(ByKey, item->GetKey(), [](const SelectionItem &other) { return other.GetKey(); });
    if (!std::isnan(item->GetValue()))
        remove(ByValue, item->GetValue(), [](const SelectionItem &other) { return other.GetValue(); });
}

void ValueSelection::RebuildIndex()
{
    ByName.clear();
    ByKey.clear();
    ByValue.clear();
    for (const auto &item : Items)
        AddToIndex(item.get());
}
