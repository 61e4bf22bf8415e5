#include "keptfocus.h"

#include "orbelsheet.h"
#include "orbelsheetui.h"
#include "typingundo.h"

#include <QAbstractItemView>
#include <QDoubleSpinBox>
#include <QLineEdit>

namespace KV218
{

namespace
{

/// Where the letters of a widget are; null for one without.
QLineEdit *FieldOf(QWidget *widget)
{
    if (auto *field = qobject_cast<QLineEdit *>(widget))
        return field;
    QWidget *const proxy = widget ? widget->focusProxy() : nullptr;
    if (proxy && proxy != widget)
        return FieldOf(proxy);
    return qobject_cast<QAbstractSpinBox *>(widget) ? widget->findChild<QLineEdit *>() : nullptr;
}

/// What a spin box writes around the number that is typed.
QPair<QString, QString> AroundNumber(const QLineEdit *field)
{
    const auto *box = qobject_cast<const QDoubleSpinBox *>(field->parentWidget());
    return box ? qMakePair(box->prefix(), box->suffix()) : qMakePair(QString(), QString());
}

} // namespace

KeptFocus::KeptFocus(const OrbelSheet &sheet)
{
    QWidget *const form = sheet.GetGUI();
    QWidget *focus = form ? form->window()->focusWidget() : nullptr;
    if (form && focus == form && sheet.GetUi()->GetParked())
        focus = sheet.GetUi()->GetParked();
    if (!focus || !form->isAncestorOf(focus))
        return;
    ObjectName = focus->objectName();
    const QWidget *around = nullptr;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const auto faces = sheet.GetWidgetAt(i)->GetDelegate()->GetFaces();
        for (int face = 0; face < faces.size(); ++face) {
            const QWidget *control = faces.at(face).Widget;
            // The innermost one: some stand within others.
            if (!control || (control != focus && !control->isAncestorOf(focus))
                || (around && !around->isAncestorOf(control)))
                continue;
            around = control;
            Name = sheet.GetWidgetAt(i)->GetName();
            Face = face;
        }
    }
    KeepCell(around);
    if (QLineEdit *field = FieldOf(focus))
        KeepField(field);
}

void KeptFocus::KeepCell(const QWidget *face)
{
    const auto *table = qobject_cast<const QAbstractItemView *>(face);
    QWidget *const focus = face ? face->window()->focusWidget() : nullptr;
    const bool isEditor = table && focus != table && table->viewport()->isAncestorOf(focus);
    if (isEditor)
        Cell = {table->currentIndex().column(), table->currentIndex().row()};
}

void KeptFocus::KeepField(QLineEdit *field)
{
    HasField = true;
    IsTyped = Orbel::RemembersTyping(*field) || field->isModified();
    Caret = field->cursorPosition();
    Start = field->selectionStart();
    Length = field->selectedText().size();
    if (!IsTyped)
        return;
    Typed = field->text();
    const auto [before, behind] = AroundNumber(field);
    if (!behind.isEmpty() && Typed.endsWith(behind))
        Typed.chop(behind.size());
    if (!before.isEmpty() && Typed.startsWith(before))
        Typed.remove(0, before.size());
}

QWidget *KeptFocus::FindIn(const OrbelSheet &sheet) const
{
    for (int i = 0; i < sheet.GetWidgetCount() && Face >= 0; ++i) {
        if (sheet.GetWidgetAt(i)->GetName() == Name)
            return sheet.GetWidgetAt(i)->GetDelegate()->GetFaces().value(Face).Widget;
    }
    return Face >= 0 || ObjectName.isEmpty() ? nullptr : sheet.GetGUI()->findChild<QWidget *>(ObjectName);
}

void KeptFocus::GiveTo(const OrbelSheet &sheet) const
{
    QWidget *const form = sheet.GetGUI();
    QWidget *target = form ? FindIn(sheet) : nullptr;
    if (!target || !target->isEnabled())
        return;
    target->setFocus(Qt::OtherFocusReason);
    if (auto *table = qobject_cast<QAbstractItemView *>(target); table && Cell.y() >= 0) {
        const QModelIndex index = table->model()->index(Cell.y(), Cell.x());
        if (!index.isValid())
            return;
        table->setCurrentIndex(index);
        table->edit(index);
        target = table->indexWidget(index);
    }
    QLineEdit *const field = HasField ? FieldOf(target) : nullptr;
    if (field)
        Type(field);
}

/// As if the operator had: he can take it back.
void KeptFocus::Type(QLineEdit *field) const
{
    if (IsTyped) {
        const auto [before, behind] = AroundNumber(field);
        field->selectAll();
        field->insert(before + Typed + behind);
    }
    if (Start >= 0)
        field->setSelection(Caret == Start ? Start + Length : Start, Caret == Start ? -Length : Length);
    else
        field->setCursorPosition(Caret);
}

} // namespace KV218
