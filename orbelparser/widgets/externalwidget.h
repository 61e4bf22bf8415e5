#pragma once

#include "orbeldelegate.h"

#include <QPointer>

namespace KV218
{

/// The delegate of a control that the host made itself and handed in. It takes part in `enabled`, `readOnly`, `visible`
/// and `toolTip` like any other; it has no node and writes no parameters.
class ExternalWidget : public OrbelDelegate
{
    Q_OBJECT

public:
    /// `external` is not owned. While it has no parent, it is neither shown nor hidden.
    ExternalWidget(OrbelWidget *widget, QWidget *external);

    /// The host's own; null when it has gone.
    QWidget *GetExternal() const { return ExtWidget; }
    void CreateGUI(FloatGroupLayout *layout) override;
    /// The host's own name for the control counts as its part.
    QVector<Face> GetFaces() const override;

public Q_SLOTS:
    void setFocus() override;

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;

private:
    QPointer<QWidget> ExtWidget;
};

} // namespace KV218
