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
    QVector<Face> GetFaces() const override;

protected:
    bool IsNumber(const QString &name) const override;
    QVariant HeldNumber(const QString &name) const override;

    /// Gives a changed property to node and control, as far as they exist.
    void WriteProperty(const QString &name, const QVariant &value);

private:
    void WritePropertyToNode(const QString &name, const QVariant &value);
    void WriteLimitsToNode();
    void WritePropertyToControl(const QString &name, const QVariant &value);
};

} // namespace KV218
