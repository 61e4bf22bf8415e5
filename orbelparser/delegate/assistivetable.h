#pragma once

#include "assistiveview.h"

#include <QHash>

namespace KV218
{

/// What an assistive tool sees of a table in a form: its cells as AssistiveCell tells of them, all else as Qt does.
class AssistiveTable : public AssistiveView, public QAccessibleTableInterface
{
public:
    explicit AssistiveTable(QAccessible::Id inner) : AssistiveView(inner) { }
    ~AssistiveTable() override;

    QAccessibleInterface *focusChild() const override { return Cell(AssistiveView::focusChild()); }
    QAccessibleInterface *childAt(int x, int y) const override { return Cell(AssistiveView::childAt(x, y)); }
    QAccessibleInterface *child(int index) const override { return Cell(AssistiveView::child(index)); }
    int indexOfChild(const QAccessibleInterface *child) const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface *caption() const override { return Table()->caption(); }
    QAccessibleInterface *summary() const override { return Table()->summary(); }
    QAccessibleInterface *cellAt(int row, int column) const override { return Cell(Table()->cellAt(row, column)); }
    int selectedCellCount() const override { return Table()->selectedCellCount(); }
    QList<QAccessibleInterface *> selectedCells() const override;
    QString columnDescription(int column) const override { return Table()->columnDescription(column); }
    QString rowDescription(int row) const override { return Table()->rowDescription(row); }
    int selectedColumnCount() const override { return Table()->selectedColumnCount(); }
    int selectedRowCount() const override { return Table()->selectedRowCount(); }
    int columnCount() const override { return Table()->columnCount(); }
    int rowCount() const override { return Table()->rowCount(); }
    QList<int> selectedColumns() const override { return Table()->selectedColumns(); }
    QList<int> selectedRows() const override { return Table()->selectedRows(); }
    bool isColumnSelected(int column) const override { return Table()->isColumnSelected(column); }
    bool isRowSelected(int row) const override { return Table()->isRowSelected(row); }
    bool selectRow(int row) override { return Table()->selectRow(row); }
    bool selectColumn(int column) override { return Table()->selectColumn(column); }
    bool unselectRow(int row) override { return Table()->unselectRow(row); }
    bool unselectColumn(int column) override { return Table()->unselectColumn(column); }
    void modelChange(QAccessibleTableModelChangeEvent *event) override;

private:
    QAccessibleTableInterface *Table() const { return Inner()->tableInterface(); }
    /// In the place of Qt's own view of a cell; headers and null stay as they are.
    QAccessibleInterface *Cell(QAccessibleInterface *inner) const;
    void DropCells();

    /// The numbers of those that a tool has seen, by the numbers of Qt's own.
    mutable QHash<QAccessible::Id, QAccessible::Id> Cells;
};

} // namespace KV218
