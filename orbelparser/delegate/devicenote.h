#pragma once

#include "rowlabel.h"

#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

namespace KV218
{

class OrbelDelegate;

/// What the device says of a control beside the value that the operator sees: another value, or how it has answered an
/// applied one. It stands in the tooltips of the label and of the control, behind what those say themselves. There is
/// one as long as there is something to say.
class DeviceNote : public QObject
{
public:
    /// `control` holds this.
    explicit DeviceNote(OrbelDelegate *control);

    /// In the order of GetEdits(), where the operator's value stands in its place.
    std::optional<QVariantList> Reported;
    /// RowLabel::None without one.
    RowLabel::Mark Answer = RowLabel::None;
    /// What the host says of the answer; empty for words of the form's own.
    QString Reason;

    bool IsEmpty() const { return !Reported && Answer == RowLabel::None; }
    /// In the operator's language, in one line each.
    QString GetText() const;
    /// The widgets of the control have been made.
    void Watch();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool ShowToolTip(QWidget *widget, const QPoint &place) const;

    OrbelDelegate *const Control;
};

} // namespace KV218
