#include "outofview.h"

namespace Orbel
{

bool IsOutOfView(const QWidget *widget)
{
    if (!widget->isVisible())
        return false;
    QRect seen = widget->rect();
    for (; !widget->isWindow(); widget = widget->parentWidget()) {
        // A shadow, say, reaches beyond the widget.
        if (widget->graphicsEffect())
            return false;
        seen = seen.translated(widget->pos()) & widget->parentWidget()->rect();
        if (seen.isEmpty())
            return true;
    }
    return false;
}

RepaintsNothing::RepaintsNothing(QWidget *widget, QWidget *part)
    : Untold(widget), Places{{{widget, !widget->updatesEnabled()}, {part, part && !part->updatesEnabled()}}}
{
    for (const Place &place : Places) {
        if (place.Widget)
            place.Widget->setAttribute(Qt::WA_UpdatesDisabled);
    }
}

RepaintsNothing::~RepaintsNothing()
{
    // setUpdatesEnabled() would ask for a repaint of all.
    for (const Place &place : Places) {
        if (place.Widget)
            place.Widget->setAttribute(Qt::WA_UpdatesDisabled, place.WasDisabled);
    }
}

} // namespace Orbel
