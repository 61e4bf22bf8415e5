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

void OrbelHiddenTable::clear()
{
    const Call call(this);
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
