#include "channelspacingitemdelegate.h"

#include "formlimits.h"
#include "propertynames.h"

#include <QDoubleSpinBox>

#include <optional>

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

void ChannelSpacingItemDelegate::setModelData(
    QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const auto *spin = qobject_cast<QDoubleSpinBox *>(editor);
    const double stood = index.data(Qt::EditRole).toDouble();
    const bool leavesIt = spin && QString::number(stood, 'f', spin->decimals()).toDouble() == spin->value();
    std::optional<OrbelDelegate::OperatorChange> change;
    if (Table)
        change.emplace(Table);
    if (!leavesIt)
        QStyledItemDelegate::setModelData(editor, model, index);
}

QString ChannelSpacingItemDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    if (!Table || value.userType() != QMetaType::Double)
        return QStyledItemDelegate::displayText(value, locale);
    QLocale plain = locale;
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    return plain.toString(value.toDouble(), 'f', qMin(Table->GetInt(prop::Decimals, 0), limit::Decimals));
}

} // namespace KV218
