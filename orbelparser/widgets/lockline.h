#pragma once

#include <QLabel>
#include <QPointer>

namespace KV218
{

/// Why the input is locked, in the apply row. It takes no room of the row: it lies over what the row's parts leave
/// free, before the changes button, cut to that with the whole in its tooltip, and hides where there is nothing.
class LockLine : public QLabel
{
    Q_OBJECT

public:
    /// Belongs to `row`; `behind` is the widget before which it ends.
    LockLine(QWidget *row, QWidget *behind);

    void SetReason(const QString &reason);
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void Place();

    const QPointer<QWidget> Behind;
};

} // namespace KV218
