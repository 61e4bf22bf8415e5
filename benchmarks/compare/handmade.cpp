#include "handmade.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include <utility>

namespace
{

QWidget *Like(const QWidget &widget);

QWidget *LikeTable(const QTableWidget &table)
{
    auto *made = new QTableWidget(table.rowCount(), table.columnCount());
    for (int column = 0; column < table.columnCount(); ++column)
        made->setHorizontalHeaderItem(column, new QTableWidgetItem(*table.horizontalHeaderItem(column)));
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            if (const QTableWidgetItem *item = table.item(row, column))
                made->setItem(row, column, new QTableWidgetItem(item->text()));
        }
    }
    made->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return made;
}

QWidget *LikeNumber(const QDoubleSpinBox &spin)
{
    auto *made = new QDoubleSpinBox;
    made->setDecimals(spin.decimals());
    made->setRange(spin.minimum(), spin.maximum());
    made->setSuffix(spin.suffix());
    made->setValue(spin.value());
    return made;
}

QWidget *LikeChoice(const QComboBox &box)
{
    auto *made = new QComboBox;
    for (int i = 0; i < box.count(); ++i)
        made->addItem(box.itemText(i));
    made->setCurrentIndex(box.currentIndex());
    return made;
}

/// Several controls of one row, or a control that Qt has none for: what can be typed into.
QWidget *LikeParts(const QWidget &widget)
{
    if (widget.focusProxy())
        return Like(*widget.focusProxy());
    auto *made = new QWidget;
    const auto parts = widget.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    const bool isColumn = qobject_cast<QVBoxLayout *>(widget.layout());
    auto *layout = new QBoxLayout(isColumn ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, made);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const QWidget *part : parts) {
        if (QWidget *like = part->isHidden() ? nullptr : Like(*part))
            layout->addWidget(like);
    }
    return made;
}

/// Null for what is no control.
QWidget *Like(const QWidget &widget)
{
    if (const auto *table = qobject_cast<const QTableWidget *>(&widget))
        return LikeTable(*table);
    if (const auto *spin = qobject_cast<const QDoubleSpinBox *>(&widget))
        return LikeNumber(*spin);
    if (const auto *box = qobject_cast<const QComboBox *>(&widget))
        return LikeChoice(*box);
    if (const auto *field = qobject_cast<const QLineEdit *>(&widget)) {
        auto *made = new QLineEdit(field->text());
        made->setInputMask(field->inputMask());
        return made;
    }
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        return new QLabel(label->text());
    if (const auto *check = qobject_cast<const QCheckBox *>(&widget)) {
        auto *made = new QCheckBox(check->text());
        made->setChecked(check->isChecked());
        return made;
    }
    if (const auto *button = qobject_cast<const QPushButton *>(&widget))
        return new QPushButton(button->text());
    return widget.layout() ? LikeParts(widget) : nullptr;
}

QWidget *Title(const QString &text)
{
    auto *title = new QLabel(text);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    return title;
}

} // namespace

std::unique_ptr<QWidget> HandMade(const QLayout &form)
{
    auto window = std::make_unique<QWidget>();
    auto *rows = new QFormLayout(window.get());
    QString label;
    for (int i = 0; i < form.count(); ++i) {
        const QWidget *widget = form.itemAt(i)->widget();
        if (!widget || widget->isHidden())
            continue;
        const auto *group = qobject_cast<const QGroupBox *>(widget);
        if (widget->inherits("RowLabel"))
            label = static_cast<const QLabel *>(widget)->text();
        else if (group && !group->title().isEmpty())
            rows->addRow(Title(group->title()));
        else if (QWidget *control = group ? nullptr : Like(*widget))
            rows->addRow(std::exchange(label, QString()), control);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Apply);
    rows->addRow(buttons);
    return window;
}
