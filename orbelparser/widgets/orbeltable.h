#pragma once

#include "celldelegate.h"
#include "propertynames.h"

#include <QPointer>
#include <QTableWidget>

namespace KV218
{

/// A free grid of values. Class name: `TableWidget`. It has no node: the values live in the delegate, travel in
/// parameter documents, and are reached by scripts. What the grid shows is loosely coupled to them: cells show nothing
/// until the operator edits them, and values and cells meet by the cells' places on the screen.
class OrbelTable : public CellDelegate
{
    Q_OBJECT

public:
    explicit OrbelTable(OrbelWidget *widget);

    void CreateGUI(FloatGroupLayout *layout) override;
    void ReadXml(QXmlStreamReader &reader) override;
    QVector<Face> GetFaces() const override { return {{Control.data()}}; }
    /// Row by row, of each cell its value and what it shows.
    QVariantList GetEdits() const override;
    int GetEditShape() const override { return Cells.GetColumns(); }
    void PutEdits(const QVariantList &values) override;
    QVariant ValueOf(const QVariantList &edits) const override;
    bool EditsOf(const QVariant &value, QVariantList *edits, QString *error) const override;
    /// Cells keep row and column.
    int TranslatePlace(const OrbelDelegate &former, int place) const override;
    void TakeValues(const OrbelDelegate &former, const QVariantList &edits) override;

Q_SIGNALS:
    void cellActivated(int, int);
    /// The operator changed the cell at this row and column.
    void cellChanged(int, int);
    void cellClicked(int, int);
    void cellDoubleClicked(int, int);
    void cellEntered(int, int);
    void cellPressed(int, int);
    /// Row and column of the current cell, then of the one before; -1 for none.
    void currentCellChanged(int, int, int, int);
    void tableCleared();

public Q_SLOTS:
    /// Empties all cells; the shape stays.
    void clear();
    /// These keep the shape when the number of cells would stay the same; so a table without cells gets none.
    void setColumnCount(int columns) { ChangeProperty(prop::ColumnCount, columns); }
    void setRowCount(int rows) { ChangeProperty(prop::RowCount, rows); }
    void setFocus() override;
    void forceFinishEditing() override;

public:
    Q_INVOKABLE QVariant itemValue(int row, int column) { return Cells.Get(row, column); }
    /// Neither signals nor marks the control modified.
    Q_INVOKABLE void setItemValue(int row, int column, QVariant value);

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;
    Sides TellSides(const QVariantList &before, const QVariantList &after) const override;
    void PutReported(const QVariantList &values) override { PutEdits(values); }
    QString SpellEditPart(int index) const override;

private Q_SLOTS:
    void sl_cellChanged(int row, int column);

private:
    void FillTable();
    void LabelHeaders();
    QTableWidgetItem *ItemFor(int row, int column) const;
    void ShowValue(int row, int column, const QVariant &value);
    QVariant ShownValue(int index) const;
    void ShowOwnValue(int index, const QVariant &value);

    /// Null before CreateGUI() and once the window is gone.
    QPointer<QTableWidget> Control;
    /// The grid changes by the delegate's own doing, not by the operator's.
    bool Updating = false;
};

} // namespace KV218
