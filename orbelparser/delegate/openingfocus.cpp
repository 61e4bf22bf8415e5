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

OpeningFocus::OpeningFocus(QWidget *form, QWidget *rows, const std::function<bool()> &isLocked)
    : QObject(form), Form(form), Rows(rows), IsLocked(isLocked), IsParked(form->isVisible())
{
    Form->installEventFilter(this);
}

bool OpeningFocus::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Form && event->type() == QEvent::Show && !static_cast<QShowEvent *>(event)->spontaneous())
        TakeFocus();
    return false;
}

void OpeningFocus::TakeFocus()
{
    if (IsOver || !Rows || !Form->isVisible())
        return;
    const QWidget *focus = Form->window()->focusWidget();
    const bool isNobodys = !focus || (IsParked && focus == Form);
    if (isNobodys && !GiveFocus() && IsLocked()) {
        IsParked = true;
        Form->setFocus(Qt::OtherFocusReason);
        return;
    }
    IsOver = true;
    deleteLater();
}

bool OpeningFocus::GiveFocus() const
{
    for (QWidget *next = Rows->nextInFocusChain(); next != Rows; next = next->nextInFocusChain()) {
        const bool isControl = Rows->isAncestorOf(next) && !qobject_cast<QGroupBox *>(next);
        if (isControl && TakesTab(next) && next->isEnabled() && next->isVisible()) {
            next->setFocus(Qt::OtherFocusReason);
            return true;
        }
    }
    return false;
}

} // namespace KV218
