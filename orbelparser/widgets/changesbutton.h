#pragma once

#include <QPointer>
#include <QToolButton>

class QMenu;

namespace KV218
{

class FormChanges;

/// The button at the end of the apply row: the number of changes that wait to be applied, and a menu to undo, redo and
/// revert them, and to go to their controls. It takes no room of the row: it lies over what the row's last part leaves
/// free, and hides while there is nothing in its menu, or no such room.
class ChangesButton : public QToolButton
{
    Q_OBJECT

public:
    /// Belongs to `row`. `changes` is not owned and may go before.
    ChangesButton(QWidget *row, FormChanges *changes);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void Refresh();
    void Place();
    void OpenMenu();
    void FillMenu(QMenu *menu);
    void AddChanges(QMenu *menu);
    void AddReported(QMenu *menu);

    const QPointer<FormChanges> Changes;
};

} // namespace KV218
