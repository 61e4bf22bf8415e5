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
    : items(std::move(measuredItems)), horizontalSpacing(Bounded(between)), verticalSpacing(Bounded(below))
{
    for (FloatGroupItem &item : items) {
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
    for (int i = 0; i < items.size(); ++i) {
        const FloatGroupItem &item = items.at(i);
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
            Widen(section.sectionWidth, item.width + horizontalSpacing);
        } else {
            rowSum = Bounded(rowSum + item.width + horizontalSpacing);
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
        if (items.at(i).flags & FloatGroupItem::ItemSection)
            return true;
        if (items.at(i).height > 0)
            break;
    }
    for (int i = index + 1; i < items.size(); ++i) {
        if ((items.at(i).flags & FloatGroupItem::ItemSection) || items.at(i).height > 0)
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
    columns.clear();
    int left = 0;
    for (int i = 0; i < columnCount; ++i) {
        FloatGroupColumn next = joinSections(sections, i * sectionsPerColumn, sectionsPerColumn);
        next.left = left;
        const int rows = next.labelWidth + next.rowWidth + 2 * horizontalSpacing;
        left = Bounded(left + Bounded(qMax(rows, next.sectionWidth)));
        // Meant: a column that ends exactly on the width is too wide, and an empty one takes its spacings.
        if (i > 0 && left >= width)
            return i;
        columns.append(next);
    }
    return columnCount;
}

/// A screen column of up to `count` sections, fewer or none at the end of the sections.
FloatGroupColumn FloatGroupArranger::joinSections(const Columns &sections, int first, int count) const
{
    FloatGroupColumn joined;
    joined.firstItem = first < sections.size() ? sections.at(first).firstItem : items.size();
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
    rectangles.resize(items.size());
    for (int i = 0; i < items.size(); ++i) {
        const FloatGroupItem &item = items.at(i);
        if (item.flags & FloatGroupItem::ItemGroup)
            startRow();
        else
            x = Bounded(x + advance);
        int itemWidth = widthInColumn(item);
        if (item.flags & FloatGroupItem::ItemLabel)
            label = i;
        if (item.flags & FloatGroupItem::ItemSection)
            itemWidth = startSection(i, width);
        if (x > 0 && itemWidth + x > width) {
            // Meant: what does not fit goes to the left of the whole form, not of its column.
            y = Bounded(y + rowHeight);
            rowHeight = 0;
            x = 0;
        }
        placeItem(i, itemWidth);
    }
    settleLabel();
}

void FloatGroupArranger::startRow()
{
    settleLabel();
    y = Bounded(y + rowHeight);
    x = columns.at(column).left;
    rowHeight = 0;
}

/// A label is as high as its row, vertical spacing included, up to a limit.
void FloatGroupArranger::settleLabel()
{
    if (label >= 0)
        rectangles[label].setHeight(qMin(rowHeight, LabelHeightLimit));
    label = -1;
}

/// Goes on in the screen column that holds the section line `item`; gives the width of the line.
int FloatGroupArranger::startSection(int item, int width)
{
    if (item > 0)
        y = Bounded(y + items.at(item).topMargin);
    columns[column].flowY = y;
    column = getSectionIndex(item);
    const FloatGroupColumn &entered = columns.at(column);
    x = entered.left;
    y = entered.flowY;
    const int line = Bounded(qMax(entered.labelWidth + entered.rowWidth, entered.sectionWidth));
    return line > width ? qMax(width, Bounded(right)) : line;
}

int FloatGroupArranger::getSectionIndex(int item) const
{
    const auto startsBehind = [](int index, const FloatGroupColumn &candidate) { return index < candidate.firstItem; };
    // The first column holds what no other does.
    const auto next = std::upper_bound(columns.begin() + 1, columns.end(), item, startsBehind);
    return int(next - columns.begin()) - 1;
}

int FloatGroupArranger::widthInColumn(const FloatGroupItem &item) const
{
    if (item.flags & FloatGroupItem::ItemLabel)
        return columns.at(column).labelWidth;
    if (item.flags & FloatGroupItem::ItemSpecial)
        return item.width;
    return qMax(item.width, columns.at(column).controlWidth);
}

void FloatGroupArranger::placeItem(int index, int itemWidth)
{
    const int height = items.at(index).height;
    const QRect placed(x, y, itemWidth, height);
    rectangles[index] = placed;
    // Meant: an invisible item takes its width in the row, though no height.
    advance = itemWidth + horizontalSpacing;
    if (height > 0)
        Widen(rowHeight, height + verticalSpacing);
    Widen(right, placed.right());
    Widen(bottom, placed.bottom());
}
