#include "cellitemdelegate.h"

#include "editend.h"
#include "fieldnote.h"
#include "inputlock.h"
#include "survives.h"
#include "typedspinbox.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QScopeGuard>

#include <utility>

namespace KV218
{

QLineEdit *CellItemDelegate::FieldOf(QWidget *editor)
{
    auto *field = qobject_cast<QLineEdit *>(editor);
    return field ? field : editor->findChild<QLineEdit *>();
}

bool CellItemDelegate::IsTyping(QWidget *editor) const
{
    const auto edit = Edits.constFind(editor);
    const QLineEdit *field = FieldOf(editor);
    return field && edit != Edits.constEnd() && field->text() != edit->Text;
}

void CellItemDelegate::KeepText(QWidget *editor) const
{
    const QLineEdit *field = FieldOf(editor);
    Edits[editor].Text = field ? field->text() : QString();
}

bool CellItemDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(watched);
    if (!editor)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (event->type() == InputLock::Kind()) {
        DropEdit(editor);
        return true;
    }
    // The base class commits by a signal to the view, which drops a commit from within another one.
    if (event->type() == QEvent::FocusOut) {
        const QWidget *focus = QApplication::focusWidget();
        const bool leaves
            = LeavesField(*static_cast<QFocusEvent *>(event)) && focus != editor && !editor->isAncestorOf(focus);
        return leaves && !Survives(editor, [&] { Finish(editor, NoHint); });
    }
    if (event->type() == QEvent::KeyPress && FilterKey(editor, *static_cast<QKeyEvent *>(event)))
        return true;
    return QStyledItemDelegate::eventFilter(watched, event);
}

bool CellItemDelegate::FilterKey(QWidget *editor, const QKeyEvent &key)
{
    auto *number = qobject_cast<TypedSpinBox *>(editor);
    QLineEdit *field = FieldOf(editor);
    if (EndsEdit(key)) {
        if (!number || number->Finish())
            Finish(editor, SubmitModelCache);
    } else if (key.key() == Qt::Key_Tab) {
        Finish(editor, EditNextItem);
    } else if (key.key() == Qt::Key_Backtab) {
        Finish(editor, EditPreviousItem);
    } else if (key.key() != Qt::Key_F2) {
        return false;
    } else if (field) {
        field->selectAll();
    }
    return true;
}

void CellItemDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    QStyledItemDelegate::setEditorData(editor, index);
    KeepText(editor);
    Edits[editor].Cell = index;
}

void CellItemDelegate::Finish(QWidget *editor, EndEditHint hint)
{
    const QPersistentModelIndex cell = Edits.value(editor).Cell;
    const QPointer<CellItemDelegate> self(this);
    const QPointer<QWidget> finished(editor);
    if (cell.isValid() && !Closed.contains(finished))
        setModelData(editor, const_cast<QAbstractItemModel *>(cell.model()), cell);
    if (self && finished && Edits.contains(editor) && !Closed.contains(finished) && !IsTyping(editor))
        Q_EMIT closeEditor(editor, hint);
}

void CellItemDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    if (auto *number = qobject_cast<TypedSpinBox *>(editor))
        number->interpretText();
    if (Edits.value(editor).Commits > 0 && !IsTyping(editor))
        return;
    const auto end = qScopeGuard([self = QPointer<const CellItemDelegate>(this), editor] {
        if (!self)
            return;
        const auto edit = self->Edits.find(editor);
        if (edit != self->Edits.end())
            --edit->Commits;
        if (--self->Commits == 0)
            self->DestroyClosed();
    });
    if (Edits.contains(editor)) {
        KeepText(editor);
        ++Edits[editor].Commits;
    }
    ++Commits;
    Commit(editor, model, index);
}

void CellItemDelegate::DestroyClosed() const
{
    for (const QPointer<QWidget> &closed : std::exchange(Closed, {})) {
        if (!closed)
            continue;
        Edits.remove(closed);
        closed->deleteLater();
    }
}

void CellItemDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    if (Commits > 0) {
        Closed.append(editor);
        return;
    }
    Edits.remove(editor);
    QStyledItemDelegate::destroyEditor(editor, index);
}

void CellItemDelegate::Commit(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    QStyledItemDelegate::setModelData(editor, model, index);
}

void CellItemDelegate::DropEdit(QWidget *editor)
{
    const QString text = IsTyping(editor) ? FieldOf(editor)->text() : QString();
    QWidget *viewport = editor->parentWidget();
    if (!text.isEmpty())
        FieldNote::TellDropped(viewport, text, editor->geometry());
    const QPointer<QWidget> table(viewport->parentWidget());
    Q_EMIT closeEditor(editor, RevertModelCache);
    // In a window that is not the active one the editor would keep the focus.
    if (table)
        table->setFocus(Qt::OtherFocusReason);
}

} // namespace KV218
