#pragma once

#include <QPointer>
#include <QWidget>

namespace KV218
{

/// Gives the first control of a form the focus when the form is shown for the first time, unless a widget of its window
/// has it already: a host that shows a form in a window in use keeps its own. Headlines are passed over. Deletes itself
/// after that.
class OpeningFocus : public QObject
{
public:
    /// Belongs to `form`; `rows` is the widget in it in which the controls stand.
    OpeningFocus(QWidget *form, QWidget *rows);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void GiveFocus();

    QWidget *Form;
    QPointer<QWidget> Rows;
};

} // namespace KV218
