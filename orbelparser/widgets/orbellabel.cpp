#include "orbellabel.h"

#include "floatgrouplayout.h"
#include "newcontrol.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KV218
{

OrbelDelegate *NewLabel(OrbelWidget *widget)
{
    return NewControl<OrbelLabel>(widget);
}

OrbelLabel::OrbelLabel(OrbelWidget *widget) : OrbelDelegate(widget), ValueNode(this) { }

void OrbelLabel::CreateValueTree()
{
    if (GenerateXml)
        ValueNode.Adopt(CreateValueString(prop::Text));
}

void OrbelLabel::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Control = new QLabel(GetTranslated(prop::Text), layout->parentWidget());
    Control->setObjectName(WidgetName());
    PropagateProperties(Control);
    layout->addWidget(Control);
    layout->addGroup();
}

void OrbelLabel::GetXml(QXmlStreamWriter &writer) const
{
    if (GenerateXml)
        writer.writeTextElement(GetXmlTagName(), GetString(prop::Text, QString()));
}

void OrbelLabel::ReadXml(QXmlStreamReader &reader)
{
    SetPropertyAlways(prop::Text, reader.readElementText());
}

void OrbelLabel::Retranslate()
{
    OrbelDelegate::Retranslate();
    if (Control)
        Control->setText(GetTranslated(prop::Text));
}

void OrbelLabel::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    // Meant: a new text is shown, and observers of the node are not notified of it.
    if (name == prop::Text && Control)
        Control->setText(Translate(value.toString()));
    PropagateProperty(name, Control);
}

void OrbelLabel::NodeChanged(Observable *subject, TChangeCode code)
{
    if (ValueNode.TakeNotification(subject, code) && ChangeProperty(prop::Text, ValueNode->GetValue()))
        setModified(true);
}

QVector<ValueBase *> OrbelLabel::GetNodes() const
{
    return ValueNode ? QVector<ValueBase *>{ValueNode.get()} : QVector<ValueBase *>();
}

} // namespace KV218
