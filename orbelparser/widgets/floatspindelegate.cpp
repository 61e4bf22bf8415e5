#include "floatspindelegate.h"

#include "propertynames.h"
#include "spinbuilder.h"

namespace KV218
{

FloatSpinDelegate::FloatSpinDelegate(OrbelWidget *widget) : SpinDelegate(widget) { }

void FloatSpinDelegate::CreateValueTree()
{
    ValueNode.Adopt(CreateValueNumericFloat(prop::Value));
}

bool FloatSpinDelegate::WriteToNode(const QString &name, const QVariant &value)
{
    const bool isLimit = name == prop::Minimum || name == prop::Maximum || name == prop::SingleStep
        || name == prop::DisplayScalingFactor;
    // The node's own news comes back here.
    if (name == prop::Value && value.userType() == QMetaType::Double && value.toDouble() == ValueNode->GetValue())
        return false;
    if (name == prop::Value)
        ValueNode->SetValue(value.toDouble(), this);
    else if (isLimit)
        WriteLimitsToNode();
    return isLimit || name == prop::Value;
}

void FloatSpinDelegate::WriteLimitsToNode()
{
    // Whoever watches the node may end it after each of the three.
    const NodeLimits limits = LimitsForNode();
    ValueNode->SetMin(limits.Minimum, this);
    if (ValueNode)
        ValueNode->SetMax(limits.Maximum, this);
    if (ValueNode)
        ValueNode->SetStep(limits.Step, this);
}

QVariant FloatSpinDelegate::HeldNumber(const QString &name) const
{
    constexpr double none = 1e308;
    if (!ValueNode)
        return QVariant();
    if (name == prop::Value)
        return ValueNode->GetValue();
    const double factor = DisplayFactor(*this);
    if (name == prop::Minimum && ValueNode->GetMin() > -none)
        return ValueNode->GetMin() * factor;
    if (name == prop::Maximum && ValueNode->GetMax() < none)
        return ValueNode->GetMax() * factor;
    if (name == prop::SingleStep)
        return ValueNode->GetStep() * factor;
    return QVariant();
}

void FloatSpinDelegate::TakeNode()
{
    if (ValueNode)
        TakeNumber(prop::Value, ValueNode->GetValue());
}

void FloatSpinDelegate::WriteToControl(const QString &name, const QVariant &value)
{
    if (name == prop::Decimals)
        Control->setAdditionalPrecision(GetInt(prop::Decimals, 0));
    else if (name == prop::DisplayScalingFactor)
        Control->SetFactor(DisplayFactor(*this));
    else
        SpinDelegate::WriteToControl(name, value);
}

} // namespace KV218
