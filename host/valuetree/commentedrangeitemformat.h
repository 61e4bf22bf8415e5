#pragma once

#include "commentedrange.h"

/// How a range is spelled: "100..200", in Hz, without id and comment.
struct ORBEL_HOST_EXPORT CommentedRangeItemFormat {
    /// The ends, each with the digits that it takes to read back the same number.
    static QString ToText(const CommentedRange &range);
    /// False, and no change, for a text that is no range. Blanks around the numbers do not matter; id and comment stay.
    static bool FromText(const QString &text, CommentedRange &range);
};
