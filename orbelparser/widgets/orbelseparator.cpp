#include "orbelseparator.h"

#include "floatgrouplayout.h"
#include "newcontrol.h"

#include <QGroupBox>

namespace KV218
{

OrbelDelegate *NewSeparator(OrbelWidget *widget)
{
    return NewControl<OrbelSeparator>(widget, true);
}

OrbelDelegate *NewFixedSpacer(OrbelWidget *widget)
{
    return NewControl<OrbelSeparator>(widget, false);
}

OrbelSeparator::OrbelSeparator(OrbelWidget *widget, bool isHeadline) : OrbelDelegate(widget), IsHeadline(isHeadline) { }

void OrbelSeparator::CreateGUI(FloatGroupLayout *layout)
{
    const QByteArray name = WidgetName().toUtf8();
    if (IsHeadline)
        Control = layout->addHeadline(QString(), GetInt(prop::Margin, 0), name.constData());
    else
        Control = layout->addSeparator(GetInt(prop::Height, 0), name.constData());
    PropagateProperties(Control);
}

void OrbelSeparator::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    // Meant: a new height or margin is stored, and the gap on the screen stays.
    PropagateProperty(name, Control);
}

} // namespace KV218
