#include "assistivecell.h"

#include "face.h"

#include <QAbstractItemView>

namespace KV218
{

QString AssistiveCell::text(QAccessible::Text kind) const
{
    const QString own = Inner()->text(kind);
    if (!own.isEmpty() || (kind != QAccessible::Name && kind != QAccessible::Description))
        return own;
    if (kind == QAccessible::Description && Inner()->text(QAccessible::Name).isEmpty())
        return own;
    const auto *table = qobject_cast<const QAbstractItemView *>(parent()->object());
    const QAccessibleTableCellInterface *cell = Inner()->tableCellInterface();
    return table && cell ? CellPlace(*table->model(), cell->rowIndex(), cell->columnIndex()) : own;
}

} // namespace KV218
