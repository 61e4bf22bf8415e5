#pragma once

#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>
#include <QVector>

class QLineEdit;

namespace KV218
{

/// Edits the cells of a table as fields of a form are edited: a switch to another window does not end the edit, nor
/// does Return while the text is no number; a lock of the input takes a text back that is being typed and tells it; F2
/// selects all.
///
/// Whoever hears of a commit may have an event loop of his own, in which the operator goes on: what he enters into
/// other cells is committed at once, and what he types on into the same editor keeps it open. A closed editor is not
/// destroyed before the commit returns.
class CellItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool eventFilter(QObject *watched, QEvent *event) override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const final;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    /// Commits what stands in the editor of a cell, or takes back what is no number, and closes it; no other widget.
    /// Handlers may end the table.
    void Finish(QWidget *editor, EndEditHint hint);

protected:
    /// Writes what stands in the editor into the cell.
    virtual void Commit(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const;
    /// Where the letters of an editor are; null for one without.
    static QLineEdit *FieldOf(QWidget *editor);
    /// Whether the operator has typed what the cell does not hold.
    bool IsTyping(QWidget *editor) const;
    /// What stands in the editor stays, though the cell holds another value now.
    void LeaveTyped(QWidget *editor, const QModelIndex &index) const;

private:
    struct Edit {
        QPersistentModelIndex Cell;
        /// The text of the cell, as far as it is known.
        QString Text;
    };

    bool FilterKey(QWidget *editor, const QKeyEvent &key);
    void DestroyClosed() const;
    void DropEdit(QWidget *editor);

    mutable QHash<const QWidget *, Edit> Edits;
    mutable int Commits = 0;
    mutable QVector<QPointer<QWidget>> Closed;
};

} // namespace KV218
