#pragma once

#include "commentedrange.h"
#include "valuebase.h"

#include <list>
#include <unordered_map>

/// A node that holds ranges of frequencies by key. As text it is a list as "100..200; 300..400" in Hz, in the order of
/// CommentedRange, without the comments.
///
/// Each change notifies with the code told at the operation, then with ekChangeValue, for those who only ask for news.
/// The end of a transaction notifies with its own code alone.
class ORBEL_HOST_EXPORT ValueCommentedRangeMap : public ValueBase
{
public:
    using Ranges = std::unordered_map<unsigned int, CommentedRange>;

    explicit ValueCommentedRangeMap(QString name = QString(), TValueState state = ekStateUsable);
    ~ValueCommentedRangeMap() override;

    /// Replaces the content. A text that is no list of ranges changes nothing.
    void SetStringValue(QString text, IObserver *except) override;
    QString GetStringValue() const override;
    ValueType GetType() const override;
    QString GetTypeName() const override;
    void Assign(const ValueBase &other) override;
    bool Compare(const ValueBase *other) const override;

    /// The ranges by key; valid until the next change. Keys without large gaps are walked in ascending order, so that a
    /// list that was stored comes back in its order.
    const Ranges &data() const;
    /// Stores a list under keys that count from 0 in list order, or from the next free key. With `replace` it is the
    /// whole content afterwards, else it is added. With `keepIds` each range is stored under its own id instead; of
    /// equal ids the last one stays. Notifies with ekChangeContent.
    void Set(const std::list<CommentedRange> &ranges, bool replace, bool keepIds, IObserver *except);
    /// Stores the range, as it is, in place of what the key held. Gives the key. Notifies with ekChangeItemSet.
    unsigned int SetAt(unsigned int key, const CommentedRange &range, IObserver *except);
    /// Notifies with ekChangeItemErased when there was something.
    void EraseAt(unsigned int key, IObserver *except);
    /// Notifies with ekChangeContent when there was something.
    void Clear(IObserver *except);
    /// A key that holds nothing and that was not given out since the last Clear().
    unsigned int CreateNewUniqueKey();

private:
    void Replace(Ranges &&content, IObserver *except);
    void SortByKey() const;

    mutable Ranges Content;
    mutable bool Sorted = true;
    unsigned int NextKey = 0;
};
