#include "floatgrouplayout.h"

#include <QEvent>
#include <QGroupBox>
#include <QLabel>

namespace
{

constexpr int LabelHeightLimit = 24;

/// A sum of pixels that stays far from the end of int, however many huge items a form has.
int Plus(int a, int b)
{
    constexpr qint64 farOut = 1 << 29;
    return int(qBound(-farOut, qint64(a) + b, farOut));
}

template <class Widget> Widget *Named(Widget *widget, const char *name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

} // namespace

FloatGroupLayout::FloatGroupLayout(QWidget *parent) : QLayout(parent)
{
    setSizeConstraint(QLayout::SetNoConstraint);
    setAlignment(Qt::AlignTop);
}

FloatGroupLayout::FloatGroupLayout(QScrollArea *area) : FloatGroupLayout(area->widget())
{
    scrollArea = area;
    area->installEventFilter(this);
}

FloatGroupLayout::~FloatGroupLayout()
{
    qDeleteAll(items);
}

void FloatGroupLayout::addGroup()
{
    setFlag(count(), ItemGroup);
}

void FloatGroupLayout::addSpecial()
{
    setFlag(count(), ItemSpecial);
}

void FloatGroupLayout::addList()
{
    setFlag(count(), ItemList);
}

void FloatGroupLayout::addSection(const char *name)
{
    setFlag(count(), ItemGroup | ItemSection);
    auto *line = Named(new QWidget(parentWidget()), name);
    line->setFixedHeight(2);
    addWidget(line);
}

QGroupBox *FloatGroupLayout::addHeadline(const QString &title, int margin, const char *name)
{
    setFlag(count(), ItemGroup | ItemSection);
    auto *line = Named(new QGroupBox(title, parentWidget()), name);
    line->setAlignment(Qt::AlignHCenter);
    line->setFlat(true);
    if (title.isEmpty())
        line->setFixedHeight(margin / 2 + 5);
    line->setContentsMargins(0, title.isEmpty() ? margin - margin / 2 : margin, 0, 0);
    addWidget(line);
    return line;
}

QWidget *FloatGroupLayout::addSeparator(int height, const char *name)
{
    setFlag(count(), ItemGroup);
    auto *gap = Named(new QWidget(parentWidget()), name);
    gap->setFixedHeight(height);
    addWidget(gap);
    return gap;
}

QLabel *FloatGroupLayout::addLabel(const QString &text, const char *name)
{
    setFlag(count(), ItemGroup | ItemLabel);
    auto *label = Named(new QLabel(text, parentWidget()), name);
    addWidget(label);
    return label;
}

void FloatGroupLayout::addRow(const QString &text, QWidget *widget)
{
    addLabel(text, QStringLiteral("label%1").arg(widget->objectName()).toLatin1().constData());
    addWidget(widget);
}

void FloatGroupLayout::removeAllWidgets()
{
    while (QLayoutItem *item = takeAt(0)) {
        delete item->widget();
        delete item;
    }
    flags.clear();
    // Meant: the size of the last arrangement stays.
    hints.clear();
}

void FloatGroupLayout::addItem(QLayoutItem *item)
{
    clearHints();
    items.append(item);
    flags.append(0);
}

int FloatGroupLayout::count() const
{
    return items.size();
}

QLayoutItem *FloatGroupLayout::itemAt(int index) const
{
    return items.value(index);
}

QLayoutItem *FloatGroupLayout::takeAt(int index)
{
    // Meant: flags stay where they are and pass to the items that move up.
    return index >= 0 && index < items.size() ? items.takeAt(index) : nullptr;
}

void FloatGroupLayout::invalidate()
{
    clearHints();
    QLayout::invalidate();
}

Qt::Orientations FloatGroupLayout::expandingDirections() const
{
    return Qt::Vertical;
}

bool FloatGroupLayout::hasHeightForWidth() const
{
    return true;
}

int FloatGroupLayout::heightForWidth(int width) const
{
    return sizeHint(width, 0).height();
}

QSize FloatGroupLayout::sizeHint() const
{
    constexpr int anyWidth = 1000000;
    return sizeHint(anyWidth, 1);
}

QSize FloatGroupLayout::minimumSize() const
{
    return items.isEmpty() ? QSize(horizontalSpacing, verticalSpacing) : items.first()->sizeHint();
}

bool FloatGroupLayout::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != scrollArea || event->type() != QEvent::Resize)
        return QLayout::eventFilter(watched, event);
    invalidate();
    update();
    return true;
}

void FloatGroupLayout::clearHints()
{
    ++changeCount;
    hints.clear();
}

void FloatGroupLayout::setFlag(int index, int flag)
{
    while (flags.size() <= index)
        flags.append(0);
    flags[index] |= flag;
}

void FloatGroupLayout::setGeometry(const QRect &rect)
{
    const QSize size = sizeHint(rect.width(), 0);
    const int before = changeCount;
    if (scrollArea && scrollArea->widget())
        scrollArea->widget()->setMinimumSize(size);
    QLayout::setGeometry(rect);
    // Somebody who arranges anew meanwhile places the rest.
    for (int i = 0; i < items.size() && changeCount == before; ++i) {
        QLayoutItem *item = items.at(i);
        item->setGeometry(hints.at(i));
        if (items.value(i) == item && (flags.at(i) & ItemList))
            setListGeometry(item);
    }
}

void FloatGroupLayout::setListGeometry(QLayoutItem *item)
{
    const QLayout *list = item && item->widget() ? item->widget()->layout() : nullptr;
    for (int i = 0; list && i < list->count(); ++i) {
        if (QWidget *row = list->itemAt(i)->widget())
            row->setMinimumWidth(item->geometry().width());
    }
}

QSize FloatGroupLayout::sizeHint(int width, int columnCount) const
{
    // Meant: whoever asks first after an invalidation fixes the arrangement for all.
    if (hints.size() == items.size())
        return totalSize;
    if (scrollArea && scrollArea->width() > 0)
        width = qMin(width, scrollArea->width());
    QList<FloatGroupColumn> sections;
    if (!scanItems(sections))
        return totalSize;
    if (columnCount < 1 || columnCount > sections.size())
        columnCount = sections.size();
    QList<FloatGroupColumn> columns;
    const int sectionsPerColumn = scanSections(columns, sections, columnCount, width);
    arrangeItems(columns, sectionsPerColumn, width);
    return totalSize;
}

/// Measures all items and cuts them into sections; false without items.
bool FloatGroupLayout::scanItems(QList<FloatGroupColumn> &sections) const
{
    ++changeCount;
    hints.clear();
    totalSize = QSize(0, 0);
    if (items.isEmpty())
        return false;
    hints.reserve(items.size());
    for (const QLayoutItem *item : items)
        hints.append(QRect(QPoint(0, 0), item->sizeHint()));

    FloatGroupColumn section;
    int rowSum = 0;
    int rowPosition = 0;
    for (int i = 0; i < items.size(); ++i) {
        const int flag = flags.at(i);
        const int width = hints.at(i).width();
        if (i > 0 && (flag & ItemSection) && !skipSection(i)) {
            sections.append(section);
            section = FloatGroupColumn();
            section.firstItem = i;
        }
        if (flag & ItemGroup) {
            rowSum = 0;
            rowPosition = 0;
        }
        if (flag & ItemLabel) {
            section.labelWidth = qMax(section.labelWidth, width);
        } else if (flag & ItemSection) {
            section.sectionWidth = qMax(section.sectionWidth, Plus(width, horizontalSpacing));
        } else {
            rowSum = Plus(rowSum, Plus(width, horizontalSpacing));
            section.rowWidth = qMax(section.rowWidth, rowSum);
            // Meant: only what stands directly behind the first of its row is measured into the control column.
            if (!(flag & ItemSpecial) && rowPosition == 1)
                section.controlWidth = qMax(section.controlWidth, width);
        }
        ++rowPosition;
    }
    sections.append(section);
    return true;
}

/// Whether a section line opens no section: one with nothing visible between it and the line before, or one with
/// neither a line nor anything visible behind it.
bool FloatGroupLayout::skipSection(int index) const
{
    for (int i = index - 1; i >= 0; --i) {
        if (flags.at(i) & ItemSection)
            return true;
        if (isVisible(i))
            break;
    }
    for (int i = index + 1; i < items.size(); ++i) {
        if ((flags.at(i) & ItemSection) || isVisible(i))
            return false;
    }
    return true;
}

/// Deals the sections out to as many screen columns as fit, `columnCount` at most; gives the sections a column.
int FloatGroupLayout::scanSections(
    QList<FloatGroupColumn> &columns, QList<FloatGroupColumn> &sections, int columnCount, int width) const
{
    for (;;) {
        columns.clear();
        const int sectionsPerColumn = (sections.size() + columnCount - 1) / columnCount;
        int x = 0;
        while (columns.size() < columnCount) {
            FloatGroupColumn column = joinSections(sections, columns.size() * sectionsPerColumn, sectionsPerColumn);
            column.left = x;
            x = Plus(x,
                qMax(Plus(Plus(column.labelWidth, column.rowWidth), 2 * horizontalSpacing), column.sectionWidth));
            // Meant: a column that ends exactly on the width is too wide, and an empty one counts too.
            if (!columns.isEmpty() && x >= width)
                break;
            columns.append(column);
        }
        if (columns.size() == columnCount)
            return sectionsPerColumn;
        columnCount = columns.size();
    }
}

/// The measures of a screen column of up to `number` sections from `first` on.
FloatGroupColumn FloatGroupLayout::joinSections(const QList<FloatGroupColumn> &sections, int first, int number) const
{
    FloatGroupColumn column;
    column.firstItem = first < sections.size() ? sections.at(first).firstItem : items.size();
    for (int i = first; i < qMin(first + number, sections.size()); ++i) {
        const FloatGroupColumn &section = sections.at(i);
        column.labelWidth = qMax(column.labelWidth, section.labelWidth);
        column.controlWidth = qMax(column.controlWidth, section.controlWidth);
        column.rowWidth = qMax(column.rowWidth, section.rowWidth);
        column.sectionWidth = qMax(column.sectionWidth, section.sectionWidth);
    }
    return column;
}

/// The screen column that holds an item.
int FloatGroupLayout::getSectionIndex(QList<FloatGroupColumn> &columns, int index) const
{
    for (int i = columns.size() - 1; i > 0; --i) {
        if (columns.at(i).firstItem <= index)
            return i;
    }
    return 0;
}

/// Places all items, in one pass over the measured hints.
void FloatGroupLayout::arrangeItems(QList<FloatGroupColumn> &columns, int, int width) const
{
    FloatGroupColumn *column = &columns.first();
    int x = 0;
    int y = 0;
    int rowHeight = 0;
    int advance = 0;
    int right = 0;
    int bottom = 0;
    QRect *label = nullptr;
    const auto finishLabel = [&] {
        if (label)
            label->setHeight(qMin(rowHeight, LabelHeightLimit));
        label = nullptr;
    };

    for (int i = 0; i < items.size(); ++i) {
        const int flag = flags.at(i);
        QRect &rect = hints[i];
        if (flag & ItemGroup) {
            finishLabel();
            y = Plus(y, rowHeight);
            x = column->left;
            rowHeight = 0;
        } else {
            x = Plus(x, advance);
        }
        if (flag & ItemLabel) {
            rect.setWidth(column->labelWidth);
            label = &rect;
        } else if (!(flag & ItemSpecial)) {
            rect.setWidth(qMax(rect.width(), column->controlWidth));
        }
        if (flag & ItemSection) {
            if (i > 0 && items.at(i)->widget())
                y = Plus(y, items.at(i)->widget()->contentsMargins().top());
            column->flowY = y;
            column = &columns[getSectionIndex(columns, i)];
            const int line = qMax(Plus(column->labelWidth, column->rowWidth), column->sectionWidth);
            rect.setWidth(line > width ? qMax(width, right) : line);
            x = column->left;
            y = column->flowY;
        }
        if (x > 0 && Plus(rect.width(), x) > width) {
            // Meant: what does not fit goes to the very left of the layout, not of its column.
            y = Plus(y, rowHeight);
            rowHeight = 0;
            x = 0;
        }
        rect.moveTo(x, y);
        advance = Plus(rect.width(), horizontalSpacing);
        if (rect.height() > 0)
            rowHeight = qMax(rowHeight, Plus(rect.height(), verticalSpacing));
        right = qMax(right, rect.right());
        bottom = qMax(bottom, rect.bottom());
    }
    finishLabel();
    // Meant: the width is the rightmost pixel's coordinate, the height one more than the lowest one's.
    totalSize = QSize(right, bottom + 1);
}
