#include "orbeldoublespinbox.h"

#include "newcontrol.h"
#include "numbertext.h"
#include "spinbuilder.h"

#include <QXmlStreamReader>

namespace KV218
{

OrbelDelegate *NewDoubleSpinBox(OrbelWidget *widget)
{
    return NewControl<OrbelDoubleSpinBox>(widget);
}

OrbelDoubleSpinBox::OrbelDoubleSpinBox(OrbelWidget *widget) : FloatSpinDelegate(widget)
{
    static const QStringList names
        = GetDefinedProperties() + QStringList{prop::Prefix, prop::Minimum, prop::Maximum, prop::SpecialValueText};
    DefineProperties(names);
}

void OrbelDoubleSpinBox::ShowBounds()
{
    SetDoubleTooltip(Control);
}

QString OrbelDoubleSpinBox::DocumentText() const
{
    const QString text = Orbel::NumberToText(Number, Decimals);
    // Meant: whole numbers lose their zero with one decimal place, and with no other count of places.
    return Decimals == 1 && text.contains(QLatin1String(".0")) ? QString::number(Number, 'f', 0) : text;
}

void OrbelDoubleSpinBox::ReadXml(QXmlStreamReader &reader)
{
    const double number = FiniteText(reader.readElementText()).toDouble();
    SetPropertyAlways(prop::Value, number);
    Q_EMIT valueChanged(number);
}

void OrbelDoubleSpinBox::PropertyChanged(const QString &name, const QVariant &value)
{
    // Before signals are emitted, whose slots may ask for the document.
    if (name == prop::Value)
        Number = FiniteNumber(value, 0.0);
    else if (name == prop::Decimals)
        Decimals = DocumentDecimals(*this);
    FloatSpinDelegate::PropertyChanged(name, value);
}

void OrbelDoubleSpinBox::EmitNumber(double number)
{
    Q_EMIT valueChanged(number);
    Q_EMIT editingFinished();
}

} // namespace KV218
