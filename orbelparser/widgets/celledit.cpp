#include "celledit.h"

#include "cellitemdelegate.h"

#include <QPointer>
#include <QTableWidget>

namespace KV218
{

void FinishCellEdit(QTableWidget *table)
{
    if (!table)
        return;
    // A slot of the change may delete the table with its editors.
    const QPointer<CellItemDelegate> cells(qobject_cast<CellItemDelegate *>(table->itemDelegate()));
    const auto children = table->viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    const QVector<QPointer<QWidget>> editors(children.begin(), children.end());
    for (const QPointer<QWidget> &editor : editors) {
        if (cells && editor)
            cells->Finish(editor, QAbstractItemDelegate::NoHint);
    }
}

} // namespace KV218
