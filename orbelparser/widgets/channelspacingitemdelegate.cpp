#include "channelspacingitemdelegate.h"

#include "propertynames.h"

#include <QDoubleSpinBox>

namespace KV218
{

ChannelSpacingItemDelegate::ChannelSpacingItemDelegate(OrbelDelegate *table) : QStyledItemDelegate(table), Table(table)
{
}

QWidget *ChannelSpacingItemDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
    auto *spin = qobject_cast<QDoubleSpinBox *>(editor);
    if (!spin || !Table)
        return editor;
    constexpr double DefaultMaximum = 1000.0;
    spin->setMinimum(Table->GetDouble(prop::Minimum, 0.0));
    // Meant: an absent bound counts here, though the table's tooltip tells none.
    spin->setMaximum(Table->GetDouble(prop::Maximum, DefaultMaximum));
    spin->setSingleStep(Table->GetDouble(prop::SingleStep, 1.0));
    spin->setDecimals(Table->GetInt(prop::Decimals, 0));
    return editor;
}

} // namespace KV218
