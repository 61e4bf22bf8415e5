#include "firstline.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QStyleOption>
#include <QTableView>

namespace
{

/// Of a text that a style draws in the middle.
int Centred(const QRect &line, const QWidget *widget)
{
    const QFontMetrics metrics = widget->fontMetrics();
    return line.top() + (line.height() - metrics.height()) / 2 + metrics.ascent();
}

/// Line edits put the pixel that is left over above their text.
int CentredInField(const QRect &line, const QWidget *widget)
{
    return Centred(line.adjusted(0, 0, 0, 1), widget);
}

int OfField(const QLineEdit *field, const QRect &inside)
{
    QStyleOptionFrame option;
    option.initFrom(field);
    option.rect = inside;
    option.lineWidth
        = field->hasFrame() ? field->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, field) : 0;
    return CentredInField(field->style()->subElementRect(QStyle::SE_LineEditContents, &option, field), field);
}

int OfSpin(const QAbstractSpinBox *spin, const QRect &inside)
{
    QStyleOptionSpinBox option;
    option.initFrom(spin);
    option.rect = inside;
    option.frame = spin->hasFrame();
    option.subControls = QStyle::SC_All;
    return CentredInField(
        spin->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, spin), spin);
}

int OfCombo(const QComboBox *combo, const QRect &inside)
{
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.rect = inside;
    option.frame = combo->hasFrame();
    return Centred(
        combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo), combo);
}

int OfTable(const QTableView *table)
{
    const QHeaderView *header = table->horizontalHeader();
    const int height = header->isHidden() ? table->rowHeight(0) : header->sizeHint().height();
    const QWidget *line = header->isHidden() ? static_cast<const QWidget *>(table) : header;
    return Centred(QRect(0, table->frameWidth(), 1, height), line);
}

std::optional<int> OfContent(QLayout *layout, const QSize &size)
{
    // A handler of what is placed may destroy any of it.
    const QPointer<QLayout> placed = layout;
    layout->setGeometry(QRect(QPoint(), size));
    QLayoutItem *item = placed ? placed->itemAt(0) : nullptr;
    const QPointer<QWidget> first = item ? item->widget() : nullptr;
    if (!first)
        return {};
    const std::optional<int> within = FirstBaseline(first, first->size());
    return within && first ? std::optional<int>(first->y() + *within) : std::nullopt;
}

} // namespace

std::optional<int> FirstBaseline(QWidget *control, const QSize &size)
{
    const QRect inside(QPoint(), size);
    if (const auto *field = qobject_cast<QLineEdit *>(control))
        return OfField(field, inside);
    if (const auto *spin = qobject_cast<QAbstractSpinBox *>(control))
        return OfSpin(spin, inside);
    if (const auto *combo = qobject_cast<QComboBox *>(control))
        return OfCombo(combo, inside);
    if (const auto *table = qobject_cast<QTableView *>(control))
        return OfTable(table);
    if (qobject_cast<QAbstractButton *>(control) || qobject_cast<QLabel *>(control))
        return Centred(inside, control);
    return control->layout() ? OfContent(control->layout(), size) : std::nullopt;
}
