#include "formkeys.h"

#include "fieldnote.h"
#include "formchanges.h"
#include "typingundo.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace KV218
{

FormKeys::FormKeys(QWidget *form, FormChanges *changes) : QObject(form), Form(form), Changes(changes)
{
    form->installEventFilter(this);
    connect(changes, &FormChanges::refused, this, &FormKeys::Tell);
}

FormKeys::Act FormKeys::ActOf(const QKeyEvent &key)
{
    const bool isReturn = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (isReturn && (key.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier)
        return &FormChanges::Apply;
    if (key.matches(QKeySequence::Undo))
        return &FormChanges::Undo;
    return Orbel::IsRedoKey(key) ? &FormChanges::Redo : nullptr;
}

/// Qt asks before each key whether somebody claims it, from the widget with the focus upwards, and gives it to that
/// widget if so. It is caught on its way there, since some widgets keep every key that they get.
bool FormKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && watched == Form && Changes) {
        Claimed = ActOf(*static_cast<QKeyEvent *>(event));
        if (Claimed)
            qApp->installEventFilter(this);
        event->setAccepted(Claimed);
        return Claimed;
    }
    if (event->type() != QEvent::KeyPress || !Claimed)
        return false;
    const Act act = std::exchange(Claimed, nullptr);
    qApp->removeEventFilter(this);
    if (act != ActOf(*static_cast<QKeyEvent *>(event)))
        return false;
    // Last: a slot may end the form with its window.
    if (Changes)
        (Changes->*act)();
    return true;
}

void FormKeys::Tell(const QString &reason)
{
    QWidget *focus = Form->window()->focusWidget();
    Orbel::FieldNote::Tell(focus && Form->isAncestorOf(focus) ? focus : Form, reason);
}

} // namespace KV218
