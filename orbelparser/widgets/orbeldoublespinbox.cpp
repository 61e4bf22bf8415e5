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
    const QString text = QString::number(Number, 'f', Decimals);
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
    // Before anybody hears of it, who may ask for the document.
    if (name == prop::Value)
        Number = GetDouble(prop::Value, 0.0);
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
