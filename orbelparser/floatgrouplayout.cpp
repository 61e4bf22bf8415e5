#include "floatgrouplayout.h"

#include "fetchsoon.h"
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

/// Of what sizes are read from: items, their widgets, and what stands behind these.
void FetchAhead(const QList<QLayoutItem *> &items, int index)
{
    constexpr int stage = 8;
    const auto ahead = [&](int stages) { return items.value(index + stages * stage); };
    Orbel::FetchSoon(ahead(3));
    if (QLayoutItem *item = ahead(2))
        Orbel::FetchSoon(item->widget());
    if (QLayoutItem *item = ahead(1); item && item->widget())
        Orbel::FetchSoon(&item->widget()->geometry());
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
        // A handler of a line's new font may take items away.
        for (int i = 0; i < Items.size(); ++i) {
            if (auto *line = dynamic_cast<SectionLine *>(Items.at(i)->widget()))
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
    IsMeasured = false;
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
    IsMeasured = false;
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
    // Activating invalidates, and that must not be put off once more.
    const int pauses = std::exchange(Pauses, 0);
    QLayout::invalidate();
    if (parentWidget() && parentWidget()->isVisible())
        activate();
    Pauses += pauses;
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
    // Placing an item, or what stands in it, can arrange anew, and can take away items, this one among them.
    for (int i = 0; ChangeCount == arranged && i < Items.size() && i < Hints.size(); ++i) {
        FetchAhead(Items, i);
        QLayoutItem *item = Items.at(i);
        const QRect place = placeOf(i);
        if (ChangeCount == arranged && Items.value(i) == item)
            Place(item, place);
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
    if (!measureItems())
        return TotalSize;
    const Request request{width, columnCount, HorizontalSpacing, VerticalSpacing};
    if (Arranged.isEmpty() || !(request == ArrangedFor)) {
        FloatGroupArranger arranger(Measured, HorizontalSpacing, VerticalSpacing);
        arranger.arrange(width, columnCount);
        Arranged = arranger.hints();
        ArrangedSize = arranger.totalSize();
        ArrangedFor = request;
    }
    Hints = Arranged;
    TotalSize = ArrangedSize;
    return TotalSize;
}

bool FloatGroupLayout::Request::operator==(const Request &other) const
{
    return Width == other.Width && ColumnCount == other.ColumnCount && HorizontalSpacing == other.HorizontalSpacing
        && VerticalSpacing == other.VerticalSpacing;
}

/// Has `Measured` tell the sizes of all items. False when there is none, or when measuring took items away or added
/// some.
bool FloatGroupLayout::measureItems() const
{
    clearHints();
    TotalSize = QSize(0, 0);
    if (IsMeasured && Measured.size() == Items.size())
        return !Items.isEmpty();
    const unsigned changes = ChangeCount;
    // A widget that is asked for the first time takes on its style and may invalidate this layout, or arrange it:
    // nothing may rely on `Hints` here, nor on the items.
    const QList<QLayoutItem *> asked = Items;
    QVector<FloatGroupItem> measured(asked.size());
    FloatGroupItem *next = measured.data();
    for (int i = 0; i < asked.size() && Items == asked; ++i) {
        FetchAhead(asked, i);
        *next++ = measureItem(i);
    }
    if (Items != asked)
        return false;
    // Compared only now: what has arranged meanwhile has left its own sizes there.
    if (measured != Measured) {
        Measured = measured;
        Arranged.clear();
    }
    IsMeasured = ChangeCount == changes;
    return !asked.isEmpty();
}

FloatGroupItem FloatGroupLayout::measureItem(int index) const
{
    QLayoutItem *item = Items.at(index);
    const int itemFlags = Flags.at(index);
    const int topMargin = itemFlags & FloatGroupItem::ItemSection ? TopMargin(item) : 0;
    const QSize hint = item->sizeHint();
    return {itemFlags, hint.width(), hint.height(), topMargin};
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
    const int own = Measured.at(index).height;
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
