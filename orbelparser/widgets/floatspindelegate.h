#pragma once

#include "spindelegate.h"

namespace KV218
{

/// What the spin controls over a double node have in common: a property that changes goes on to node and control, and
/// bounds and step are display units at any time.
class FloatSpinDelegate : public SpinDelegate<ValueDouble>
{
public:
    explicit FloatSpinDelegate(OrbelWidget *widget);

    void CreateValueTree() override;
    void TakeNode() override;

protected:
    QVariant HeldNumber(const QString &name) const override;
    bool WriteToNode(const QString &name, const QVariant &value) override;
    void WriteToControl(const QString &name, const QVariant &value) override;

private:
    void WriteLimitsToNode();
};

} // namespace KV218
