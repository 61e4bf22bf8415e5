#include "orbelspinbox.h"

#include "floatgrouplayout.h"
#include "newcontrol.h"
#include "spinbuilder.h"

#include <limits>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KV218
{

OrbelDelegate *NewSpinBox(OrbelWidget *widget)
{
    return NewControl<OrbelSpinBox>(widget);
}

OrbelSpinBox::OrbelSpinBox(OrbelWidget *widget) : BoundDelegate(widget)
{
    DefineProperty(prop::Prefix);
    DefineProperty(prop::Minimum);
    DefineProperty(prop::Maximum);
    DefineProperty(prop::SpecialValueText);
    DefineProperty(prop::DisplayAdditiveOffset);
}

void OrbelSpinBox::CreateValueTree()
{
    ValueNode.Adopt(CreateValueNumericInt(prop::Value));
}

void OrbelSpinBox::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    // Meant: named after the node, which a parameter path names otherwise than the widget.
    const QString name = ValueNode ? ValueNode->GetName() : QString();
    Control = BuildSpin(*this, ValueNode.get(), layout->parentWidget(), name);
    connect(Control, &VCNumericFloatSpin::signalTextEdited, this, [this] { MarkTyping(); });
    PropagateProperties(Control);
    SetIntTooltip(Control);
    layout->addWidget(Control);
    layout->addGroup();
}

void OrbelSpinBox::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    const qint64 number = qint64(GetInt(prop::Value, 0)) - GetInt(prop::DisplayAdditiveOffset, 0);
    writer.writeStartElement(GetXmlTagName());
    WriteUnitAttribute(writer);
    writer.writeCharacters(QString::number(number));
    writer.writeEndElement();
}

void OrbelSpinBox::ReadXml(QXmlStreamReader &reader)
{
    const qint64 sum = qint64(reader.readElementText().toInt()) + GetInt(prop::DisplayAdditiveOffset, 0);
    const int number = int(qBound<qint64>(std::numeric_limits<int>::min(), sum, std::numeric_limits<int>::max()));
    SetPropertyAlways(prop::Value, number);
    Q_EMIT valueChanged(number);
}

QVector<Face> OrbelSpinBox::GetFaces() const
{
    return {{Control.data(), {}, [this] { return SpinBounds(*this, Control); }}};
}

void OrbelSpinBox::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (ValueNode)
        WritePropertyToNode(name);
    // Meant: `decimals` and `displayScalingFactor` count for the control only while it is built.
    if (name == prop::Minimum || name == prop::Maximum)
        SetIntTooltip(Control);
    else if (name == prop::Suffix && Control)
        Control->setSuffix(value.toString());
    else if (name == prop::Unit && Control)
        Control->SetUnit(value.toString());
    else if (name == prop::Wrapping && Control)
        Control->EnableWrapAround(value.toBool());
    PropagateProperty(name, Control);
}

void OrbelSpinBox::WritePropertyToNode(const QString &name)
{
    // Meant: bounds and step are not scaled here, though they are when the node is made.
    if (name == prop::Value)
        ValueNode->SetValue(GetNearestInt(name, 0), this);
    else if (name == prop::Minimum)
        ValueNode->SetMin(GetNearestInt(name, 0), this);
    else if (name == prop::Maximum)
        ValueNode->SetMax(GetNearestInt(name, 0), this);
    else if (name == prop::SingleStep)
        ValueNode->SetStep(GetNearestInt(name, 0), this);
    else
        return;
    TakeNode();
}

bool OrbelSpinBox::IsNumber(const QString &name) const
{
    return name == prop::Value || OrbelDelegate::IsNumber(name);
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

QString OrbelSpinBox::SpellEdit(int, const QVariant &value) const
{
    return SpellNumber(*this, value.toDouble());
}

void OrbelSpinBox::NodeChanged(Observable *subject, TChangeCode code)
{
    if (!ValueNode.HasNews(subject, code))
        return;
    const int number = ValueNode->GetValue();
    if (!ChangeProperty(prop::Value, number))
        return;
    Q_EMIT valueChanged(number);
    Q_EMIT editingFinished();
    setModified(true);
}

} // namespace KV218
