#include "floatgrouparranger.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int LabelHeightLimit = 24;

/// Far beyond any screen, and so small that a handful of such lengths can be added up.
constexpr int PixelLimit = 1 << 28;

int Bounded(int pixels)
{
    return qBound(-PixelLimit, pixels, PixelLimit);
}

void Widen(int &width, int other)
{
    width = qMax(width, other);
}

} // namespace

FloatGroupArranger::FloatGroupArranger(QVector<FloatGroupItem> measuredItems, int between, int below)
    : Items(std::move(measuredItems)), HorizontalSpacing(Bounded(between)), VerticalSpacing(Bounded(below))
{
    for (FloatGroupItem &item : Items) {
        item.width = Bounded(item.width);
        item.height = Bounded(item.height);
        item.topMargin = Bounded(item.topMargin);
    }
}

void FloatGroupArranger::arrange(int width, int columnCount)
{
    const Columns sections = scanItems();
    if (columnCount < 1 || columnCount > sections.size())
        columnCount = sections.size();
    width = Bounded(width);
    scanSections(sections, columnCount, width);
    arrangeItems(width);
}

FloatGroupArranger::Columns FloatGroupArranger::scanItems() const
{
    Columns sections;
    FloatGroupColumn section;
    int rowSum = 0;
    int rowPosition = 0;
    for (int i = 0; i < Items.size(); ++i) {
        const FloatGroupItem &item = Items.at(i);
        if (i > 0 && (item.flags & FloatGroupItem::ItemSection) && !skipSection(i)) {
            sections.append(section);
            section = FloatGroupColumn();
            section.firstItem = i;
        }
        if (item.flags & FloatGroupItem::ItemGroup) {
            rowSum = 0;
            rowPosition = 0;
        }
        if (item.flags & FloatGroupItem::ItemLabel) {
            Widen(section.labelWidth, item.width);
        } else if (item.flags & FloatGroupItem::ItemSection) {
            Widen(section.sectionWidth, item.width + HorizontalSpacing);
        } else {
            rowSum = Bounded(rowSum + item.width + HorizontalSpacing);
            Widen(section.rowWidth, rowSum);
            // Meant: a control without a label stands first in its row and is not measured into the control column.
            if (rowPosition == 1 && !(item.flags & FloatGroupItem::ItemSpecial))
                Widen(section.controlWidth, item.width);
        }
        ++rowPosition;
    }
    sections.append(section);
    return sections;
}

/// Whether a section line opens no section of its own: when nothing visible stands between it and the line before, or
/// neither a line nor anything visible behind it. The searches end at the neighbouring lines, so that all lines
/// together cost one pass; items that are no lines must not ask.
bool FloatGroupArranger::skipSection(int index) const
{
    for (int i = index - 1; i >= 0; --i) {
        if (Items.at(i).flags & FloatGroupItem::ItemSection)
            return true;
        if (Items.at(i).height > 0)
            break;
    }
    for (int i = index + 1; i < Items.size(); ++i) {
        if ((Items.at(i).flags & FloatGroupItem::ItemSection) || Items.at(i).height > 0)
            return false;
    }
    return true;
}

void FloatGroupArranger::scanSections(const Columns &sections, int columnCount, int width)
{
    // Each retry that fails raises the number of sections in a column, the quotient n / columnCount taken upward. It
    // takes fewer than 2 * sqrt(n) values, and so there are no more retries than that.
    int fitting = dealSections(sections, columnCount, width);
    while (fitting < columnCount) {
        columnCount = fitting;
        fitting = dealSections(sections, columnCount, width);
    }
}

/// One attempt with that many screen columns. Gives the number of columns that stood when one was too wide, or all.
int FloatGroupArranger::dealSections(const Columns &sections, int columnCount, int width)
{
    const int sectionsPerColumn = (sections.size() + columnCount - 1) / columnCount;
    ScreenColumns.clear();
    int left = 0;
    for (int i = 0; i < columnCount; ++i) {
        FloatGroupColumn next = joinSections(sections, i * sectionsPerColumn, sectionsPerColumn);
        next.left = left;
        const int rows = next.labelWidth + next.rowWidth + 2 * HorizontalSpacing;
        left = Bounded(left + Bounded(qMax(rows, next.sectionWidth)));
        // Meant: a column that ends exactly on the width is too wide, and an empty one takes its spacings.
        if (i > 0 && left >= width)
            return i;
        ScreenColumns.append(next);
    }
    return columnCount;
}

/// A screen column of up to `count` sections, fewer or none at the end of the sections.
FloatGroupColumn FloatGroupArranger::joinSections(const Columns &sections, int first, int count) const
{
    FloatGroupColumn joined;
    joined.firstItem = first < sections.size() ? sections.at(first).firstItem : Items.size();
    const int end = qMin(first + count, sections.size());
    for (int i = first; i < end; ++i) {
        const FloatGroupColumn &section = sections.at(i);
        Widen(joined.labelWidth, section.labelWidth);
        Widen(joined.controlWidth, section.controlWidth);
        Widen(joined.rowWidth, section.rowWidth);
        Widen(joined.sectionWidth, section.sectionWidth);
    }
    return joined;
}

void FloatGroupArranger::arrangeItems(int width)
{
    Rectangles.resize(Items.size());
    for (int i = 0; i < Items.size(); ++i) {
        const FloatGroupItem &item = Items.at(i);
        if (item.flags & FloatGroupItem::ItemGroup)
            startRow();
        else
            X = Bounded(X + Advance);
        int itemWidth = widthInColumn(item);
        if (item.flags & FloatGroupItem::ItemLabel)
            Label = i;
        if (item.flags & FloatGroupItem::ItemSection)
            itemWidth = startSection(i, width);
        if (X > 0 && itemWidth + X > width) {
            // Meant: what does not fit goes to the left of the whole form, not of its column.
            Y = Bounded(Y + RowHeight);
            RowHeight = 0;
            X = 0;
        }
        placeItem(i, itemWidth);
    }
    settleLabel();
}

void FloatGroupArranger::startRow()
{
    settleLabel();
    Y = Bounded(Y + RowHeight);
    X = ScreenColumns.at(Column).left;
    RowHeight = 0;
}

/// A label is as high as its row, vertical spacing included, up to a limit.
void FloatGroupArranger::settleLabel()
{
    if (Label >= 0)
        Rectangles[Label].setHeight(qMin(RowHeight, LabelHeightLimit));
    Label = -1;
}

/// Goes on in the screen column that holds the section line `item`; gives the width of the line.
int FloatGroupArranger::startSection(int item, int width)
{
    if (item > 0)
        Y = Bounded(Y + Items.at(item).topMargin);
    ScreenColumns[Column].flowY = Y;
    Column = getSectionIndex(item);
    const FloatGroupColumn &entered = ScreenColumns.at(Column);
    X = entered.left;
    Y = entered.flowY;
    const int line = Bounded(qMax(entered.labelWidth + entered.rowWidth, entered.sectionWidth));
    return line > width ? qMax(width, Bounded(Right)) : line;
}

int FloatGroupArranger::getSectionIndex(int item) const
{
    const auto startsBehind = [](int index, const FloatGroupColumn &candidate) { return index < candidate.firstItem; };
    // The first column holds what no other does.
    const auto next = std::upper_bound(ScreenColumns.begin() + 1, ScreenColumns.end(), item, startsBehind);
    return int(next - ScreenColumns.begin()) - 1;
}

int FloatGroupArranger::widthInColumn(const FloatGroupItem &item) const
{
    if (item.flags & FloatGroupItem::ItemLabel)
        return ScreenColumns.at(Column).labelWidth;
    if (item.flags & FloatGroupItem::ItemSpecial)
        return item.width;
    return qMax(item.width, ScreenColumns.at(Column).controlWidth);
}

void FloatGroupArranger::placeItem(int index, int itemWidth)
{
    const int height = Items.at(index).height;
    const QRect placed(X, Y, itemWidth, height);
    Rectangles[index] = placed;
    // Meant: an invisible item takes its width in the row, though no height.
    Advance = itemWidth + HorizontalSpacing;
    if (height > 0)
        Widen(RowHeight, height + VerticalSpacing);
    Widen(Right, placed.right());
    Widen(Bottom, placed.bottom());
}
