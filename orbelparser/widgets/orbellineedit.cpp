#include "orbellineedit.h"

#include "floatgrouplayout.h"
#include "formdoor.h"
#include "newcontrol.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KV218
{

OrbelDelegate *NewLineEdit(OrbelWidget *widget)
{
    return NewControl<OrbelLineEdit>(widget);
}

OrbelLineEdit::OrbelLineEdit(OrbelWidget *widget) : BoundDelegate(widget)
{
    static const QStringList names = GetDefinedProperties() + QStringList{prop::InputMask, prop::MaxLength};
    DefineProperties(names);
}

void OrbelLineEdit::CreateValueTree()
{
    ValueNode.Adopt(CreateValueString(prop::Text));
}

void OrbelLineEdit::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Control = new VCLineEdit(layout->parentWidget(), WidgetName().toUtf8().constData(), VCLineEdit::ekText);
    Control->SetValueBase(ValueNode.get());
    PropagateProperties(Control);
    // Meant: the label's text replaces a tooltip of the definition, and clears it where there is no label.
    SetOwnToolTip(Control, {GetString(prop::LabelText, QString())});
    layout->addWidget(Control);
    layout->addGroup();
    connect(Control, &VCLineEdit::signalTextFinallyChanged, this, &OrbelLineEdit::SlotTextFinallyChanged);
    connect(Control, &VCLineEdit::signalTextEdited, this, &OrbelLineEdit::SlotTextEdited);
    connect(Control, &QLineEdit::returnPressed, this, &OrbelLineEdit::SlotReturnPressed);
    Relay(Control.data(), &VCLineEdit::signalTextChanged, &OrbelLineEdit::textChanged);
}

void OrbelLineEdit::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    WriteUnitAttribute(writer);
    writer.writeCharacters(Text);
    writer.writeEndElement();
}

void OrbelLineEdit::ReadXml(QXmlStreamReader &reader)
{
    const QString text = reader.readElementText();
    SetPropertyAlways(prop::Text, text);
    Q_EMIT textChanged(text);
}

void OrbelLineEdit::forceFinishEditing()
{
    FinishControl();
}

void OrbelLineEdit::PropertyChanged(const QString &name, const QVariant &value)
{
    // Before anybody hears of it, who may ask for the document.
    if (name == prop::Text)
        Text = value.toString();
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::Text && ValueNode)
        ValueNode->SetValue(value.toString(), this);
    PropagateProperty(name, Control);
}

QVariant OrbelLineEdit::HeldNumber(const QString &name) const
{
    return name == prop::Text && ValueNode ? QVariant(ValueNode->GetValue()) : QVariant();
}

void OrbelLineEdit::NodeChanged(Observable *subject, TChangeCode code)
{
    if (!ValueNode.TakeNotification(subject, code))
        return;
    const QString text = ValueNode->GetValue();
    if (!ChangeProperty(prop::Text, text))
        return;
    Q_EMIT textChanged(text);
    // Meant: a text that arrives through the node must not start automatic apply.
    setModified(false);
}

void OrbelLineEdit::SlotTextEdited(QString text)
{
    const Call call(this);
    MarkTyping();
    Q_EMIT textEdited(text);
}

void OrbelLineEdit::SlotTextFinallyChanged(QString value)
{
    const Call call(this);
    JoinAct(ValueNode.get());
    ChangeProperty(prop::Text, value);
    if (ValueNode)
        ValueNode->SetValue(value, this);
    Q_EMIT textEdited(value);
    Q_EMIT editingFinished();
    setModified(true);
}

void OrbelLineEdit::PutEdits(const QVariantList &values)
{
    if (values != GetEdits())
        SlotTextFinallyChanged(values.value(0).toString());
}

void OrbelLineEdit::SlotReturnPressed()
{
    const Call call(this);
    Q_EMIT returnPressed();
    Form().applyNow();
}

} // namespace KV218
