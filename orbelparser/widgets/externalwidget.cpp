#include "externalwidget.h"

#include "floatgrouplayout.h"
#include "propertynames.h"

#include <QWidget>

namespace KV218
{

ExternalWidget::ExternalWidget(OrbelWidget *widget, QWidget *external) : OrbelDelegate(widget), ExtWidget(external)
{
    setObjectName(WidgetName());
}

void ExternalWidget::CreateGUI(FloatGroupLayout *layout)
{
    if (!ExtWidget)
        return;
    OrbelDelegate::CreateGUI(layout);
    // Shown without a parent, it would come up as a window.
    if (ExtWidget->isWindow())
        ExtWidget->setParent(layout->parentWidget());
    // The host's own setters and handlers may delete the control, or the window.
    const QPointer<FloatGroupLayout> alive(layout);
    PropagateProperties(ExtWidget);
    if (!alive || !ExtWidget)
        return;
    layout->addWidget(ExtWidget);
    layout->addGroup();
}

QVector<Face> ExternalWidget::GetFaces() const
{
    return {{ExtWidget, [this] { return ExtWidget ? ExtWidget->accessibleName() : QString(); }}};
}

void ExternalWidget::setFocus()
{
    const Call call(this);
    if (ExtWidget)
        ExtWidget->setFocus();
}

void ExternalWidget::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    const bool mustWait = name == prop::Visible && ExtWidget && ExtWidget->isWindow();
    if (!mustWait)
        PropagateProperty(name, ExtWidget);
}

} // namespace KV218
