#pragma once

#include <QFocusEvent>
#include <QKeyEvent>

/// Whether an event ends an edit in a field: Return, or that the focus goes. The field's own context menu takes the
/// focus too, and the edit goes on after it.
inline bool EndsEdit(const QEvent &event)
{
    if (event.type() == QEvent::FocusOut)
        return static_cast<const QFocusEvent &>(event).reason() != Qt::PopupFocusReason;
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}
