#pragma once

#include <QKeyEvent>
#include <QLineEdit>

namespace Orbel
{

/// Whether a key asks to bring back what was taken back: the platform's own key, or Ctrl+Shift+Z.
inline bool IsRedoKey(const QKeyEvent &key)
{
    const bool common = key.key() == Qt::Key_Z && key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    return common || key.matches(QKeySequence::Redo);
}

/// Whether an event is the key to undo or redo, and nothing was typed into the field that it could mean: then it
/// belongs to whoever undoes committed changes. Qt's field would keep it.
inline bool LeavesUndoToForm(const QLineEdit &field, const QEvent &event)
{
    if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    return key.matches(QKeySequence::Undo) ? !field.isUndoAvailable() : IsRedoKey(key) && !field.isRedoAvailable();
}

/// Whether there is something typed that the field could take back or bring back.
inline bool RemembersTyping(const QLineEdit &field)
{
    return field.isUndoAvailable() || field.isRedoAvailable();
}

/// Has the field forget what was typed up to now: it is committed. Text, caret and selection stay.
inline void ForgetTyping(QLineEdit *field)
{
    if (!RemembersTyping(*field))
        return;
    const int caret = field->cursorPosition();
    const int start = field->selectionStart();
    const int length = field->selectionLength();
    field->setText(field->text());
    if (start >= 0)
        field->setSelection(caret == start ? start + length : start, caret == start ? -length : length);
    else
        field->setCursorPosition(caret);
}

} // namespace Orbel
