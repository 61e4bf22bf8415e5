#include "orbelhiddentable.h"

#include <QPointer>

namespace KV218
{

OrbelHiddenTable::OrbelHiddenTable(OrbelWidget *widget) : CellDelegate(widget) { }

void OrbelHiddenTable::ReadXml(QXmlStreamReader &reader)
{
    const QPointer<OrbelHiddenTable> self(this);
    clear();
    if (!self)
        return;
    ReadCells(reader, [&](int row, int column, const QString &text) {
        setItemValue(row, column, text);
        return !self.isNull();
    });
}

void OrbelHiddenTable::clear()
{
    std::fill(Cells.begin(), Cells.end(), QVariant());
    Q_EMIT tableCleared();
}

void OrbelHiddenTable::setItemValue(int row, int column, QString value)
{
    if (!SetCell(row, column, value))
        return;
    const QPointer<OrbelHiddenTable> self(this);
    setModified(true);
    if (self)
        Q_EMIT itemValueChanged(row, column, value);
}

} // namespace KV218
