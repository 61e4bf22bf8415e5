#pragma once

#include "bounddelegate.h"
#include "vcnumericfloatspin.h"

namespace KV218
{

/// What the spin controls over a double node have in common: a property that changes goes on to node and control, and
/// bounds and step are display units at any time.
class FloatSpinDelegate : public BoundDelegate<ValueDouble, VCNumericFloatSpin>
{
public:
    explicit FloatSpinDelegate(OrbelWidget *widget);

    void TakeNode() override;

protected:
    /// Gives a changed property to node and control, as far as they exist. False, and nothing of that, for a number that is
    /// none.
    bool WriteProperty(const QString &name, const QVariant &value);

private:
    void WritePropertyToNode(const QString &name, const QVariant &value);
    void WriteLimitsToNode();
    /// What the node holds of the property of that name, in display units; invalid for nothing.
    QVariant HeldNumber(const QString &name) const;
    void WritePropertyToControl(const QString &name, const QVariant &value);
};

} // namespace KV218
