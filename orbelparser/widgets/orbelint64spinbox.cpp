#include "orbelint64spinbox.h"

#include "frequencyunit.h"
#include "newcontrol.h"
#include "saturate.h"

#include <cmath>
#include <QXmlStreamReader>

namespace KV218
{

OrbelDelegate *NewBandwidthEdit(OrbelWidget *widget)
{
    return NewControl<OrbelInt64SpinBox>(widget);
}

OrbelInt64SpinBox::OrbelInt64SpinBox(OrbelWidget *widget) : FloatSpinDelegate(widget) { }

void OrbelInt64SpinBox::CreateValueTree()
{
    ApplyUnitScale();
    FloatSpinDelegate::CreateValueTree();
}

void OrbelInt64SpinBox::ShowFirstBounds()
{
    SetInt64Tooltip(Control);
}

void OrbelInt64SpinBox::ShowBounds()
{
    // Meant: the 32-bit form, so a greater bound is left out of the tooltip once any bound has changed.
    SetIntTooltip(Control);
}

QString OrbelInt64SpinBox::DocumentText() const
{
    // Meant: as the property's present type spells it, so a large number from the node may have an exponent.
    return property(prop::Value.data()).toString();
}

void OrbelInt64SpinBox::ReadXml(QXmlStreamReader &reader)
{
    const QString text = FiniteText(reader.readElementText());
    SetPropertyAlways(prop::Value, text);
    // Meant: a text with an exponent or a fraction sets the node, but valueChanged is emitted with 0.
    Q_EMIT valueChanged(text.toLongLong());
}

void OrbelInt64SpinBox::PropertyChanged(const QString &name, const QVariant &value)
{
    FloatSpinDelegate::PropertyChanged(name, value);
    if (name == prop::UnitScale)
        ApplyUnitScale();
}

void OrbelInt64SpinBox::EmitNumber(double number)
{
    Q_EMIT valueChanged(Orbel::Saturated<qint64>(std::trunc(number)));
    Q_EMIT editingFinished();
}

QVariant OrbelInt64SpinBox::HostNumber(const QVariant &held) const
{
    return Orbel::Saturated<qint64>(std::trunc(held.toDouble()));
}

void OrbelInt64SpinBox::setUnitScale(QString)
{
    // Meant: every text sets the scale to hertz, so a script cannot choose one by name.
    setUnitScale(quint64(1));
}

void OrbelInt64SpinBox::ApplyUnitScale()
{
    if (property(prop::UnitScale.data()).isNull())
        return;
    const Orbel::FrequencyUnit &unit = Orbel::FrequencyUnit::OfHertz(double(GetUInt64(prop::UnitScale, 0)));
    const QPair<QLatin1String, QVariant> changes[] = {
        {prop::Unit, QLatin1String(unit.Name)},
        {prop::Suffix, QLatin1String(unit.Name)},
        {prop::DisplayScalingFactor, 1 / unit.Hertz},
        {prop::Decimals, unit.Power},
        {prop::SingleStep, 1},
    };
    for (const auto &[name, value] : changes)
        ChangeProperty(name, value);
}

} // namespace KV218
