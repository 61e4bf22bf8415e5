#pragma once

#include "commentedrangeitemadapter.h"
#include "commentedrangeitemformat.h"
#include "valuefrequencyitemmap.h"

// One instance for all libraries of a process, so that a run-time cast across them works.
extern template class ValueItemMapBase<CommentedRange, CommentedRangeItemFormat, CommentedRangeItemAdapter>;
extern template class ValueFrequencyItemMap<CommentedRange, CommentedRangeItemFormat, CommentedRangeItemAdapter>;

/// A node that holds ranges of frequencies with comments. As text it is a list as "100..200; 300..400" in Hz, in the
/// order of CommentedRange, without the comments.
class ORBEL_HOST_EXPORT ValueCommentedRangeMap
    : public ValueFrequencyItemMap<CommentedRange, CommentedRangeItemFormat, CommentedRangeItemAdapter>
{
public:
    /// The ranges by their keys.
    using Ranges = Items;

    explicit ValueCommentedRangeMap(QString name = QString(), TValueState state = ekStateUsable);
    ~ValueCommentedRangeMap() override;
};
