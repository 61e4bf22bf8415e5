#include "orbelscriptcontrol.h"

#include "floatgrouplayout.h"
#include "newcontrol.h"
#include "propertynames.h"
#include "sharedicon.h"

#include <QBoxLayout>
#include <QPixmap>
#include <QPushButton>

#include <initializer_list>

namespace KV218
{

namespace
{

struct Switch {
    QLatin1String property;
    void (OrbelScriptControl::*apply)(bool);
};

/// The properties of the buttons, in the order in which they are applied.
constexpr Switch Switches[] = {
    {prop::EnabledClear, &OrbelScriptControl::setEnabledClear},
    {prop::EnabledEdit, &OrbelScriptControl::setEnabledEdit},
    {prop::EnabledLoad, &OrbelScriptControl::setEnabledLoad},
    {prop::VisibleLoad, &OrbelScriptControl::setVisibleLoad},
    {prop::VisibleClear, &OrbelScriptControl::setVisibleClear},
    {prop::VisibleEdit, &OrbelScriptControl::setVisibleEdit},
};

} // namespace

OrbelDelegate *NewScriptControl(OrbelWidget *widget)
{
    return NewControl<OrbelScriptControl>(widget);
}

OrbelScriptControl::OrbelScriptControl(OrbelWidget *widget) : OrbelDelegate(widget)
{
    for (const Switch &row : Switches)
        DefineProperty(row.property);
    connect(this, &OrbelDelegate::customPropertyChanged, this, &OrbelScriptControl::sl_customPropertyChanged);
}

void OrbelScriptControl::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    const QString name = WidgetName();
    Container = new QWidget(layout->parentWidget());
    Container->setObjectName(name);
    StatusLabel = new QLabel(Container);
    StatusLabel->setObjectName(name + QLatin1String("StatusLabel"));
    // Meant: a state that was set before the row existed is lost, though the custom property keeps it.
    ScriptLoaded = false;
    ShowLamp();
    QPushButton *load = NewButton(name + QLatin1String("_LoadButton"), QStringLiteral("Open"), QStringLiteral("Load "));
    constexpr int LeastLoadWidth = 80;
    load->setMinimumWidth(LeastLoadWidth);
    QPushButton *edit = NewButton(name + QLatin1String("_EditButton"), QStringLiteral("Edit"), QStringLiteral("Edit "));
    // Meant: without the underscore of its siblings; style sheets of hosts find it by this name.
    QPushButton *clear
        = NewButton(name + QLatin1String("ClearButton"), QStringLiteral("Clear"), QStringLiteral("Clear "));
    Buttons[Load] = {load};
    Buttons[Edit] = {edit};
    Buttons[Clear] = {clear};

    auto *row = new QBoxLayout(QBoxLayout::LeftToRight, Container);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (QWidget *part : std::initializer_list<QWidget *>{StatusLabel, load, edit, clear})
        row->addWidget(part);
    layout->addSpecial();
    layout->addWidget(Container);
    layout->addGroup();
    Relay(load, &QPushButton::clicked, &OrbelScriptControl::loadScriptClicked);
    Relay(edit, &QPushButton::clicked, &OrbelScriptControl::editScriptClicked);
    Relay(clear, &QPushButton::clicked, &OrbelScriptControl::clearScriptClicked);
    ApplyProperties();
}

/// `verb` begins the tooltip; the row's caption follows.
QPushButton *OrbelScriptControl::NewButton(const QString &name, const QString &icon, const QString &verb)
{
    auto *button = new QPushButton(Container);
    button->setObjectName(name);
    button->setIcon(SharedIcon(icon));
    // Meant: the verb stays English in every language; only the label behind it is translated.
    SetOwnToolTip(button, {GetString(prop::LabelText, QString()), verb});
    return button;
}

void OrbelScriptControl::ShowLamp()
{
    const QString state = ScriptLoaded ? QStringLiteral("ON") : QStringLiteral("OFF");
    // A pixmap, unlike an icon, does not look for the sharper picture by itself.
    const QString sharp = StatusLabel->devicePixelRatioF() > 1 ? QStringLiteral("@2x") : QString();
    StatusLabel->setPixmap(QPixmap(QStringLiteral(":/OrbelParser/Loaded_%1%2.png").arg(state, sharp)));
    ShowLampToolTip();
}

void OrbelScriptControl::ShowLampToolTip()
{
    StatusLabel->setToolTip(ScriptLoaded ? tr("Script loaded") : tr("NO Script loaded"));
}

void OrbelScriptControl::ApplyProperties()
{
    // Meant: a property that the definition leaves out reads as false and locks or hides its button.
    const QStringList names = GetDefinedProperties();
    for (const QString &name : names)
        PropertyChanged(name, property(name.toLatin1().constData()));
    for (const Button &button : Buttons)
        HideIfCollapsed(button.Control);
}

void OrbelScriptControl::Retranslate()
{
    OrbelDelegate::Retranslate();
    if (StatusLabel)
        ShowLampToolTip();
}

void OrbelScriptControl::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    for (const Switch &row : Switches) {
        if (name == row.property)
            (this->*row.apply)(value.toBool());
    }
    // Meant: lamp and container get none of the common properties, so the lamp stays when the row is hidden.
    for (int button : {Clear, Edit, Load})
        PropagateProperty(name, Buttons[button].Control);
}

QVector<Face> OrbelScriptControl::GetFaces() const
{
    return {{Buttons[Load].Control.data(), [] { return tr("load"); }},
        {Buttons[Edit].Control.data(), [] { return tr("edit"); }},
        {Buttons[Clear].Control.data(), [] { return tr("clear"); }}};
}

void OrbelScriptControl::EnableInput(bool enable, bool partial)
{
    const Call call(this);
    OrbelDelegate::EnableInput(enable, partial);
    if (enable)
        GiveBackStates();
}

void OrbelScriptControl::setGroupVisible(bool flag)
{
    const Call call(this);
    OrbelDelegate::setGroupVisible(flag);
    if (flag)
        GiveBackStates();
}

/// The end of a lock or a collapse makes all three alike, as far as the row is free and shown.
void OrbelScriptControl::GiveBackStates()
{
    for (int button = 0; button < ButtonCount; ++button) {
        if (IsDefined(prop::Enabled) && GetBool(prop::Enabled, true))
            SetEnabled(button, Buttons[button].Enabled);
        if (IsDefined(prop::Visible) && GetBool(prop::Visible, true))
            SetVisible(button, Buttons[button].Visible);
    }
}

void OrbelScriptControl::SetEnabled(int button, bool flag)
{
    if (!Buttons[button].Control)
        return;
    Buttons[button].Enabled = flag;
    Buttons[button].Control->setEnabled(flag);
}

void OrbelScriptControl::SetVisible(int button, bool flag)
{
    if (!Buttons[button].Control)
        return;
    Buttons[button].Visible = flag;
    Buttons[button].Control->setVisible(flag);
}

void OrbelScriptControl::setEnabledClear(bool flag)
{
    SetEnabled(Clear, flag);
}

void OrbelScriptControl::setEnabledEdit(bool flag)
{
    SetEnabled(Edit, flag);
}

void OrbelScriptControl::setEnabledLoad(bool flag)
{
    SetEnabled(Load, flag);
}

void OrbelScriptControl::setVisibleClear(bool flag)
{
    SetVisible(Clear, flag);
}

void OrbelScriptControl::setVisibleEdit(bool flag)
{
    SetVisible(Edit, flag);
}

void OrbelScriptControl::setVisibleLoad(bool flag)
{
    SetVisible(Load, flag);
}

void OrbelScriptControl::sl_customPropertyChanged(QString name, QVariant value)
{
    if (name != QLatin1String("scriptloaded"))
        return;
    ScriptLoaded = value.toBool();
    if (StatusLabel)
        ShowLamp();
    // Meant: overrides what `enabledClear` asked for.
    SetEnabled(Clear, ScriptLoaded);
}

} // namespace KV218
