#include "floatscrollarea.h"

#include "outofview.h"

#include <QEvent>
#include <QLayout>

FloatScrollArea::FloatScrollArea(QWidget *parent) : QScrollArea(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    setFrameShadow(QFrame::Plain);
    setWidgetResizable(true);
}

QSize FloatScrollArea::minimumSizeHint() const
{
    constexpr int greatestHeight = 20;
    const QSize hint = QAbstractScrollArea::minimumSizeHint();
    return QSize(hint.width(), qMin(hint.height(), greatestHeight));
}

bool FloatScrollArea::event(QEvent *event)
{
    if (event->type() != QEvent::LanguageChange || !widget())
        return QScrollArea::event(event);
    const QPointer<QWidget> content(widget());
    bool isDone = false;
    {
        Orbel::OutOfView quiet;
        for (QWidget *row : content->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            quiet.Add(row);
        isDone = QScrollArea::event(event);
    }
    // Some may have come into view.
    if (content)
        content->update();
    return isDone;
}

void FloatScrollArea::resizeEvent(QResizeEvent *event)
{
    if (QWidget *content = widget()) {
        if (content->layout())
            content->layout()->invalidate();
        // The arrangement before has raised the minimum, which would keep the content from shrinking.
        content->setMinimumSize(10, 10);
    }
    QScrollArea::resizeEvent(event);
}
