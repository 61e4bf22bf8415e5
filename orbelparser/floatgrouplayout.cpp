#include "floatgrouplayout.h"

#include "floatgrouparranger.h"
#include "lookwatch.h"
#include "sectionline.h"

#include <QEvent>
#include <QGroupBox>
#include <QScrollArea>

#include <utility>

namespace
{

template <class Widget> Widget *Named(Widget *widget, const char *name)
{
    widget->setObjectName(QString::fromUtf8(name));
    return widget;
}

int TopMargin(QLayoutItem *item)
{
    const QWidget *widget = item->widget();
    return widget ? widget->contentsMargins().top() : 0;
}

/// Most widgets of a form stay where they are when it is arranged anew, and Qt takes its time to find that out. One
/// that may not be as large as its place any more does not stay.
void Place(QLayoutItem *item, const QRect &place)
{
    const QWidget *widget = item->widget();
    const bool wasPlaced = widget && widget->testAttribute(Qt::WA_Moved) && widget->testAttribute(Qt::WA_Resized);
    const bool stands = wasPlaced && !item->alignment() && widget->geometry() == place;
    if (!stands || place.size().boundedTo(item->maximumSize()) != place.size())
        item->setGeometry(place);
}

} // namespace

FloatGroupLayout::FloatGroupLayout(QWidget *parent) : QLayout(parent)
{
    setSizeConstraint(QLayout::SetNoConstraint);
    setAlignment(Qt::AlignTop);
}

FloatGroupLayout::FloatGroupLayout(QScrollArea *area) : FloatGroupLayout(area->widget())
{
    ScrollArea = area;
    area->installEventFilter(this);
}

FloatGroupLayout::~FloatGroupLayout()
{
    qDeleteAll(Items);
}

void FloatGroupLayout::addGroup()
{
    setFlag(count(), FloatGroupItem::ItemGroup);
}

void FloatGroupLayout::addSpecial()
{
    setFlag(count(), FloatGroupItem::ItemSpecial);
}

void FloatGroupLayout::addList()
{
    setFlag(count(), FloatGroupItem::ItemList);
}

void FloatGroupLayout::addSection(const char *name)
{
    setFlag(count(), FloatGroupItem::ItemGroup | FloatGroupItem::ItemSection);
    QWidget *line = Named(new QWidget(parentWidget()), name);
    line->setFixedHeight(2);
    addWidget(line);
}

QGroupBox *FloatGroupLayout::addHeadline(const QString &title, int margin, const char *name)
{
    setFlag(count(), FloatGroupItem::ItemGroup | FloatGroupItem::ItemSection);
    // A line without a title shares the margin between its height and the gap above it.
    const int gap = title.isEmpty() ? margin - margin / 2 : margin;
    QGroupBox *line = Named(new SectionLine(title, gap, parentWidget()), name);
    watchLook();
    line->setAlignment(Qt::AlignHCenter);
    line->setFlat(true);
    if (title.isEmpty())
        line->setFixedHeight(margin / 2 + 5);
    addWidget(line);
    return line;
}

void FloatGroupLayout::watchLook()
{
    if (Look || !parentWidget())
        return;
    Look = new Orbel::LookWatch(parentWidget(), this, [this] {
        for (QLayoutItem *item : qAsConst(Items)) {
            if (auto *line = dynamic_cast<SectionLine *>(item->widget()))
                line->FollowParent();
        }
    });
}

QWidget *FloatGroupLayout::addSeparator(int height, const char *name)
{
    setFlag(count(), FloatGroupItem::ItemGroup);
    QWidget *gap = Named(new QWidget(parentWidget()), name);
    gap->setFixedHeight(height);
    addWidget(gap);
    return gap;
}

RowLabel *FloatGroupLayout::addLabel(const QString &text, const char *name)
{
    setFlag(count(), FloatGroupItem::ItemGroup | FloatGroupItem::ItemLabel);
    RowLabel *label = Named(new RowLabel(text, parentWidget()), name);
    addWidget(label);
    return label;
}

void FloatGroupLayout::addRow(const QString &text, QWidget *widget)
{
    addLabel(text, QStringLiteral("label%1").arg(widget->objectName()).toUtf8().constData());
    addWidget(widget);
}

void FloatGroupLayout::setVerticalSpacing(int spacing)
{
    VerticalSpacing = spacing;
}

void FloatGroupLayout::setHorizontalSpacing(int spacing)
{
    HorizontalSpacing = spacing;
}

void FloatGroupLayout::removeAllWidgets()
{
    while (!Items.isEmpty()) {
        // All items go before the first widget does: a layout looks for each dying child among the items it has.
        QVector<QPointer<QWidget>> widgets;
        QList<QLayoutItem *> taken;
        while (QLayoutItem *item = takeAt(0)) {
            widgets.append(item->widget());
            taken.append(item);
        }
        for (int i = 0; i < taken.size(); ++i) {
            delete widgets.at(i);
            delete taken.at(i);
        }
    }
    Flags.clear();
    // Meant: with no items left, the size of the last arrangement remains the answer.
    Hints.clear();
}

void FloatGroupLayout::addItem(QLayoutItem *item)
{
    clearHints();
    Items.append(item);
    Flags.append(0);
}

int FloatGroupLayout::count() const
{
    return Items.size();
}

QLayoutItem *FloatGroupLayout::itemAt(int index) const
{
    return Items.value(index);
}

QLayoutItem *FloatGroupLayout::takeAt(int index)
{
    if (index < 0 || index >= Items.size())
        return nullptr;
    // Meant: flags keep their places, so the items behind take over those of their neighbours.
    return Items.takeAt(index);
}

void FloatGroupLayout::invalidate()
{
    clearHints();
    if (Pauses == 0) {
        QLayout::invalidate();
        return;
    }
    // To the base class nothing has happened, and so it has nothing to activate when a child asks for it.
    if (!std::exchange(Owed, true))
        QMetaObject::invokeMethod(this, &FloatGroupLayout::settle, Qt::QueuedConnection);
}

void FloatGroupLayout::pause()
{
    ++Pauses;
}

void FloatGroupLayout::resume()
{
    if (--Pauses == 0)
        settle();
}

void FloatGroupLayout::settle()
{
    if (!std::exchange(Owed, false))
        return;
    QLayout::invalidate();
    if (parentWidget() && parentWidget()->isVisible())
        activate();
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
    // Meant: only the first item counts, so a form can be squeezed to its size.
    return Items.isEmpty() ? QSize(HorizontalSpacing, VerticalSpacing) : Items.first()->sizeHint();
}

void FloatGroupLayout::setGeometry(const QRect &rect)
{
    const QSize size = sizeHint(rect.width(), 0);
    const unsigned arranged = ChangeCount;
    const unsigned placed = PlaceCount;
    if (const auto *area = qobject_cast<QScrollArea *>(ScrollArea); area && area->widget())
        area->widget()->setMinimumSize(size);
    QLayout::setGeometry(rect);
    // A widget that had to grow has come here already, with this same arrangement.
    if (PlaceCount != placed && ChangeCount == arranged)
        return;
    ++PlaceCount;
    // Placing an item can arrange anew, and can take away items, this one among them.
    for (int i = 0; ChangeCount == arranged && i < Items.size() && i < Hints.size(); ++i) {
        QLayoutItem *item = Items.at(i);
        Place(item, placeOf(i));
        if (Items.value(i) == item && (Flags.at(i) & FloatGroupItem::ItemList))
            setListGeometry(item);
    }
}

bool FloatGroupLayout::eventFilter(QObject *watched, QEvent *event)
{
    // Once all widgets have heard of it and asked for their new sizes.
    if (event->type() == QEvent::LanguageChange && watched == ScrollArea)
        QMetaObject::invokeMethod(this, &FloatGroupLayout::dropListWidths, Qt::QueuedConnection);
    // The area sends other events even while it is destroyed, and must not be touched then.
    if (event->type() != QEvent::Resize || watched != ScrollArea)
        return QLayout::eventFilter(watched, event);
    invalidate();
    update();
    // Meant: the event ends here; the area lays its viewport out when the request that update() posts comes through.
    return true;
}

QSize FloatGroupLayout::sizeHint(int width, int columnCount) const
{
    // Meant: until invalidate() another width or column count gets the size of the first one, too.
    if (Hints.size() == Items.size())
        return TotalSize;
    if (ScrollArea && ScrollArea->width() > 0)
        width = qMin(width, ScrollArea->width());
    QVector<FloatGroupItem> measured;
    if (!scanItems(measured))
        return TotalSize;
    FloatGroupArranger arranger(std::move(measured), HorizontalSpacing, VerticalSpacing);
    arranger.arrange(width, columnCount);
    Hints = arranger.hints();
    TotalSize = arranger.totalSize();
    return TotalSize;
}

/// Measures all items. False when there is none, or when measuring took items away or added some.
bool FloatGroupLayout::scanItems(QVector<FloatGroupItem> &measured) const
{
    clearHints();
    TotalSize = QSize(0, 0);
    measured.resize(Items.size());
    FloatGroupItem *next = measured.data();
    // A widget that is asked for the first time takes on its style and may invalidate this layout: nothing may rely on
    // `Hints` here, nor on the items.
    const QList<QLayoutItem *> asked = Items;
    for (int i = 0; i < asked.size() && Items == asked; ++i) {
        const int itemFlags = Flags.at(i);
        const int topMargin = itemFlags & FloatGroupItem::ItemSection ? TopMargin(asked.at(i)) : 0;
        const QSize hint = asked.at(i)->sizeHint();
        *next++ = {itemFlags, hint.width(), hint.height(), topMargin};
    }
    return !measured.isEmpty() && Items == asked;
}

/// Where the item goes: a label that stands beside its control may need more height than it was arranged with.
QRect FloatGroupLayout::placeOf(int index) const
{
    QRect place = Hints.at(index);
    if (!(Flags.at(index) & FloatGroupItem::ItemLabel) || place.height() <= 0)
        return place;
    auto *label = qobject_cast<RowLabel *>(Items.at(index)->widget());
    if (!label)
        return place;
    const int next = index + 1;
    const bool inRow = next < Items.size() && !(Flags.at(next) & FloatGroupItem::ItemGroup)
        && Hints.at(next).height() > 0 && Hints.at(next).top() == place.top();
    QWidget *control = inRow ? Items.at(next)->widget() : nullptr;
    // The item knows the hint of its widget without asking anew.
    const int own = Items.at(index)->sizeHint().height();
    place.setHeight(label->StandBeside(control, inRow ? Hints.at(next).size() : QSize(), place.height(), own));
    return place;
}

/// Stretches the rows of a list to the width that the list got.
void FloatGroupLayout::setListGeometry(QLayoutItem *item)
{
    if (!item || !item->widget() || !item->widget()->layout())
        return;
    const QPointer<QLayout> list = item->widget()->layout();
    const int width = item->geometry().width();
    for (int i = 0; list && i < list->count(); ++i) {
        if (QWidget *row = list->itemAt(i)->widget())
            row->setMinimumWidth(width);
    }
}

void FloatGroupLayout::setFlag(int index, int flag)
{
    if (Flags.size() <= index)
        Flags.resize(index + 1);
    Flags[index] |= flag;
}

void FloatGroupLayout::clearHints() const
{
    ++ChangeCount;
    Hints.clear();
}

/// Shorter labels leave a list less width, while its rows go on asking for what they were stretched to.
void FloatGroupLayout::dropListWidths()
{
    for (int i = 0; i < Items.size(); ++i) {
        QWidget *list = Flags.at(i) & FloatGroupItem::ItemList ? Items.at(i)->widget() : nullptr;
        if (!list || !list->layout())
            continue;
        for (int row = 0; row < list->layout()->count(); ++row) {
            if (QWidget *widget = list->layout()->itemAt(row)->widget())
                widget->setMinimumWidth(0);
        }
        // An arrangement that is due would stretch them again before the list comes to ask.
        list->updateGeometry();
    }
}
