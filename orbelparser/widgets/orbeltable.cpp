#include "orbeltable.h"

#include "celledit.h"
#include "floatgrouplayout.h"
#include "newcontrol.h"
#include "recordingcells.h"
#include "tablefont.h"
#include "tablekeys.h"
#include "typedvalue.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableWidget>

#include <cmath>

namespace KV218
{

OrbelDelegate *NewTableWidget(OrbelWidget *widget)
{
    return NewControl<OrbelTable>(widget);
}

OrbelTable::OrbelTable(OrbelWidget *widget) : CellDelegate(widget) { }

void OrbelTable::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Control = new QTableWidget(0, 1, layout->parentWidget());
    Control->setObjectName(WidgetName());
    Control->setSortingEnabled(false);
    Control->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    new TableKeys(Control, this);
    Control->setItemDelegate(new RecordingCells(this, Control));
    FollowTableFont(Control);
    FillTable();
    // Meant: the definition's `enabled`, `visible` and `toolTip` stay with the delegate until one of them changes.
    HideIfCollapsed(Control);
    layout->addWidget(Control);
    layout->addGroup();
    connect(Control, &QTableWidget::cellChanged, this, &OrbelTable::sl_cellChanged);
    Relay(Control.data(), &QTableWidget::currentCellChanged, &OrbelTable::currentCellChanged);
    Relay(Control.data(), &QTableWidget::cellActivated, &OrbelTable::cellActivated);
    Relay(Control.data(), &QTableWidget::cellClicked, &OrbelTable::cellClicked);
    Relay(Control.data(), &QTableWidget::cellDoubleClicked, &OrbelTable::cellDoubleClicked);
    Relay(Control.data(), &QTableWidget::cellEntered, &OrbelTable::cellEntered);
    Relay(Control.data(), &QTableWidget::cellPressed, &OrbelTable::cellPressed);
}

void OrbelTable::FillTable()
{
    if (!Control)
        return;
    const QScopedValueRollback<bool> updating(Updating, true);
    // A stretching header would measure all its sections again at each new label.
    Control->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    Control->setColumnCount(Cells.GetColumns());
    // Cells that go may take one with them that is being edited, and a handler the window.
    if (Control)
        Control->setRowCount(Cells.GetRows());
    if (!Control)
        return;
    LabelHeaders();
    Control->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    int next = 0;
    for (int row = 0; row < Cells.GetRows(); ++row) {
        for (int column = 0; column < Cells.GetColumns(); ++column) {
            // Meant: values do not keep to their cells; each item that is found takes the next one.
            if (QTableWidgetItem *item = ItemFor(row, column))
                item->setData(Qt::DisplayRole, Cells.GetCells().value(next++));
        }
    }
}

void OrbelTable::LabelHeaders()
{
    for (int column = 0; column < Cells.GetColumns(); ++column) {
        if (!Control->horizontalHeaderItem(column))
            Control->setHorizontalHeaderItem(column, new QTableWidgetItem(QString::number(column)));
    }
    for (int row = 0; row < Cells.GetRows(); ++row) {
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
    const QScopedValueRollback<bool> updating(Updating, true);
    clear();
    ReadCells(reader, [this](int row, int column, const QString &text) {
        if (Cells.Set(row, column, text))
            ShowValue(row, column, text);
        return true;
    });
}

void OrbelTable::setFocus()
{
    const Call call(this);
    if (Control)
        Control->setFocus();
}

void OrbelTable::forceFinishEditing()
{
    const Call call(this);
    FinishCellEdit(Control);
}

void OrbelTable::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::ColumnCount)
        Cells.Resize(Cells.GetRows(), CellGrid::CountOf(value));
    else if (name == prop::RowCount)
        Cells.Resize(CellGrid::CountOf(value), Cells.GetColumns());
    if (name == prop::ColumnCount || name == prop::RowCount)
        FillTable();
    PropagateProperty(name, Control);
}

void OrbelTable::clear()
{
    const Call call(this);
    Touch();
    for (int row = 0; row < Cells.GetRows(); ++row) {
        for (int column = 0; column < Cells.GetColumns(); ++column) {
            Cells.Set(row, column, QVariant());
            // Meant: a shown cell that empties counts as the operator's change.
            ShowValue(row, column, QVariant());
        }
    }
    if (!Updating)
        Q_EMIT tableCleared();
}

void OrbelTable::setItemValue(int row, int column, QVariant value)
{
    const Call call(this);
    const bool isNone = value.userType() == QMetaType::Double && !std::isfinite(value.toDouble());
    if (isNone || !Cells.Set(row, column, value))
        return;
    Touch();
    const QScopedValueRollback<bool> updating(Updating, true);
    ShowValue(row, column, value);
}

void OrbelTable::sl_cellChanged(int row, int column)
{
    const QTableWidgetItem *item = Updating ? nullptr : ItemFor(row, column);
    if (!item)
        return;
    // Meant: the row alone is the place in the flat list, so an edit in several columns lands in the first rows.
    if (row >= 0 && row < Cells.Size())
        Cells.Put(row, item->data(Qt::DisplayRole));
    const EditNotice notice(this, {2 * row, 2 * (row * Cells.GetColumns() + column) + 1});
    setModified(true);
    Q_EMIT cellChanged(row, column);
}

QVariant OrbelTable::ShownValue(int index) const
{
    const QTableWidgetItem *item = Control ? Control->item(Cells.RowOf(index), Cells.ColumnOf(index)) : nullptr;
    return item ? item->data(Qt::DisplayRole) : QVariant();
}

/// In its own cell, unlike ShowValue(). A cell that shows nothing has no item, as at the start.
void OrbelTable::ShowOwnValue(int index, const QVariant &value)
{
    const int row = Cells.RowOf(index);
    const int column = Cells.ColumnOf(index);
    if (!value.isValid())
        delete Control->takeItem(row, column);
    else if (QTableWidgetItem *item = Control->item(row, column))
        item->setData(Qt::DisplayRole, value);
    else
        Control->setItem(row, column, new QTableWidgetItem(value.toString()));
}

QVariantList OrbelTable::GetEdits() const
{
    QVariantList values;
    for (int i = 0; i < Cells.Size(); ++i)
        values << Cells.GetCells().at(i) << ShownValue(i);
    return values;
}

void OrbelTable::PutEdits(const QVariantList &values)
{
    const QVariantList before = GetEdits();
    if (values.size() != before.size() || !Control)
        return;
    const Call call(this);
    QVector<QPoint> edited; // x counts columns
    // A value may go back alone, where a script has set what its cell shows.
    bool isChange = false;
    {
        const QScopedValueRollback<bool> updating(Updating, true);
        for (int i = 0; i < Cells.Size() && Control; ++i) {
            const int value = 2 * i;
            const int shown = value + 1;
            isChange |= !IsSameEdit(before.at(value), values.at(value));
            Cells.Put(i, values.at(value));
            if (IsSameEdit(before.at(shown), values.at(shown)))
                continue;
            const QPoint cell(Cells.ColumnOf(i), Cells.RowOf(i));
            const bool told = ItemFor(cell.y(), cell.x());
            ShowOwnValue(i, values.at(shown));
            if (told || ItemFor(cell.y(), cell.x()))
                edited.append(cell);
        }
    }
    if (isChange || !edited.isEmpty())
        setModified(true);
    for (const QPoint &cell : qAsConst(edited))
        Q_EMIT cellChanged(cell.y(), cell.x());
}

QVariant OrbelTable::ValueOf(const QVariantList &edits) const
{
    QVariantList cells;
    for (int i = 0; i < edits.size(); i += 2)
        cells.append(edits.at(i));
    return cells;
}

bool OrbelTable::EditsOf(const QVariant &value, QVariantList *edits, QString *error) const
{
    const QVariantList cells = value.toList();
    if (cells.size() != Cells.Size())
        return Refuse(QStringLiteral("A list of %1 values is wanted").arg(Cells.Size()), error);
    edits->clear();
    for (const QVariant &cell : cells)
        *edits << cell << cell;
    return true;
}

int OrbelTable::TranslatePlace(const OrbelDelegate &former, int place) const
{
    const int columns = former.GetEditShape();
    const int cell = place / 2;
    if (columns <= 0 || cell % columns >= Cells.GetColumns() || cell / columns >= Cells.GetRows())
        return -1;
    return 2 * (cell / columns * Cells.GetColumns() + cell % columns) + place % 2;
}

void OrbelTable::TakeValues(const OrbelDelegate &former, const QVariantList &edits)
{
    const QVariantList values = TranslateEdits(former, edits);
    if (Control)
        PutEdits(values);
    for (int i = 0; i < Cells.Size() && !Control; ++i)
        Cells.Put(i, values.at(2 * i));
}

OrbelDelegate::Sides OrbelTable::TellSides(const QVariantList &before, const QVariantList &after) const
{
    const auto shown = [](const QVariantList &edits) {
        QVariantList texts;
        for (int i = 1; i < edits.size(); i += 2)
            texts.append(edits.at(i));
        return texts;
    };
    return OrbelDelegate::TellSides(shown(before), shown(after));
}

QString OrbelTable::SpellEditPart(int index) const
{
    return Cells.GetColumns() == 0 ? QString()
                                   : QStringLiteral("%1/%2").arg(Cells.RowOf(index)).arg(Cells.ColumnOf(index));
}

} // namespace KV218
