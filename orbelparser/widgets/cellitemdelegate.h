#pragma once

#include <QPointer>
#include <QStyledItemDelegate>
#include <QVector>

class QLineEdit;

namespace KV218
{

/// Edits the cells of a table as fields of a form are edited: a switch to another window does not end the edit, nor
/// does Return while the text is no number; a lock of the input takes a text back that is being typed and tells it; F2
/// selects all. A closed editor is not destroyed before the commit returns that runs: whoever hears of it may have an
/// event loop of his own, in which the operator goes to another cell.
class CellItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool eventFilter(QObject *watched, QEvent *event) override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const final;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;

protected:
    /// Writes what stands in the editor into the cell.
    virtual void Commit(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const;
    /// Where the letters of an editor are; null for one without.
    static QLineEdit *FieldOf(QWidget *editor);

private:
    void DestroyClosed() const;
    void DropEdit(QWidget *editor);

    mutable int Commits = 0;
    mutable QVector<QPointer<QWidget>> Closed;
};

} // namespace KV218
