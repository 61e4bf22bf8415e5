#pragma once

#include "floatgroupcolumn.h"
#include "floatgroupitem.h"

#include <QRect>
#include <QVector>

/// The arithmetic of FloatGroupLayout: measured items in, rectangles out. An object arranges once.
///
/// 1. scanItems() cuts the items into sections and measures each: label column, control column, rows, section line.
/// 2. scanSections() deals the sections out to screen columns, each the same number, and starts over with fewer columns
///    until they fit the width.
/// 3. arrangeItems() places all items in one pass, row by row and column by column.
///
/// Positions and sums stop at a limit far beyond any screen, so that absurd size hints cannot overflow.
class FloatGroupArranger
{
public:
    FloatGroupArranger(QVector<FloatGroupItem> measuredItems, int horizontalSpacing, int verticalSpacing);

    /// There must be an item. `width` is the width available; a `columnCount` out of 1 .. number of sections asks for
    /// as many screen columns as fit.
    void arrange(int width, int columnCount);

    /// A rectangle for each item; empty before arrange().
    const QVector<QRect> &hints() const { return Rectangles; }
    /// Meant: the width is the rightmost pixel coordinate itself, the height is the lowest one plus one.
    QSize totalSize() const { return QSize(Right, Bottom + 1); }

private:
    using Columns = QVector<FloatGroupColumn>;

    Columns scanItems() const;
    bool skipSection(int index) const;
    void scanSections(const Columns &sections, int columnCount, int width);
    int dealSections(const Columns &sections, int columnCount, int width);
    FloatGroupColumn joinSections(const Columns &sections, int first, int count) const;
    void arrangeItems(int width);
    int getSectionIndex(int item) const;
    void startRow();
    void settleLabel();
    int startSection(int item, int width);
    int widthInColumn(const FloatGroupItem &item) const;
    void placeItem(int index, int itemWidth);

    QVector<FloatGroupItem> Items;
    int HorizontalSpacing;
    int VerticalSpacing;

    /// Written by scanSections(); `flowY` and `Column`, the one that holds the current item, by arrangeItems().
    Columns ScreenColumns;
    int Column = 0;

    /// The rest is written by arrangeItems() alone, item by item. Where the current item stands:
    int X = 0;
    int Y = 0;
    /// The height so far of the current line, vertical spacing included.
    int RowHeight = 0;
    /// The width of the previous item with the horizontal spacing.
    int Advance = 0;
    /// The label of the current row, whose height waits for the end of the row; -1 without one.
    int Label = -1;
    /// The outermost pixel coordinates so far.
    int Right = 0;
    int Bottom = 0;
    /// Valid up to the current item, save for the height of `Label`.
    QVector<QRect> Rectangles;
};
