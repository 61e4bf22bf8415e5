#include "valuecommentedrangemap.h"

ValueCommentedRangeMap::ValueCommentedRangeMap(QString name, TValueState state) : ValueFrequencyItemMap(name, state) { }

ValueCommentedRangeMap::~ValueCommentedRangeMap()
{
    AnnounceEnd();
}

template class ValueFrequencyItemMap<CommentedRange, CommentedRangeItemFormat, CommentedRangeItemAdapter>;
