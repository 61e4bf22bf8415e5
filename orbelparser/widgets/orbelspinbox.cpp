#include "orbelspinbox.h"

#include "newcontrol.h"
#include "saturate.h"

#include <limits>
#include <QXmlStreamReader>

namespace KV218
{

OrbelDelegate *NewSpinBox(OrbelWidget *widget)
{
    return NewControl<OrbelSpinBox>(widget);
}

OrbelSpinBox::OrbelSpinBox(OrbelWidget *widget) : SpinDelegate(widget)
{
    static const QStringList names = GetDefinedProperties()
        + QStringList{prop::Prefix, prop::Minimum, prop::Maximum, prop::SpecialValueText, prop::DisplayAdditiveOffset};
    DefineProperties(names);
}

void OrbelSpinBox::CreateValueTree()
{
    ValueNode.Adopt(CreateValueNumericInt(prop::Value));
}

QString OrbelSpinBox::ControlName() const
{
    // Meant: named after the node, which a parameter path names otherwise than the widget.
    return ValueNode ? ValueNode->GetName() : QString();
}

void OrbelSpinBox::ShowBounds()
{
    SetIntTooltip(Control);
}

QString OrbelSpinBox::DocumentText() const
{
    return QString::number(qint64(GetInt(prop::Value, 0)) - GetInt(prop::DisplayAdditiveOffset, 0));
}

void OrbelSpinBox::ReadXml(QXmlStreamReader &reader)
{
    const qint64 sum = qint64(reader.readElementText().toInt()) + GetInt(prop::DisplayAdditiveOffset, 0);
    const int number = int(qBound<qint64>(std::numeric_limits<int>::min(), sum, std::numeric_limits<int>::max()));
    SetPropertyAlways(prop::Value, number);
    Q_EMIT valueChanged(number);
}

bool OrbelSpinBox::WriteToNode(const QString &name, const QVariant &)
{
    // Meant: bounds and step are not scaled here, though they are when the node is made. `displayScalingFactor` and
    // `decimals` count for node and control only when these are made.
    if (name == prop::Value)
        ValueNode->SetValue(GetNearestInt(name, 0), this);
    else if (name == prop::Minimum)
        ValueNode->SetMin(GetNearestInt(name, 0), this);
    else if (name == prop::Maximum)
        ValueNode->SetMax(GetNearestInt(name, 0), this);
    else if (name == prop::SingleStep)
        ValueNode->SetStep(GetNearestInt(name, 0), this);
    else
        return false;
    return true;
}

QVariant OrbelSpinBox::HeldNumber(const QString &name) const
{
    if (!ValueNode)
        return QVariant();
    if (name == prop::Minimum && ValueNode->GetMin() > std::numeric_limits<int>::min())
        return ValueNode->GetMin();
    if (name == prop::Maximum && ValueNode->GetMax() < std::numeric_limits<int>::max())
        return ValueNode->GetMax();
    if (name == prop::SingleStep)
        return ValueNode->GetStep();
    return name == prop::Value ? QVariant(ValueNode->GetValue()) : QVariant();
}

QVariant OrbelSpinBox::HostNumber(const QVariant &held) const
{
    return Orbel::Saturated<int>(held.toDouble() - GetInt(prop::DisplayAdditiveOffset, 0));
}

double OrbelSpinBox::NodeNumber(double number) const
{
    return number + GetInt(prop::DisplayAdditiveOffset, 0);
}

void OrbelSpinBox::TakeNode()
{
    // A text with a fraction is no number here, and counts as 0.
    const QVariant own = property(prop::Value.data());
    bool isNumber = false;
    own.toDouble(&isNumber);
    if (!ValueNode)
        return;
    if (own.userType() != QMetaType::QString)
        TakeNumber(prop::Value, ValueNode->GetValue());
    else if (isNumber && GetInt(prop::Value, 0) != ValueNode->GetValue())
        SetPropertyAlways(prop::Value, ValueNode->GetValue());
}

void OrbelSpinBox::EmitNumber(int number)
{
    Q_EMIT valueChanged(number);
    Q_EMIT editingFinished();
}

} // namespace KV218
