#pragma once

#include "orbeldelegate.h"

#include <QPointer>
#include <QStyledItemDelegate>

namespace KV218
{

/// Edits the cells of a table of channel spacings in a spin box with the table's bounds, step and decimals, which it
/// reads anew for every editor. Without the table's delegate it edits like any other.
class ChannelSpacingItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// `table` becomes the parent.
    explicit ChannelSpacingItemDelegate(OrbelDelegate *table);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    QPointer<OrbelDelegate> Table;
};

} // namespace KV218
