#include "orbeltable.h"

#include "flagscope.h"
#include "floatgrouplayout.h"
#include "tablekeys.h"

#include <QHeaderView>
#include <QTableWidget>

namespace KV218
{

OrbelTable::OrbelTable(OrbelWidget *widget) : CellDelegate(widget) { }

void OrbelTable::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Control = new QTableWidget(0, 1, layout->parentWidget());
    Control->setObjectName(WidgetName());
    Control->setSortingEnabled(false);
    Control->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    new TableKeys(Control);
    FillTable();
    // Meant: the definition's `enabled`, `visible` and `toolTip` stay with the delegate until one of them changes.
    HideIfCollapsed(Control);
    layout->addWidget(Control);
    layout->addGroup();
    connect(Control, &QTableWidget::cellChanged, this, &OrbelTable::sl_cellChanged);
    connect(Control, &QTableWidget::currentCellChanged, this, &OrbelTable::currentCellChanged);
    connect(Control, &QTableWidget::cellActivated, this, &OrbelTable::cellActivated);
    connect(Control, &QTableWidget::cellClicked, this, &OrbelTable::cellClicked);
    connect(Control, &QTableWidget::cellDoubleClicked, this, &OrbelTable::cellDoubleClicked);
    connect(Control, &QTableWidget::cellEntered, this, &OrbelTable::cellEntered);
    connect(Control, &QTableWidget::cellPressed, this, &OrbelTable::cellPressed);
}

void OrbelTable::FillTable()
{
    if (!Control)
        return;
    const QPointer<OrbelTable> self(this);
    const QPointer<QTableWidget> table(Control);
    const FlagScope updating(this, Updating);
    // A stretching header would measure all its sections again at each new label.
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->setColumnCount(ColumnCount);
    if (self && table)
        table->setRowCount(RowCount);
    if (self && table)
        LabelHeaders();
    // The table may outlive a form that a handler ended.
    if (table)
        table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    if (!self || !table)
        return;
    int next = 0;
    for (int row = 0; row < RowCount; ++row) {
        for (int column = 0; column < ColumnCount; ++column) {
            // Meant: values do not keep to their cells; each item that is found takes the next one.
            if (QTableWidgetItem *item = ItemFor(row, column))
                item->setData(Qt::DisplayRole, Cells.value(next++));
        }
    }
}

void OrbelTable::LabelHeaders()
{
    for (int column = 0; column < ColumnCount; ++column) {
        if (!Control->horizontalHeaderItem(column))
            Control->setHorizontalHeaderItem(column, new QTableWidgetItem(QString::number(column)));
    }
    for (int row = 0; row < RowCount; ++row) {
        if (!Control->verticalHeaderItem(row))
            Control->setVerticalHeaderItem(row, new QTableWidgetItem(QString::number(row)));
    }
}

QTableWidgetItem *OrbelTable::ItemFor(int row, int column) const
{
    // Meant: itemAt() takes a place in the view in pixels, so nearly all cells answer with the item in the corner.
    return Control ? Control->itemAt(row, column) : nullptr;
}

void OrbelTable::ShowValue(int row, int column, const QVariant &value)
{
    if (QTableWidgetItem *item = ItemFor(row, column))
        item->setData(Qt::DisplayRole, value);
}

void OrbelTable::ReadXml(QXmlStreamReader &reader)
{
    const FlagScope updating(this, Updating);
    clear();
    ReadCells(reader, [this](int row, int column, const QString &text) {
        if (SetCell(row, column, text))
            ShowValue(row, column, text);
        return true;
    });
}

void OrbelTable::setFocus()
{
    if (Control)
        Control->setFocus();
}

void OrbelTable::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    const QPointer<OrbelTable> self(this);
    if (name == prop::ColumnCount)
        Reshape(RowCount, CountOf(value));
    else if (name == prop::RowCount)
        Reshape(CountOf(value), ColumnCount);
    if (name == prop::ColumnCount || name == prop::RowCount)
        FillTable();
    if (self)
        PropagateProperty(name, Control);
}

void OrbelTable::clear()
{
    const QPointer<OrbelTable> self(this);
    for (int row = 0; self && row < RowCount; ++row) {
        for (int column = 0; self && column < ColumnCount; ++column) {
            SetCell(row, column, QVariant());
            // Meant: a shown cell that empties counts as the operator's change.
            ShowValue(row, column, QVariant());
        }
    }
    if (self && !Updating)
        Q_EMIT tableCleared();
}

void OrbelTable::setItemValue(int row, int column, QVariant value)
{
    if (!SetCell(row, column, value))
        return;
    const FlagScope updating(this, Updating);
    ShowValue(row, column, value);
}

void OrbelTable::sl_cellChanged(int row, int column)
{
    const QTableWidgetItem *item = Updating ? nullptr : ItemFor(row, column);
    if (!item)
        return;
    // Meant: the row alone is the place in the flat list, so an edit in several columns lands in the first rows.
    if (row >= 0 && row < Cells.size())
        Cells[row] = item->data(Qt::DisplayRole);
    const QPointer<OrbelTable> self(this);
    setModified(true);
    if (self)
        Q_EMIT cellChanged(row, column);
}

} // namespace KV218
