#include "spindelegate.h"

#include "floatgrouplayout.h"
#include "propertynames.h"
#include "spinbuilder.h"

#include <QXmlStreamWriter>

namespace KV218
{

template <class Node>
SpinDelegate<Node>::SpinDelegate(OrbelWidget *widget) : BoundDelegate<Node, VCNumericFloatSpin>(widget)
{
}

template <class Node> QString SpinDelegate<Node>::ControlName() const
{
    return this->WidgetName();
}

template <class Node> void SpinDelegate<Node>::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    this->Control = BuildSpin(*this, this->ValueNode.get(), layout->parentWidget(), ControlName());
    this->connect(this->Control, &VCNumericFloatSpin::signalTextEdited, this, [this] { this->MarkTyping(); });
    this->PropagateProperties(this->Control);
    ShowFirstBounds();
    layout->addWidget(this->Control);
    layout->addGroup();
}

template <class Node> void SpinDelegate<Node>::GetXml(QXmlStreamWriter &writer) const
{
    if (!this->GenerateXml)
        return;
    writer.writeStartElement(this->GetXmlTagName());
    this->WriteUnitAttribute(writer);
    writer.writeCharacters(DocumentText());
    writer.writeEndElement();
}

template <class Node> QVector<Face> SpinDelegate<Node>::GetFaces() const
{
    return {{this->Control.data(), {}, [this] { return SpinBounds(*this, this->Control); }}};
}

template <class Node> QString SpinDelegate<Node>::SpellEdit(int, const QVariant &value) const
{
    return SpellNumber(*this, value.toDouble(), this->Control);
}

template <class Node> bool SpinDelegate<Node>::IsNumber(const QString &name) const
{
    return name == prop::Value || OrbelDelegate::IsNumber(name);
}

template <class Node> void SpinDelegate<Node>::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (this->ValueNode && WriteToNode(name, value))
        this->TakeNode();
    if (this->Control)
        WriteToControl(name, value);
    if (name == prop::Minimum || name == prop::Maximum)
        ShowBounds();
    this->PropagateProperty(name, this->Control);
}

template <class Node> void SpinDelegate<Node>::WriteToControl(const QString &name, const QVariant &value)
{
    if (name == prop::Suffix)
        this->Control->setSuffix(value.toString());
    else if (name == prop::Unit)
        this->Control->SetUnit(value.toString());
    else if (name == prop::Wrapping)
        this->Control->EnableWrapAround(value.toBool());
}

template <class Node> void SpinDelegate<Node>::NodeChanged(Observable *subject, TChangeCode code)
{
    if (!this->ValueNode.TakeNotification(subject, code))
        return;
    const Number number = this->ValueNode->GetValue();
    if (!this->ChangeProperty(prop::Value, number))
        return;
    EmitNumber(number);
    this->setModified(true);
}

template class SpinDelegate<ValueInt>;
template class SpinDelegate<ValueDouble>;

} // namespace KV218
