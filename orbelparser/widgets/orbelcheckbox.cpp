#include "orbelcheckbox.h"

#include "floatgrouplayout.h"
#include "newcontrol.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KV218
{

OrbelDelegate *NewCheckBox(OrbelWidget *widget)
{
    return NewControl<OrbelCheckBox>(widget);
}

OrbelCheckBox::OrbelCheckBox(OrbelWidget *widget) : BoundDelegate(widget) { }

void OrbelCheckBox::CreateValueTree()
{
    ValueNode.Adopt(CreateValueBoolean(prop::Checked));
}

void OrbelCheckBox::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Control = new VCCheckBox(layout->parentWidget(), nullptr);
    Control->setObjectName(WidgetName());
    Control->SetBoolean(ValueNode.get());
    PropagateProperties(Control);
    // Meant: without a label the name of the parameter element is the tooltip.
    if (Control->toolTip().isEmpty())
        SetOwnToolTip(Control, LabelOrTag());
    layout->addWidget(Control);
    layout->addGroup();
}

void OrbelCheckBox::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    writer.writeTextElement(GetXmlTagName(), IsChecked ? CheckedText : UncheckedText);
}

void OrbelCheckBox::ReadXml(QXmlStreamReader &reader)
{
    // Meant: any other text unchecks, so a misspelled one is not noticed.
    const bool checked = reader.readElementText() == CheckedText;
    SetPropertyAlways(prop::Checked, checked);
    Q_EMIT toggled(checked);
}

void OrbelCheckBox::PropertyChanged(const QString &name, const QVariant &value)
{
    // Before signals are emitted, whose slots may ask for the document.
    if (name == prop::Checked)
        IsChecked = value.toBool();
    else if (name == prop::CheckedValue)
        CheckedText = GetString(prop::CheckedValue, QStringLiteral("true"));
    else if (name == prop::UncheckedValue)
        UncheckedText = GetString(prop::UncheckedValue, QStringLiteral("false"));
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::Checked && ValueNode)
        ValueNode->SetValue(value.toBool(), this);
    PropagateProperty(name, Control);
}

QString OrbelCheckBox::SpellEdit(int, const QVariant &value) const
{
    return value.toBool() ? tr("on") : tr("off");
}

void OrbelCheckBox::NodeChanged(Observable *subject, TChangeCode code)
{
    if (!ValueNode.TakeNotification(subject, code))
        return;
    const bool checked = ValueNode->GetValue();
    if (!ChangeProperty(prop::Checked, checked))
        return;
    Q_EMIT toggled(checked);
    setModified(true);
}

} // namespace KV218
