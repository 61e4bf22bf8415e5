#include "orbelhiddentable.h"

#include "newcontrol.h"

#include <QPointer>

namespace KV218
{

OrbelDelegate *NewHiddenTable(OrbelWidget *widget)
{
    return NewControl<OrbelHiddenTable>(widget);
}

OrbelHiddenTable::OrbelHiddenTable(OrbelWidget *widget) : CellDelegate(widget) { }

void OrbelHiddenTable::ReadXml(QXmlStreamReader &reader)
{
    clear();
    ReadCells(reader, [&](int row, int column, const QString &text) {
        setItemValue(row, column, text);
        return true;
    });
}

void OrbelHiddenTable::TakeValues(const OrbelDelegate &former, const QVariantList &)
{
    const auto *table = qobject_cast<const OrbelHiddenTable *>(&former);
    if (!table)
        return;
    if (table->Resized)
        Resize(table->Cells.GetRows(), table->Cells.GetColumns());
    for (int i = 0; i < table->Cells.Size(); ++i)
        setItemValue(table->Cells.RowOf(i), table->Cells.ColumnOf(i), table->Cells.GetCells().at(i).toString());
}

void OrbelHiddenTable::Resize(int rows, int columns)
{
    Touch();
    Resized = Resized || IsTouched();
    Cells.Resize(rows, columns);
}

void OrbelHiddenTable::clear()
{
    const Call call(this);
    Touch();
    Cells.Empty();
    Q_EMIT tableCleared();
}

void OrbelHiddenTable::setItemValue(int row, int column, QString value)
{
    if (!Cells.Set(row, column, value))
        return;
    const Call call(this);
    setModified(true);
    Q_EMIT itemValueChanged(row, column, value);
}

} // namespace KV218
