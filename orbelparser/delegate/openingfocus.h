#pragma once

#include <functional>
#include <QPointer>
#include <QWidget>

namespace KV218
{

/// Gives the first control of a form the focus when the form is shown for the first time, unless a widget of its window
/// has it already: a host that shows a form in a window in use keeps its own. Headlines are passed over. In a form that
/// is locked then, the form itself has the focus until it is free. Deletes itself after that.
class OpeningFocus : public QObject
{
public:
    /// Belongs to `form`; `rows` is the widget in it in which the controls stand. A form that is shown already has been
    /// locked since.
    OpeningFocus(QWidget *form, QWidget *rows, const std::function<bool()> &isLocked);

    bool eventFilter(QObject *watched, QEvent *event) override;
    /// The form may be free now; does nothing before it is shown.
    void TakeFocus();

private:
    bool GiveFocus() const;

    QWidget *Form;
    QPointer<QWidget> Rows;
    const std::function<bool()> IsLocked;
    // The form itself has the focus for want of a control that takes it.
    bool IsParked;
    bool IsOver = false;
};

} // namespace KV218
