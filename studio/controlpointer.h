#pragma once

#include <QObject>

namespace Orbel
{

class Workbench;

/// While it is on, the next click on the form points at a control and does nothing else; Escape, or a click beside the
/// form, ends it.
class ControlPointer : public QObject
{
    Q_OBJECT

public:
    explicit ControlPointer(Workbench &bench);
    ~ControlPointer() override;

    void SetOn(bool on);
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The mouse stands on this control; empty for none.
    void moved(const QString &name);
    /// The choice is over; empty for none.
    void ended(const QString &name);

private:
    QString NameAt(const QPoint &place) const;

    Workbench &Bench;
    bool IsOn = false;
};

} // namespace Orbel
