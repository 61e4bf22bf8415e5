#pragma once

#include "cellitemdelegate.h"

#include <QPointer>

namespace KV218
{

class OrbelDelegate;

/// Has the form record what the operator does in the cells of a table: each cell that an editor or a paste fills is one
/// change, as far as it is no part of a greater one. A cell that others set meanwhile leaves alone what is being typed
/// into it.
class RecordingCells : public CellItemDelegate
{
    Q_OBJECT

public:
    /// `table` is the control, which is not owned and may go before; `parent` deletes this.
    RecordingCells(OrbelDelegate *table, QObject *parent) : CellItemDelegate(parent), Table(table) { }

    void setEditorData(QWidget *editor, const QModelIndex &index) const override;

protected:
    void Commit(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

    const QPointer<OrbelDelegate> Table;
};

} // namespace KV218
