#pragma once

#include <QObject>

class QTableWidget;
class QWidget;

namespace KV218
{

/// What the keyboard does in a table beyond Qt's own keys. Tab leads out of it, the arrows from cell to cell; in the
/// editor of a cell Tab commits and goes on to the next one, so that a table can be filled. Then copying and pasting
/// cells as tab-separated text, rows as lines, and Shift+F10 for the context menu. A number is copied with all its
/// digits, whatever the cell shows of it, so that a copy pasted elsewhere is the same number. A pasted text takes the
/// way of a typed one: the cell's editor takes it, keeps its bounds, and refuses what is no value for it.
class TableKeys : public QObject
{
    Q_OBJECT

public:
    /// Belongs to `table`.
    explicit TableKeys(QTableWidget *table);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Tells assistive tools in which cell it stands.
    void NameEditor(QWidget *editor);
    void Copy();
    /// Fills cells from the first selected one on; what would stand outside the table is left out.
    void Paste();
    void OpenMenu();

    QTableWidget *Table;
};

} // namespace KV218
