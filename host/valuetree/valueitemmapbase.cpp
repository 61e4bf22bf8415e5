#include "valueitemmapbase.h"

#include "commentedrangeitemadapter.h"
#include "commentedrangeitemformat.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <vector>

static const QLatin1Char ItemSeparator(';');

template <class Item, class Format, class Adapter>
ValueItemMapBase<Item, Format, Adapter>::ValueItemMapBase(const QString &name, TValueState state)
    : ValueBase(name, state)
{
}

template <class Item, class Format, class Adapter>
ValueItemMapBase<Item, Format, Adapter>::~ValueItemMapBase() = default;

template <class Item, class Format, class Adapter>
void ValueItemMapBase<Item, Format, Adapter>::SetStringValue(QString text, IObserver *except)
{
    // The same items are not stored again: they would lose what the text does not tell.
    if (text == GetStringValue())
        return;
    std::list<Item> items;
    const bool none = text.trimmed().isEmpty();
    for (const QString &part : none ? QStringList() : text.split(ItemSeparator)) {
        Item item;
        if (!Format::FromText(part, item))
            return;
        Adapter::SetKey(item, unsigned(items.size()));
        items.push_back(item);
    }
    Set(items, true, false, except);
}

template <class Item, class Format, class Adapter>
QString ValueItemMapBase<Item, Format, Adapter>::GetStringValue() const
{
    std::vector<Item> items;
    items.reserve(Content.size());
    for (const auto &[key, item] : Content)
        items.push_back(item);
    std::sort(items.begin(), items.end());
    QStringList texts;
    for (const Item &item : items)
        texts << Format::ToText(item);
    return texts.join(ItemSeparator + QStringLiteral(" "));
}

template <class Item, class Format, class Adapter>
void ValueItemMapBase<Item, Format, Adapter>::Assign(const ValueBase &other)
{
    if (const auto *same = dynamic_cast<const ValueItemMapBase *>(&other))
        Replace(Items(same->Content), nullptr);
    else
        SetStringValue(other.GetStringValue(), nullptr);
}

template <class Item, class Format, class Adapter>
bool ValueItemMapBase<Item, Format, Adapter>::Compare(const ValueBase *other) const
{
    const auto *same = dynamic_cast<const ValueItemMapBase *>(other);
    return same && same->Content == Content;
}

template <class Item, class Format, class Adapter>
auto ValueItemMapBase<Item, Format, Adapter>::data() const -> const Items &
{
    if (!Sorted)
        SortByKey();
    return Content;
}

template <class Item, class Format, class Adapter>
void ValueItemMapBase<Item, Format, Adapter>::Set(
    const std::list<Item> &items, bool replace, bool keepIds, IObserver *except)
{
    Items content;
    if (replace)
        NextKey = 0;
    else
        content = Content;
    for (const Item &item : items) {
        while (!keepIds && content.count(NextKey))
            ++NextKey;
        content[keepIds ? Adapter::GetKey(item) : NextKey] = item;
    }
    Replace(std::move(content), except);
}

template <class Item, class Format, class Adapter>
unsigned int ValueItemMapBase<Item, Format, Adapter>::SetAt(unsigned int key, const Item &item, IObserver *except)
{
    const auto [place, isNew] = Content.try_emplace(key, item);
    if (!isNew && place->second == item)
        return key;
    place->second = item;
    Sorted = Sorted && !isNew;
    Announce({ekChangeItemSet, ekChangeValue}, except);
    return key;
}

template <class Item, class Format, class Adapter>
void ValueItemMapBase<Item, Format, Adapter>::EraseAt(unsigned int key, IObserver *except)
{
    if (Content.erase(key))
        Announce({ekChangeItemErased, ekChangeValue}, except);
}

template <class Item, class Format, class Adapter>
void ValueItemMapBase<Item, Format, Adapter>::Clear(IObserver *except)
{
    NextKey = 0;
    Replace(Items(), except);
}

template <class Item, class Format, class Adapter>
unsigned int ValueItemMapBase<Item, Format, Adapter>::CreateNewUniqueKey()
{
    while (Content.count(NextKey))
        ++NextKey;
    return NextKey++;
}

template <class Item, class Format, class Adapter>
void ValueItemMapBase<Item, Format, Adapter>::Replace(Items &&content, IObserver *except)
{
    if (content == Content)
        return;
    Content = std::move(content);
    Sorted = false;
    Announce({ekChangeContent, ekChangeValue}, except);
}

/// The library walks an unordered map from the last insertion to the first, as long as no two keys share a bucket.
template <class Item, class Format, class Adapter> void ValueItemMapBase<Item, Format, Adapter>::SortByKey() const
{
    Sorted = true;
    std::vector<unsigned int> keys;
    keys.reserve(Content.size());
    for (const auto &entry : Content)
        keys.push_back(entry.first);
    std::sort(keys.begin(), keys.end(), std::greater<>());
    const size_t span = keys.empty() ? 0 : size_t(keys.front()) + 1;
    Items sorted;
    sorted.reserve(span <= 4 * keys.size() + 64 ? span : keys.size());
    for (const unsigned int key : keys)
        sorted.insert(Content.extract(key));
    Content.swap(sorted);
}

template class ValueItemMapBase<CommentedRange, CommentedRangeItemFormat, CommentedRangeItemAdapter>;
