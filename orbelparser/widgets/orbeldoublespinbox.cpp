#include "orbeldoublespinbox.h"

#include "newcontrol.h"
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
    DefineProperty(prop::Prefix);
    DefineProperty(prop::Minimum);
    DefineProperty(prop::Maximum);
    DefineProperty(prop::SpecialValueText);
}

void OrbelDoubleSpinBox::ShowBounds()
{
    SetDoubleTooltip(Control);
}

QString OrbelDoubleSpinBox::DocumentText() const
{
    const double number = GetDouble(prop::Value, 0.0);
    const int decimals = DocumentDecimals(*this);
    const QString text = QString::number(number, 'f', decimals);
    // Meant: whole numbers lose their zero with one decimal place, and with no other count of places.
    return decimals == 1 && text.contains(QLatin1String(".0")) ? QString::number(number, 'f', 0) : text;
}

void OrbelDoubleSpinBox::ReadXml(QXmlStreamReader &reader)
{
    const double number = FiniteText(reader.readElementText()).toDouble();
    SetPropertyAlways(prop::Value, number);
    Q_EMIT valueChanged(number);
}

void OrbelDoubleSpinBox::EmitNumber(double number)
{
    Q_EMIT valueChanged(number);
    Q_EMIT editingFinished();
}

} // namespace KV218
