#include "recordingcells.h"

#include "orbeldelegate.h"

#include <optional>

namespace KV218
{

void RecordingCells::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (IsTyping(editor))
        LeaveTyped(editor, index);
    else
        CellItemDelegate::setEditorData(editor, index);
}

void RecordingCells::Commit(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    std::optional<OrbelDelegate::OperatorChange> change;
    if (Table)
        change.emplace(Table);
    CellItemDelegate::Commit(editor, model, index);
}

} // namespace KV218
