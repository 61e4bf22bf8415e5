#include "orbelheadline.h"

#include "floatgrouplayout.h"
#include "formdoor.h"
#include "formlimits.h"
#include "newcontrol.h"

namespace KV218
{

OrbelDelegate *NewHeadline(OrbelWidget *widget)
{
    return NewControl<OrbelHeadline>(widget);
}

OrbelHeadline::OrbelHeadline(OrbelWidget *widget) : OrbelDelegate(widget)
{
    UndefineProperty(prop::Enabled);
}

void OrbelHeadline::CreateGUI(FloatGroupLayout *layout)
{
    Title = GetString(prop::Text, QString());
    if (Title.isEmpty())
        return;
    GroupBox = layout->addHeadline(Translate(Title), GetInt(prop::Margin, 0), WidgetName().toUtf8().constData());
    GroupBox->setAlignment(Qt::AlignLeft);
    GroupBox->setCheckable(true);
    GroupBox->setChecked(GroupVisible);
    // Hosts read it, and theirs stands in its place or adds to it.
    GroupBox->setStyleSheet(
        QStringLiteral("QGroupBox::indicator:unchecked {image: url(:/OrbelParser/HeadlineClosed.svg);}"
                       "QGroupBox::indicator:checked {image: url(:/OrbelParser/HeadlineOpened.svg);}"));
    RefreshToolTip();
    connect(GroupBox, &QGroupBox::clicked, this, &OrbelHeadline::slotClicked);
    PropagateProperties(GroupBox);
}

void OrbelHeadline::EnableInput(bool, bool) { }

void OrbelHeadline::setGroupVisible(bool flag)
{
    if (flag == GroupVisible)
        return;
    const Call call(this);
    GroupVisible = flag;
    if (GroupBox)
        GroupBox->setChecked(flag);
    RefreshToolTip();
}

void OrbelHeadline::Retranslate()
{
    OrbelDelegate::Retranslate();
    if (GroupBox)
        GroupBox->setTitle(Translate(Title));
    if (GroupBox && GroupBox->toolTip() == ToolTip)
        RefreshToolTip();
}

void OrbelHeadline::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    // Meant: a new text or margin is stored, and the title on the screen stays.
    PropagateProperty(name, GroupBox);
}

void OrbelHeadline::slotClicked(bool clicked)
{
    // A field that is hidden commits its text, and the configuration object is the host's: the form may end in either.
    const Call call(this);
    Form().setGroupVisible(clicked);
    Form().ApplyConfiguration();
    RefreshToolTip();
}

void OrbelHeadline::RefreshToolTip()
{
    if (!GroupBox)
        return;
    const char *const source = GroupVisible ? QT_TR_NOOP("Hide %1") : QT_TR_NOOP("Show %1");
    QString format = Translate(QLatin1String(source));
    // Where the form has no words of its own for it.
    if (format == QLatin1String(source))
        format = tr(source);
    // Meant: the argument is the text as the definition has it, untranslated.
    ToolTip = format.arg(GetString(prop::Text, QString()).left(limit::ShownText));
    GroupBox->setToolTip(ToolTip);
}

} // namespace KV218
