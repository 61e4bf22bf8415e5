#include "recordingcells.h"

#include "orbeldelegate.h"

#include <optional>

namespace KV218
{

void RecordingCells::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    std::optional<OrbelDelegate::OperatorChange> change;
    if (Table)
        change.emplace(Table);
    CellItemDelegate::setModelData(editor, model, index);
}

} // namespace KV218
