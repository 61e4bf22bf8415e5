#pragma once

#include "cellgrid.h"
#include "listelements.h"
#include "orbeldelegate.h"

namespace KV218
{

/// What tables without a node have in common: cells that hold any value, invalid until set, and travel in parameter
/// documents as one entry each.
class CellDelegate : public OrbelDelegate
{
public:
    explicit CellDelegate(OrbelWidget *widget) : OrbelDelegate(widget) { }

    void CreateValueTree() override;
    void GetXml(QXmlStreamWriter &writer) const override;

protected:
    /// Reads the table's element; `onCell(row, column, text)` gets each entry, and ends the reading by returning false.
    template <class OnCell> static void ReadCells(QXmlStreamReader &reader, OnCell onCell)
    {
        ReadEntries(reader, [&](const QXmlStreamAttributes &attributes, const QString &text) {
            return onCell(attributes.value(attribute::Row).toInt(), attributes.value(attribute::Column).toInt(), text);
        });
    }

    CellGrid Cells;
};

} // namespace KV218
