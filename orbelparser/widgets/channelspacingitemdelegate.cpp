#include "channelspacingitemdelegate.h"

#include "formlimits.h"
#include "orbeldelegate.h"
#include "propertynames.h"
#include "typedspinbox.h"

#include <QItemEditorFactory>

#include <limits>

namespace KV218
{

ChannelSpacingItemDelegate::ChannelSpacingItemDelegate(OrbelDelegate *table) : RecordingCells(table, table)
{
    static QItemEditorFactory *const factory = [] {
        auto *made = new QItemEditorFactory;
        made->registerEditor(QMetaType::Double, new QStandardItemEditorCreator<Orbel::TypedSpinBox>);
        return made;
    }();
    setItemEditorFactory(factory);
}

QWidget *ChannelSpacingItemDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QWidget *editor = RecordingCells::createEditor(parent, option, index);
    auto *spin = qobject_cast<Orbel::TypedSpinBox *>(editor);
    if (!spin)
        return editor;
    spin->setFrame(false);
    spin->setRange(std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
    if (!Table)
        return editor;
    constexpr double DefaultMaximum = 1000.0;
    spin->setMinimum(Table->GetDouble(prop::Minimum, 0.0));
    // Meant: an absent bound counts here, though the table's tooltip tells none.
    spin->setMaximum(Table->GetDouble(prop::Maximum, DefaultMaximum));
    spin->setSingleStep(Table->GetDouble(prop::SingleStep, 1.0));
    spin->setDecimals(Table->GetInt(prop::Decimals, 0));
    spin->SetUnit(Table->property(prop::Unit.data()).toString());
    return editor;
}

void ChannelSpacingItemDelegate::Commit(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const auto *spin = qobject_cast<Orbel::TypedSpinBox *>(editor);
    const double stood = index.data(Qt::EditRole).toDouble();
    const bool leavesIt = spin && QString::number(stood, 'f', spin->decimals()).toDouble() == spin->value();
    if (!leavesIt)
        RecordingCells::Commit(editor, model, index);
}

QString ChannelSpacingItemDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    if (!Table || value.userType() != QMetaType::Double)
        return RecordingCells::displayText(value, locale);
    QLocale plain = locale;
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    return plain.toString(value.toDouble(), 'f', qMin(Table->GetInt(prop::Decimals, 0), limit::Decimals));
}

} // namespace KV218
