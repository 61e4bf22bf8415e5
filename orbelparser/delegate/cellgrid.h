#pragma once

#include <QList>
#include <QVariant>

namespace KV218
{

/// The cells of a table, kept row by row: values of any kind, invalid until set. Rows and columns count from 0; a cell
/// outside is invalid and takes nothing. A column past the row's end reaches into the next row.
class CellGrid
{
public:
    CellGrid() = default;
    /// Such cells, in rows of that length; what is left over at the end belongs to no row.
    CellGrid(const QList<QVariant> &cells, int columns)
        : Cells(cells), RowCount(columns > 0 ? cells.size() / columns : 0), ColumnCount(columns)
    {
    }

    int GetRows() const { return RowCount; }
    int GetColumns() const { return ColumnCount; }
    /// Row by row.
    const QList<QVariant> &GetCells() const { return Cells; }
    int Size() const { return Cells.size(); }

    QVariant Get(int row, int column) const { return Cells.value(IndexOf(row, column)); }
    /// True when the cell exists and had another value: '007' is another text than 7, and 'on' another value than true.
    bool Set(int row, int column, const QVariant &value);
    /// Where a cell stands, by its index in GetCells(); there must be columns.
    int RowOf(int index) const { return index / ColumnCount; }
    int ColumnOf(int index) const { return index % ColumnCount; }
    /// Sets a cell, which must be there, by its index in GetCells().
    void Put(int index, const QVariant &value) { Cells[index] = value; }

    /// Gives the grid a shape, in which each cell that stays keeps row and column. False, and no change, for one with
    /// as many cells as there are, with a negative number, or with more than limit::ListCells cells.
    bool Resize(int rows, int columns);
    /// Makes all cells invalid; the shape stays.
    void Empty();
    /// Drops all cells.
    void Clear();

    /// A count as a script or definition states it; one beyond int is the greatest int, which no grid takes.
    static int CountOf(const QVariant &value);

private:
    int IndexOf(int row, int column) const;

    QList<QVariant> Cells;
    int RowCount = 0;
    int ColumnCount = 0;
};

} // namespace KV218
