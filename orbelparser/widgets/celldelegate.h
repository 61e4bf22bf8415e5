#pragma once

#include "listelements.h"
#include "orbeldelegate.h"

namespace KV218
{

/// What tables without a node have in common: cells that hold any value, invalid until set, and travel in parameter
/// documents as one entry each. Rows and columns count from 0; a cell outside the table is invalid and takes nothing.
class CellDelegate : public OrbelDelegate
{
public:
    explicit CellDelegate(OrbelWidget *widget) : OrbelDelegate(widget) { }

    void CreateValueTree() override;
    void GetXml(QXmlStreamWriter &writer) const override;

protected:
    /// Gives the table a shape. False, and no change, for one with as many cells as there are, with a negative number,
    /// or with more than limit::ListCells cells.
    bool Reshape(int rows, int columns);
    QVariant Cell(int row, int column) const { return GetListValue(Cells, row, column, ColumnCount); }
    /// True when the cell exists and had another value.
    bool SetCell(int row, int column, const QVariant &value)
    {
        return SetListValue(Cells, value, row, column, ColumnCount);
    }
    /// Reads the table's element; `onCell(row, column, text)` gets each entry, and ends the reading by returning false.
    template <class OnCell> static void ReadCells(QXmlStreamReader &reader, OnCell onCell)
    {
        ReadEntries(reader, [&](const QXmlStreamAttributes &attributes, const QString &text) {
            return onCell(attributes.value(attribute::Row).toInt(), attributes.value(attribute::Column).toInt(), text);
        });
    }

    /// Row by row; always `RowCount` times `ColumnCount` long.
    QList<QVariant> Cells;
    int RowCount = 0;
    int ColumnCount = 0;
};

} // namespace KV218
