#pragma once

#include "commentedrange.h"

/// How a map reaches the key that an item carries itself.
struct ORBEL_HOST_EXPORT CommentedRangeItemAdapter {
    /// The id of the range.
    static unsigned int GetKey(const CommentedRange &range) { return range.GetID(); }
    static void SetKey(CommentedRange &range, unsigned int key) { range.SetID(key); }
};
