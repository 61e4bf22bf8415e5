#pragma once

#include "recordingcells.h"

namespace KV218
{

/// Shows the cells of a table of channel spacings with the decimals that its document has, and edits them in a
/// TypedSpinBox with the table's bounds, step, decimals and unit, all of which it reads anew each time. An edit that
/// leaves what was shown leaves the number with all its digits. Without the table's delegate it shows and edits like
/// any other.
class ChannelSpacingItemDelegate : public RecordingCells
{
    Q_OBJECT

public:
    /// `table` becomes the parent.
    explicit ChannelSpacingItemDelegate(OrbelDelegate *table);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QString displayText(const QVariant &value, const QLocale &locale) const override;

protected:
    void Commit(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
};

} // namespace KV218
