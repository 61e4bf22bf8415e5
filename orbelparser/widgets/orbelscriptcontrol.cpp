#include "orbelscriptcontrol.h"

#include "floatgrouplayout.h"
#include "propertynames.h"
#include "sharedicon.h"

#include <QBoxLayout>
#include <QPixmap>
#include <QPushButton>

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

void Enable(QWidget *button, bool flag)
{
    if (button)
        button->setEnabled(flag);
}

void Show(QWidget *button, bool flag)
{
    if (button)
        button->setVisible(flag);
}

} // namespace

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
    // Meant: a state that was told before the row existed is forgotten, though the custom property keeps it.
    ScriptLoaded = false;
    ShowLamp();
    LoadButton = NewButton(name + QLatin1String("_LoadButton"), QStringLiteral("Open"), QStringLiteral("Load "));
    constexpr int LeastLoadWidth = 80;
    LoadButton->setMinimumWidth(LeastLoadWidth);
    EditButton = NewButton(name + QLatin1String("_EditButton"), QStringLiteral("Edit"), QStringLiteral("Edit "));
    // Meant: this one name has no underscore.
    ClearButton = NewButton(name + QLatin1String("ClearButton"), QStringLiteral("Clear"), QStringLiteral("Clear "));

    auto *row = new QBoxLayout(QBoxLayout::LeftToRight, Container);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (QWidget *part : {static_cast<QWidget *>(StatusLabel), static_cast<QWidget *>(LoadButton),
             static_cast<QWidget *>(EditButton), static_cast<QWidget *>(ClearButton)})
        row->addWidget(part);
    layout->addSpecial();
    layout->addWidget(Container);
    layout->addGroup();
    Relay(LoadButton.data(), &QPushButton::clicked, &OrbelScriptControl::loadScriptClicked);
    Relay(EditButton.data(), &QPushButton::clicked, &OrbelScriptControl::editScriptClicked);
    Relay(ClearButton.data(), &QPushButton::clicked, &OrbelScriptControl::clearScriptClicked);
    ApplyProperties();
}

/// `verb` begins the tooltip; the row's caption follows.
QPushButton *OrbelScriptControl::NewButton(const QString &name, const QString &icon, const QString &verb)
{
    auto *button = new QPushButton(Container);
    button->setObjectName(name);
    button->setIcon(SharedIcon(icon));
    // Meant: the verb is not translated, its tail is.
    button->setToolTip(verb + GetTranslated(prop::LabelText));
    return button;
}

void OrbelScriptControl::ShowLamp()
{
    const QString state = ScriptLoaded ? QStringLiteral("ON") : QStringLiteral("OFF");
    // A pixmap, unlike an icon, does not look for the sharper picture by itself.
    const QString sharp = StatusLabel->devicePixelRatioF() > 1 ? QStringLiteral("@2x") : QString();
    StatusLabel->setPixmap(QPixmap(QStringLiteral(":/OrbelParser/Loaded_%1%2.png").arg(state, sharp)));
    StatusLabel->setToolTip(ScriptLoaded ? tr("Script loaded") : tr("NO Script loaded"));
}

void OrbelScriptControl::ApplyProperties()
{
    // Meant: a property that the definition leaves out reads as false and locks or hides its button.
    const QStringList names = GetDefinedProperties();
    for (const QString &name : names)
        PropertyChanged(name, property(name.toLatin1().constData()));
    for (QPushButton *button : {ClearButton.data(), EditButton.data(), LoadButton.data()})
        HideIfCollapsed(button);
}

void OrbelScriptControl::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    for (const Switch &row : Switches) {
        if (name == row.property)
            (this->*row.apply)(value.toBool());
    }
    // Meant: lamp and container get none of the common properties, so the lamp stays when the row is hidden.
    PropagateProperty(name, ClearButton);
    PropagateProperty(name, EditButton);
    PropagateProperty(name, LoadButton);
}

void OrbelScriptControl::setEnabledClear(bool flag)
{
    Enable(ClearButton, flag);
}

void OrbelScriptControl::setEnabledEdit(bool flag)
{
    Enable(EditButton, flag);
}

void OrbelScriptControl::setEnabledLoad(bool flag)
{
    Enable(LoadButton, flag);
}

void OrbelScriptControl::setVisibleClear(bool flag)
{
    Show(ClearButton, flag);
}

void OrbelScriptControl::setVisibleEdit(bool flag)
{
    Show(EditButton, flag);
}

void OrbelScriptControl::setVisibleLoad(bool flag)
{
    Show(LoadButton, flag);
}

void OrbelScriptControl::sl_customPropertyChanged(QString name, QVariant value)
{
    if (name != QLatin1String("scriptloaded"))
        return;
    ScriptLoaded = value.toBool();
    if (StatusLabel)
        ShowLamp();
    // Meant: overrides what `enabledClear` asked for.
    Enable(ClearButton, ScriptLoaded);
}

} // namespace KV218
