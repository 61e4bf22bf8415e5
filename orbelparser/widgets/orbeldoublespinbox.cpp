#include "orbeldoublespinbox.h"

#include "floatgrouplayout.h"
#include "newcontrol.h"
#include "spinbuilder.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KV218
{

namespace
{

QString DocumentText(double number, int decimals)
{
    const QString text = QString::number(number, 'f', decimals);
    // Meant: whole numbers lose their zero with one decimal place, and with no other count of places.
    return decimals == 1 && text.contains(QLatin1String(".0")) ? QString::number(number, 'f', 0) : text;
}

} // namespace

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

void OrbelDoubleSpinBox::CreateValueTree()
{
    ValueNode.Adopt(CreateValueNumericFloat(prop::Value));
}

void OrbelDoubleSpinBox::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Control = BuildSpin(*this, ValueNode.get(), layout->parentWidget(), WidgetName());
    connect(Control, &VCNumericFloatSpin::signalTextEdited, this, [this] { MarkTyping(); });
    PropagateProperties(Control);
    SetDoubleTooltip(Control);
    layout->addWidget(Control);
    layout->addGroup();
}

void OrbelDoubleSpinBox::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    WriteUnitAttribute(writer);
    writer.writeCharacters(DocumentText(Number, Decimals));
    writer.writeEndElement();
}

void OrbelDoubleSpinBox::ReadXml(QXmlStreamReader &reader)
{
    const double number = FiniteText(reader.readElementText()).toDouble();
    SetPropertyAlways(prop::Value, number);
    Q_EMIT valueChanged(number);
}

void OrbelDoubleSpinBox::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::Value)
        Number = GetDouble(prop::Value, 0.0);
    else if (name == prop::Decimals)
        Decimals = DocumentDecimals(*this);
    WriteProperty(name, value);
    if (name == prop::Minimum || name == prop::Maximum)
        SetDoubleTooltip(Control);
    PropagateProperty(name, Control);
}

void OrbelDoubleSpinBox::NodeChanged(Observable *subject, TChangeCode code)
{
    if (!ValueNode.HasNews(subject, code))
        return;
    const double number = ValueNode->GetValue();
    if (!ChangeProperty(prop::Value, number))
        return;
    Q_EMIT valueChanged(number);
    Q_EMIT editingFinished();
    setModified(true);
}

} // namespace KV218
