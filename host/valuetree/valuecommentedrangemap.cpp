#include "valuecommentedrangemap.h"

#include "numbertext.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

static const QLatin1String RangeSeparator("; ");
static const QLatin1String BoundSeparator("..");

/// The range that a text as "100..200" names.
static std::optional<CommentedRange> TextToRange(const QString &text)
{
    const QStringList bounds = text.split(BoundSeparator);
    double start = 0;
    double stop = 0;
    if (bounds.size() != 2 || !TextToNumber(bounds[0], start) || !TextToNumber(bounds[1], stop))
        return std::nullopt;
    CommentedRange range;
    range.SetRangeStart(start);
    range.SetRangeStop(stop);
    return range;
}

ValueCommentedRangeMap::ValueCommentedRangeMap(QString name, TValueState state) : ValueBase(name, state) { }

ValueCommentedRangeMap::~ValueCommentedRangeMap()
{
    AnnounceEnd();
}

void ValueCommentedRangeMap::SetStringValue(QString text, IObserver *except)
{
    // The same ranges are not stored again: they would lose their comments.
    if (text == GetStringValue())
        return;
    std::list<CommentedRange> ranges;
    const bool none = text.trimmed().isEmpty();
    for (const QString &part : none ? QStringList() : text.split(QLatin1Char(';'))) {
        std::optional<CommentedRange> range = TextToRange(part);
        if (!range)
            return;
        range->SetID(unsigned(ranges.size()));
        ranges.push_back(*range);
    }
    Set(ranges, true, false, except);
}

QString ValueCommentedRangeMap::GetStringValue() const
{
    std::vector<CommentedRange> ranges;
    ranges.reserve(Content.size());
    for (const auto &[key, range] : Content)
        ranges.push_back(range);
    std::sort(ranges.begin(), ranges.end());
    QStringList texts;
    for (const CommentedRange &range : ranges)
        texts << NumberToText(range.GetRangeStart()) + BoundSeparator + NumberToText(range.GetRangeStop());
    return texts.join(RangeSeparator);
}

ValueType ValueCommentedRangeMap::GetType() const
{
    return ekTypeRangeMap;
}

QString ValueCommentedRangeMap::GetTypeName() const
{
    return QStringLiteral("range map");
}

void ValueCommentedRangeMap::Assign(const ValueBase &other)
{
    if (const auto *same = dynamic_cast<const ValueCommentedRangeMap *>(&other))
        Replace(Ranges(same->Content), nullptr);
    else
        SetStringValue(other.GetStringValue(), nullptr);
}

bool ValueCommentedRangeMap::Compare(const ValueBase *other) const
{
    const auto *same = dynamic_cast<const ValueCommentedRangeMap *>(other);
    return same && same->Content == Content;
}

const ValueCommentedRangeMap::Ranges &ValueCommentedRangeMap::data() const
{
    if (!Sorted)
        SortByKey();
    return Content;
}

void ValueCommentedRangeMap::Set(const std::list<CommentedRange> &ranges, bool replace, bool keepIds, IObserver *except)
{
    Ranges content;
    if (replace)
        NextKey = 0;
    else
        content = Content;
    for (const CommentedRange &range : ranges) {
        while (!keepIds && content.count(NextKey))
            ++NextKey;
        content[keepIds ? range.GetID() : NextKey] = range;
    }
    Replace(std::move(content), except);
}

unsigned int ValueCommentedRangeMap::SetAt(unsigned int key, const CommentedRange &range, IObserver *except)
{
    const auto [place, isNew] = Content.try_emplace(key, range);
    if (!isNew && place->second == range)
        return key;
    place->second = range;
    Sorted = Sorted && !isNew;
    Announce({ekChangeItemSet, ekChangeValue}, except);
    return key;
}

void ValueCommentedRangeMap::EraseAt(unsigned int key, IObserver *except)
{
    if (Content.erase(key))
        Announce({ekChangeItemErased, ekChangeValue}, except);
}

void ValueCommentedRangeMap::Clear(IObserver *except)
{
    NextKey = 0;
    Replace(Ranges(), except);
}

unsigned int ValueCommentedRangeMap::CreateNewUniqueKey()
{
    while (Content.count(NextKey))
        ++NextKey;
    return NextKey++;
}

void ValueCommentedRangeMap::Replace(Ranges &&content, IObserver *except)
{
    if (content == Content)
        return;
    Content = std::move(content);
    Sorted = false;
    Announce({ekChangeContent, ekChangeValue}, except);
}

/// The library walks an unordered map from the last insertion to the first, as long as no two keys share a bucket.
void ValueCommentedRangeMap::SortByKey() const
{
    Sorted = true;
    std::vector<unsigned int> keys;
    keys.reserve(Content.size());
    for (const auto &entry : Content)
        keys.push_back(entry.first);
    std::sort(keys.begin(), keys.end(), std::greater<>());
    const size_t span = keys.empty() ? 0 : size_t(keys.front()) + 1;
    Ranges sorted;
    sorted.reserve(span <= 4 * keys.size() + 64 ? span : keys.size());
    for (const unsigned int key : keys)
        sorted.insert(Content.extract(key));
    Content.swap(sorted);
}
