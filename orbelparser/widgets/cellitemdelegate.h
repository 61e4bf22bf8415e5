#pragma once

#include <QStyledItemDelegate>

class QLineEdit;

namespace KV218
{

/// Edits the cells of a table as fields of a form are edited: a switch to another window does not end the edit, nor
/// does Return while the text is no number; a lock of the input takes a text back that is being typed and tells it; F2
/// selects all.
class CellItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// Where the letters of an editor are; null for one without.
    static QLineEdit *FieldOf(QWidget *editor);

private:
    void DropEdit(QWidget *editor);
};

} // namespace KV218
