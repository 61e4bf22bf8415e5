#include "recordingcells.h"

#include "orbeldelegate.h"

#include <QLineEdit>

#include <optional>

namespace KV218
{

void RecordingCells::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QLineEdit *field = FieldOf(editor);
    if (!field || !field->isModified())
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
