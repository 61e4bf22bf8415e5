#pragma once

#include <QtGlobal>

/// What the arrangement knows of one item. Sizes are pixels.
struct FloatGroupItem {
    /// How an item takes part; flags add up.
    enum Flag {
        ItemGroup = 1, ///< starts a row, at the left edge of its screen column
        ItemSection = 2, ///< is the line over a section, across its screen column
        ItemLabel = 4, ///< is a row label: as wide as the label column, and at most 24 high
        ItemSpecial = 8, ///< keeps its own width, and does not count for the control column
        ItemList = 16 ///< is a widget whose own layout holds a list; the widgets in it get its width as their minimum
    };

    int flags = 0;
    /// The item's size hint. One without height is invisible and makes its row no higher.
    int width = 0;
    int height = 0;
    /// The gap that a section line wants above itself; of no meaning in other items.
    int topMargin = 0;

    bool operator==(const FloatGroupItem &other) const
    {
        return flags == other.flags && width == other.width && height == other.height && topMargin == other.topMargin;
    }
};
Q_DECLARE_TYPEINFO(FloatGroupItem, Q_PRIMITIVE_TYPE);
