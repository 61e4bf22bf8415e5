#include "orbelhidden.h"

#include "newcontrol.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KV218
{

OrbelDelegate *NewHiddenParameter(OrbelWidget *widget)
{
    return NewControl<OrbelHidden>(widget);
}

OrbelHidden::OrbelHidden(OrbelWidget *widget) : OrbelDelegate(widget), ValueNode(this) { }

void OrbelHidden::CreateValueTree()
{
    ValueNode.Adopt(CreateValueString(prop::Value));
}

void OrbelHidden::GetXml(QXmlStreamWriter &writer) const
{
    if (GenerateXml)
        writer.writeTextElement(GetXmlTagName(), GetString(prop::Value, QString()));
}

void OrbelHidden::ReadXml(QXmlStreamReader &reader)
{
    const QString text = reader.readElementText();
    if (text == GetString(prop::Value, QString()))
        return;
    SetPropertyAlways(prop::Value, text);
    // Meant: the set has emitted already, so a new text emits valueChanged twice.
    Q_EMIT valueChanged(text);
}

void OrbelHidden::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    const QString text = value.toString();
    if (name != prop::Value || !ValueNode || ValueNode->GetValue() == text)
        return;
    ValueNode->SetValue(text, this);
    setModified(true);
    Q_EMIT valueChanged(text);
}

QVariant OrbelHidden::HeldNumber(const QString &name) const
{
    return name == prop::Value && ValueNode ? QVariant(ValueNode->GetValue()) : QVariant();
}

void OrbelHidden::NodeChanged(Observable *subject, TChangeCode code)
{
    if (!ValueNode.TakeNotification(subject, code))
        return;
    const QString text = ValueNode->GetValue();
    // Meant: node and property agree from here on, so that a change of the node marks nothing modified.
    if (ChangeProperty(prop::Value, text))
        Q_EMIT valueChanged(text);
}

} // namespace KV218
