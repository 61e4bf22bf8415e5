#include "cellitemdelegate.h"

#include "editend.h"
#include "editquery.h"
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

bool CellItemDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(watched);
    if (!editor)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (event->type() == EditQuery::Kind()) {
        event->accept();
        return true;
    }
    if (event->type() == Orbel::InputLock::Kind()) {
        DropEdit(editor);
        return true;
    }
    // The base class commits by a signal to the view, which drops a commit from within another one.
    if (event->type() == QEvent::FocusOut) {
        const QWidget *focus = QApplication::focusWidget();
        const bool leaves
            = Orbel::LeavesField(*static_cast<QFocusEvent *>(event)) && focus != editor && !editor->isAncestorOf(focus);
        return leaves && !Orbel::Survives(editor, [&] { Finish(editor, NoHint); });
    }
    if (event->type() == QEvent::KeyPress && FilterKey(editor, *static_cast<QKeyEvent *>(event)))
        return true;
    return QStyledItemDelegate::eventFilter(watched, event);
}

bool CellItemDelegate::FilterKey(QWidget *editor, const QKeyEvent &key)
{
    auto *number = qobject_cast<Orbel::TypedSpinBox *>(editor);
    QLineEdit *field = FieldOf(editor);
    if (Orbel::EndsEdit(key)) {
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
    const QLineEdit *field = FieldOf(editor);
    Edits[editor] = {index, field ? field->text() : QString()};
}

void CellItemDelegate::LeaveTyped(QWidget *editor, const QModelIndex &index) const
{
    const auto *number = qobject_cast<Orbel::TypedSpinBox *>(editor);
    const QVariant value = index.data(Qt::EditRole);
    Edits[editor].Text = number ? number->textFromValue(value.toDouble()) : value.toString();
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
    const auto *number = qobject_cast<Orbel::TypedSpinBox *>(editor);
    const bool isOpen = Edits.contains(editor);
    const QLineEdit *field = FieldOf(editor);
    if (isOpen && number && !number->IsReadable()) {
        // The box would go back to what it could read of the text, up to the last letter of that.
        CellItemDelegate::setEditorData(editor, index);
        return;
    }
    if (auto *spin = qobject_cast<QAbstractSpinBox *>(editor))
        spin->interpretText();
    // A box of choices has no letters to compare.
    if (isOpen && field && !IsTyping(editor))
        return;
    const auto end = qScopeGuard([self = QPointer<const CellItemDelegate>(this)] {
        if (self && --self->Commits == 0)
            self->DestroyClosed();
    });
    if (isOpen && field)
        Edits[editor].Text = field->text();
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
        Orbel::FieldNote::TellDropped(viewport, text, editor->geometry());
    const QPointer<QWidget> table(viewport->parentWidget());
    Q_EMIT closeEditor(editor, RevertModelCache);
    // In a window that is not the active one the editor would keep the focus.
    if (table)
        table->setFocus(Qt::OtherFocusReason);
}

} // namespace KV218
