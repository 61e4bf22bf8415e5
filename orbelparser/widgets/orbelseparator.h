#pragma once

#include "orbeldelegate.h"
#include "propertynames.h"

namespace KV218
{

/// A gap between rows. Class names: `Separator`, a headline without a title with a `margin`, and `FixedSpacer`, a gap
/// of the fixed `height`; both in pixels, and read when the form is built. It has no row label and no node, writes no
/// parameters, and ends no group.
class OrbelSeparator : public OrbelDelegate
{
    Q_OBJECT

public:
    OrbelSeparator(OrbelWidget *widget, bool isHeadline);

    void CreateGUI(FloatGroupLayout *layout) override;

public Q_SLOTS:
    void setHeight(int value) { ChangeProperty(prop::Height, value); }
    void setMargin(int value) { ChangeProperty(prop::Margin, value); }

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;

private:
    const bool IsHeadline;
    QPointer<QWidget> Control;
};

} // namespace KV218
