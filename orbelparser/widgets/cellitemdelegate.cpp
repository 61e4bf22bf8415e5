#include "cellitemdelegate.h"

#include "editend.h"
#include "fieldnote.h"
#include "inputlock.h"
#include "typedspinbox.h"

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

bool CellItemDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(watched);
    if (!editor)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (event->type() == InputLock::Kind()) {
        DropEdit(editor);
        return true;
    }
    // The base class would take the text.
    if (event->type() == QEvent::FocusOut && !LeavesField(*static_cast<QFocusEvent *>(event)))
        return false;
    const bool isKey = event->type() == QEvent::KeyPress;
    if (isKey && EndsEdit(*event)) {
        auto *number = qobject_cast<TypedSpinBox *>(editor);
        if (number && !number->Finish())
            return true;
    }
    if (isKey && static_cast<QKeyEvent *>(event)->key() == Qt::Key_F2) {
        if (QLineEdit *field = FieldOf(editor))
            field->selectAll();
        return true;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

void CellItemDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const auto end = qScopeGuard([self = QPointer<const CellItemDelegate>(this)] {
        if (self && --self->Commits == 0)
            self->DestroyClosed();
    });
    ++Commits;
    Commit(editor, model, index);
}

void CellItemDelegate::DestroyClosed() const
{
    for (const QPointer<QWidget> &closed : std::exchange(Closed, {})) {
        if (closed)
            closed->deleteLater();
    }
}

void CellItemDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    if (Commits > 0)
        Closed.append(editor);
    else
        QStyledItemDelegate::destroyEditor(editor, index);
}

void CellItemDelegate::Commit(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    QStyledItemDelegate::setModelData(editor, model, index);
}

void CellItemDelegate::DropEdit(QWidget *editor)
{
    const QLineEdit *field = FieldOf(editor);
    const QString text = field && field->isModified() ? field->text() : QString();
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
