#pragma once

#include <QObject>
#include <QPointer>

class QTableWidget;

namespace KV218
{

class OrbelDelegate;

/// What the keyboard does in a table beyond Qt's own keys: copying and pasting cells as tab-separated text, rows as
/// lines, and Shift+F10 for the context menu. A number is copied with all its digits, whatever the cell shows of it, so
/// that a copy pasted elsewhere is the same number. A pasted text takes the way of a typed one: the cell's editor takes
/// it, keeps its bounds, and refuses what is no value for it.
class TableKeys : public QObject
{
    Q_OBJECT

public:
    /// Belongs to `table`. The form of `control`, which is not owned and may go before, records a paste; null records none.
    explicit TableKeys(QTableWidget *table, OrbelDelegate *control = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool FilterEditor(QObject *watched, QEvent *event);
    void Copy();
    /// Fills cells from the first selected one on; what would stand outside the table is left out.
    void Paste();
    void OpenMenu();

    QTableWidget *Table;
    const QPointer<OrbelDelegate> Control;
};

} // namespace KV218
