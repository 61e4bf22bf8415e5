#include "openingfocus.h"

#include <QEvent>
#include <QGroupBox>
#include <QShowEvent>

namespace KV218
{

static bool TakesTab(const QWidget *widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy();
}

OpeningFocus::OpeningFocus(QWidget *form, QWidget *rows) : QObject(form), Form(form), Rows(rows)
{
    Form->installEventFilter(this);
}

bool OpeningFocus::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Form && event->type() == QEvent::Show && !static_cast<QShowEvent *>(event)->spontaneous()) {
        Form->removeEventFilter(this);
        deleteLater();
        if (Rows && !Form->window()->focusWidget())
            GiveFocus();
    }
    return false;
}

void OpeningFocus::GiveFocus()
{
    for (QWidget *next = Rows->nextInFocusChain(); next != Rows; next = next->nextInFocusChain()) {
        const bool isControl = Rows->isAncestorOf(next) && !qobject_cast<QGroupBox *>(next);
        if (isControl && TakesTab(next) && next->isEnabled() && next->isVisible()) {
            next->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

} // namespace KV218
