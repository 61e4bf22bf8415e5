#include "assistivetable.h"

#include "assistivecell.h"

#include <utility>

namespace KV218
{

AssistiveTable::~AssistiveTable()
{
    DropCells();
}

int AssistiveTable::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *cell = dynamic_cast<const AssistiveCell *>(child);
    const QAccessibleInterface *inner = cell ? cell->Inner() : child;
    return inner ? AssistiveView::indexOfChild(inner) : -1;
}

void *AssistiveTable::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface && Table())
        return static_cast<QAccessibleTableInterface *>(this);
    return AssistiveView::interface_cast(type);
}

QList<QAccessibleInterface *> AssistiveTable::selectedCells() const
{
    QList<QAccessibleInterface *> cells;
    for (QAccessibleInterface *inner : Table()->selectedCells())
        cells.append(Cell(inner));
    return cells;
}

/// Cells of rows that come or go stand for others afterwards.
void AssistiveTable::modelChange(QAccessibleTableModelChangeEvent *event)
{
    DropCells();
    Table()->modelChange(event);
}

QAccessibleInterface *AssistiveTable::Cell(QAccessibleInterface *inner) const
{
    if (!inner || !inner->tableCellInterface())
        return inner;
    QAccessible::Id &id = Cells[QAccessible::uniqueId(inner)];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(new AssistiveCell(QAccessible::uniqueId(inner)));
    return QAccessible::accessibleInterface(id);
}

void AssistiveTable::DropCells()
{
    for (const QAccessible::Id id : std::exchange(Cells, {}))
        QAccessible::deleteAccessibleInterface(id);
}

} // namespace KV218
