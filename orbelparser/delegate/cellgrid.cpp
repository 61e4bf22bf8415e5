#include "cellgrid.h"

#include "formlimits.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KV218
{

/// Whether a cell stays as it is: '007' is another text than 7, and 'on' another value than true.
static bool IsSameCell(const QVariant &cell, const QVariant &value)
{
    return cell.userType() == value.userType() && cell == value && cell.toString() == value.toString();
}

int CellGrid::IndexOf(int row, int column) const
{
    if (row < 0 || column < 0)
        return -1;
    // Meant: a column past the row's end reaches into the next row.
    const qint64 index = qint64(row) * ColumnCount + column;
    return index >= 0 && index < Cells.size() ? int(index) : -1;
}

bool CellGrid::Set(int row, int column, const QVariant &value)
{
    const int index = IndexOf(row, column);
    if (index < 0 || IsSameCell(Cells.at(index), value))
        return false;
    Cells[index] = value;
    return true;
}

bool CellGrid::Resize(int rows, int columns)
{
    if (rows < 0 || columns < 0 || ColumnCount < 0)
        return false;
    const qint64 cells = qint64(rows) * columns;
    // Meant: only the count decides, so 2 by 3 asked of a grid of 3 by 2 leaves its shape.
    if (cells == Cells.size() || cells > limit::ListCells)
        return false;
    if (columns == ColumnCount) {
        // Every cell keeps its place, so a list that grows cell by cell is not copied each time.
        if (cells < Cells.size())
            Cells.erase(Cells.begin() + int(cells), Cells.end());
        while (Cells.size() < cells)
            Cells.append(QVariant());
    } else {
        QList<QVariant> moved;
        moved.reserve(int(cells));
        for (int cell = 0; cell < cells; ++cell)
            moved.append(Get(cell / columns, cell % columns));
        Cells = moved;
        ColumnCount = columns;
    }
    RowCount = rows;
    return true;
}

void CellGrid::Clear()
{
    Cells.clear();
    RowCount = 0;
}

void CellGrid::Empty()
{
    std::fill(Cells.begin(), Cells.end(), QVariant());
}

int CellGrid::CountOf(const QVariant &value)
{
    constexpr qint64 least = std::numeric_limits<int>::min();
    constexpr qint64 most = std::numeric_limits<int>::max();
    if (value.userType() == QMetaType::Double) {
        const double count = value.toDouble();
        return std::isnan(count) ? -1 : int(qRound64(qBound(double(least), count, double(most))));
    }
    return int(qBound(least, value.toLongLong(), most));
}

} // namespace KV218
