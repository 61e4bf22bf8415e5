#include "floatscrollarea.h"

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
