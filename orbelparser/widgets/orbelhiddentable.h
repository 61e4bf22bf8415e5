#pragma once

#include "celldelegate.h"

namespace KV218
{

/// A table of texts that the operator does not see. Class name: `HiddenTable`. The definition gives it its shape with
/// `rowCount` and `columnCount`; later the slots do, and the properties play no part any more. Cells that a parameter
/// document has outside the shape are dropped.
class OrbelHiddenTable : public CellDelegate
{
    Q_OBJECT

public:
    explicit OrbelHiddenTable(OrbelWidget *widget);

    void ReadXml(QXmlStreamReader &reader) override;
    void TakeValues(const OrbelDelegate &former, const QVariantList &edits) override;

Q_SIGNALS:
    void tableCleared();
    void itemValueChanged(int row, int column, QString value);

public Q_SLOTS:
    /// Empties all cells; the shape stays.
    void clear();
    /// These keep the shape when the number of cells would stay the same; so a table without cells gets none.
    void setColumnCount(int columns) { Resize(Cells.GetRows(), columns); }
    void setRowCount(int rows) { Resize(rows, Cells.GetColumns()); }

public:
    Q_INVOKABLE QString itemValue(int row, int column) { return Cells.Get(row, column).toString(); }
    Q_INVOKABLE void setItemValue(int row, int column, QString value);

private:
    void Resize(int rows, int columns);

    /// By a slot, not by the definition.
    bool Resized = false;
};

} // namespace KV218
