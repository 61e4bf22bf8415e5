#include "orbelpushbutton.h"

#include "floatgrouplayout.h"
#include "newcontrol.h"

namespace KV218
{

OrbelDelegate *NewPushButton(OrbelWidget *widget)
{
    return NewControl<OrbelPushButton>(widget);
}

OrbelPushButton::OrbelPushButton(OrbelWidget *widget) : OrbelDelegate(widget)
{
    static const QStringList names = GetDefinedProperties() + QStringList{prop::Icon, prop::IconSize};
    DefineProperties(names);
}

void OrbelPushButton::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Button = new QPushButton(layout->parentWidget());
    Button->setObjectName(WidgetName());
    PropagateProperties(Button);
    Button->setText(GetTranslated(prop::Text));
    layout->addSpecial();
    // Meant: the text replaces a tooltip of the definition.
    SetOwnToolTip(Button, {GetString(prop::Text, QString())});
    layout->addWidget(Button);
    layout->addGroup();
    Relay(Button.data(), &QPushButton::clicked, &OrbelPushButton::clicked);
    Relay(Button.data(), &QPushButton::pressed, &OrbelPushButton::pressed);
    Relay(Button.data(), &QPushButton::released, &OrbelPushButton::released);
}

void OrbelPushButton::setFocus()
{
    const Call call(this);
    if (Button)
        Button->setFocus();
}

void OrbelPushButton::Retranslate()
{
    OrbelDelegate::Retranslate();
    if (Button)
        Button->setText(GetTranslated(prop::Text));
}

void OrbelPushButton::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::Text && Button)
        Button->setText(Translate(value.toString()));
    // Meant: an icon that was cleared stays on the button, and so does the first tooltip.
    PropagateProperty(name, Button);
}

void OrbelPushButton::animateClick()
{
    constexpr int Milliseconds = 100;
    if (Button)
        Button->animateClick(Milliseconds);
}

} // namespace KV218
