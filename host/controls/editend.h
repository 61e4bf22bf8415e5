#pragma once

#include <QFocusEvent>
#include <QKeyEvent>

namespace Orbel
{

/// Whether the focus goes for good: it comes back from the field's own context menu, and from another window.
inline bool LeavesField(const QFocusEvent &event)
{
    return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::ActiveWindowFocusReason;
}

/// Whether an event ends an edit in a field: Return, or that the focus goes for good.
inline bool EndsEdit(const QEvent &event)
{
    if (event.type() == QEvent::FocusOut)
        return LeavesField(static_cast<const QFocusEvent &>(event));
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace Orbel
