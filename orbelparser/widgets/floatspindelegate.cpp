#include "floatspindelegate.h"

#include "propertynames.h"
#include "spinbuilder.h"

namespace KV218
{

FloatSpinDelegate::FloatSpinDelegate(OrbelWidget *widget) : BoundDelegate(widget) { }

QVector<Face> FloatSpinDelegate::GetFaces() const
{
    return {{Control.data(), {}, [this] { return SpinBounds(*this, Control); }}};
}

void FloatSpinDelegate::WriteProperty(const QString &name, const QVariant &value)
{
    if (ValueNode)
        WritePropertyToNode(name, value);
    if (Control)
        WritePropertyToControl(name, value);
}

void FloatSpinDelegate::WritePropertyToNode(const QString &name, const QVariant &value)
{
    if (name == prop::Value)
        ValueNode->SetValue(value.toDouble(), this);
    else if (name == prop::Minimum || name == prop::Maximum || name == prop::SingleStep
        || name == prop::DisplayScalingFactor)
        WriteLimitsToNode();
    else
        return;
    TakeNode();
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

bool FloatSpinDelegate::IsNumber(const QString &name) const
{
    return name == prop::Value || OrbelDelegate::IsNumber(name);
}

QVariant FloatSpinDelegate::HeldNumber(const QString &name) const
{
    constexpr double none = 1e308;
    const double factor = DisplayFactor(*this);
    if (!ValueNode)
        return QVariant();
    if (name == prop::Minimum && ValueNode->GetMin() > -none)
        return ValueNode->GetMin() * factor;
    if (name == prop::Maximum && ValueNode->GetMax() < none)
        return ValueNode->GetMax() * factor;
    if (name == prop::SingleStep)
        return ValueNode->GetStep() * factor;
    return name == prop::Value ? QVariant(ValueNode->GetValue()) : QVariant();
}

void FloatSpinDelegate::TakeNode()
{
    if (ValueNode)
        TakeNumber(prop::Value, ValueNode->GetValue());
}

QString FloatSpinDelegate::SpellEdit(int, const QVariant &value) const
{
    return SpellNumber(*this, value.toDouble());
}

void FloatSpinDelegate::WritePropertyToControl(const QString &name, const QVariant &value)
{
    if (name == prop::Suffix)
        Control->setSuffix(value.toString());
    else if (name == prop::Unit)
        Control->SetUnit(value.toString());
    else if (name == prop::Wrapping)
        Control->EnableWrapAround(value.toBool());
    else if (name == prop::Decimals)
        Control->setAdditionalPrecision(GetInt(prop::Decimals, 0));
    else if (name == prop::DisplayScalingFactor)
        Control->SetFactor(DisplayFactor(*this));
}

} // namespace KV218
