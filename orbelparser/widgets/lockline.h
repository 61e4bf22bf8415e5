#pragma once

#include <QLabel>
#include <QPointer>

namespace KV218
{

/// Why the input is locked, in the apply row. It takes no room: it lies over what the row's parts leave free, before
/// the changes button, cut to that with the whole in its tooltip. Without a row, or where that leaves too little, it is
/// a note over the lower edge of what the controls are seen in.
class LockLine : public QLabel
{
    Q_OBJECT

public:
    /// Belongs to `form`. `view` is what the controls are seen in, `row` the apply row, or null.
    LockLine(QWidget *form, QWidget *view, QWidget *row);

    void SetReason(const QString &reason);
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect PlaceInRow() const;
    QRect PlaceInView() const;
    void Place();

    const QPointer<QWidget> View;
    const QPointer<QWidget> Row;
    bool IsInRow = false;
};

} // namespace KV218
