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

protected:
    /// Gives a changed property to node and control, as far as they exist. An observer of the node may have ended the
    /// delegate afterwards.
    void WriteProperty(const QString &name, const QVariant &value);

private:
    void WritePropertyToNode(const QString &name, const QVariant &value);
    void WriteLimitsToNode();
    void WritePropertyToControl(const QString &name, const QVariant &value);
};

} // namespace KV218
