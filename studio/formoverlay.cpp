#include "formoverlay.h"

#include "controlwidgets.h"
#include "floatgrouplayout.h"
#include "orbelformular.h"
#include "workbench.h"

#include <QEvent>
#include <QPainter>
#include <QScrollArea>

namespace Orbel
{

static const QColor FrameColor(230, 60, 40);
static const QColor PointColor(40, 130, 230);

FormOverlay::FormOverlay(Workbench &bench) : Bench(bench)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(&Bench, &Workbench::picked, this, &FormOverlay::TakePicked);
    connect(&Bench, &Workbench::formChanged, this, &FormOverlay::Cover);
}

/// Scrolls to it.
void FormOverlay::TakePicked(const QString &name)
{
    const QVector<QWidget *> widgets = ControlWidgets::Of(Bench, name);
    QWidget *around = widgets.isEmpty() ? nullptr : widgets.constFirst();
    while (around && !qobject_cast<QScrollArea *>(around))
        around = around->parentWidget();
    if (auto *const area = qobject_cast<QScrollArea *>(around))
        area->ensureWidgetVisible(widgets.constFirst());
    ShowIfNeeded();
}

void FormOverlay::SetHints(bool shown)
{
    HasHints = shown;
    ShowIfNeeded();
}

void FormOverlay::Point(const QString &name)
{
    Pointed = name;
    ShowIfNeeded();
}

void FormOverlay::Cover()
{
    QWidget *const form = Bench.GetSession() ? Bench.GetSession()->GetWidget() : nullptr;
    if (form && parentWidget() != form) {
        setParent(form);
        form->installEventFilter(this);
    }
    ShowIfNeeded();
}

bool FormOverlay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest))
        ShowIfNeeded();
    return false;
}

void FormOverlay::ShowIfNeeded()
{
    if (!parentWidget())
        return;
    setGeometry(parentWidget()->rect());
    raise();
    setVisible(HasHints || !Pointed.isEmpty() || !Bench.GetPicked().isEmpty());
    update();
}

void FormOverlay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (HasHints)
        PaintHints(painter);
    PaintFrame(painter, Bench.GetPicked(), FrameColor);
    PaintFrame(painter, Pointed, PointColor);
}

/// What is not scrolled out of view; empty for nothing.
QRect FormOverlay::PlaceInView(const QWidget &widget) const
{
    const QRect seen = widget.visibleRegion().boundingRect();
    return seen.isEmpty() ? QRect() : seen.translated(widget.mapTo(parentWidget(), QPoint()));
}

QVector<QRect> FormOverlay::PlacesOf(const QString &name) const
{
    QVector<QRect> places;
    for (const QWidget *widget : ControlWidgets::Of(Bench, name)) {
        if (parentWidget()->isAncestorOf(widget))
            places.append(PlaceInView(*widget));
    }
    return places;
}

void FormOverlay::PaintFrame(QPainter &painter, const QString &name, const QColor &color) const
{
    QRect all;
    for (const QRect &place : PlacesOf(name))
        all |= place;
    if (all.isEmpty())
        return;
    painter.setPen(QPen(color, 2));
    // A control at the edge has all of its frame, too.
    painter.drawRect(all.adjusted(-2, -2, 1, 1) & rect().adjusted(1, 1, -1, -1));
}

void FormOverlay::PaintHints(QPainter &painter) const
{
    QFont font = painter.font();
    font.setPointSizeF(qMax(5.0, font.pointSizeF() * 0.7));
    painter.setFont(font);
    for (const QWidget *content : parentWidget()->findChildren<QWidget *>()) {
        auto *layout = qobject_cast<FloatGroupLayout *>(content->layout());
        for (int i = 0; layout && i < layout->count(); ++i) {
            const QLayoutItem *item = layout->itemAt(i);
            const QWidget *widget = const_cast<QLayoutItem *>(item)->widget();
            const QRect place = widget ? PlaceInView(*widget) : QRect();
            if (place.isEmpty())
                continue;
            const QColor color = qobject_cast<const RowLabel *>(widget) ? QColor(20, 140, 60) : QColor(150, 60, 190);
            painter.setPen(QPen(color, 1, Qt::DotLine));
            painter.drawRect(place.adjusted(0, 0, -1, -1));
            painter.drawText(place.adjusted(2, 0, -2, 0), Qt::AlignRight | Qt::AlignTop,
                QStringLiteral("%1×%2").arg(widget->width()).arg(widget->height()));
        }
    }
}

} // namespace Orbel
