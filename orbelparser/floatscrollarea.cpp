#include "floatscrollarea.h"

#include <QEvent>
#include <QLayout>
#include <QPointer>
#include <QVector>

namespace
{

/// Keeps what lies out of view from marking itself for a repaint, for the length of a block: the marks of many siblings
/// make the next repaint quadratic.
class OutOfView
{
public:
    explicit OutOfView(QWidget *content) : Content(content)
    {
        const QRegion inView = content->visibleRegion();
        for (QWidget *child : content->findChildren<QWidget *>()) {
            const bool isOut = child->window() == content->window()
                && !inView.intersects(QRect(child->mapTo(content, QPoint()), child->size()));
            if (!isOut || !child->isVisible() || !child->updatesEnabled())
                continue;
            child->setAttribute(Qt::WA_UpdatesDisabled);
            Children.append(child);
        }
    }
    ~OutOfView()
    {
        for (const QPointer<QWidget> &child : qAsConst(Children)) {
            if (child)
                child->setAttribute(Qt::WA_UpdatesDisabled, false);
        }
        // Some may have come into view.
        if (Content && !Children.isEmpty())
            Content->update();
    }
    Q_DISABLE_COPY(OutOfView)

private:
    const QPointer<QWidget> Content;
    QVector<QPointer<QWidget>> Children;
};

} // namespace

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
    const OutOfView quiet(widget());
    return QScrollArea::event(event);
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
