#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

namespace Orbel
{

/// Keeps widgets that are out of view from marking themselves for a repaint as long as this lives: the marks of many
/// siblings make the next repaint quadratic. What comes into view is drawn anew in any case, but for what does so while
/// this lives.
class OutOfView
{
public:
    OutOfView() = default;
    ~OutOfView()
    {
        for (const QPointer<QWidget> &widget : qAsConst(Quiet)) {
            if (widget)
                widget->setAttribute(Qt::WA_UpdatesDisabled, false);
        }
    }
    Q_DISABLE_COPY(OutOfView)

    /// The widget with all that is in it, if none of it is in view; nothing for null.
    void Add(QWidget *widget)
    {
        if (!widget || !widget->isVisible() || IsInView(widget))
            return;
        Silence(widget);
        for (QWidget *child : widget->findChildren<QWidget *>()) {
            if (child->window() == widget->window())
                Silence(child);
        }
    }

private:
    static bool IsInView(const QWidget *widget)
    {
        QRect seen = widget->rect();
        for (; !seen.isEmpty() && !widget->isWindow(); widget = widget->parentWidget())
            seen = seen.translated(widget->pos()) & widget->parentWidget()->rect();
        return !seen.isEmpty();
    }
    void Silence(QWidget *widget)
    {
        if (!widget->updatesEnabled())
            return;
        widget->setAttribute(Qt::WA_UpdatesDisabled);
        Quiet.append(widget);
    }

    QVector<QPointer<QWidget>> Quiet;
};

} // namespace Orbel
