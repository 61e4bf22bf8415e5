#pragma once

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QWidget;

namespace KV218
{

class FormChanges;

/// The keys that work wherever the focus stands in a form, cells that are being edited included: undo and redo of
/// committed changes, where the field with the focus has nothing typed of its own to take back, and Ctrl+Return, which
/// commits what is typed and applies. The form's keys come before equal ones of its window, and other forms there do
/// not hear of them.
class FormKeys : public QObject
{
public:
    /// Belongs to `form`, the widget of which all controls are descendants.
    FormKeys(QWidget *form, FormChanges *changes);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Act = void (FormChanges::*)();
    static Act ActOf(const QKeyEvent &key);
    void Tell(const QString &reason);

    QWidget *const Form;
    const QPointer<FormChanges> Changes;
    /// What the key does that was claimed and comes next; null for none.
    Act Claimed = nullptr;
};

} // namespace KV218
