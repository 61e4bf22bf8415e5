#include "controlwidgets.h"

#include "orbeldelegate.h"
#include "orbelformular.h"
#include "workbench.h"

#include <QHash>
#include <QWidget>

namespace Orbel
{

QVector<QWidget *> ControlWidgets::Of(const Workbench &bench, const QString &name)
{
    QVector<QWidget *> widgets;
    const KV218::OrbelDelegate *const control = bench.FindControl(name);
    if (!control)
        return widgets;
    for (const KV218::Face &face : control->GetFaces()) {
        if (face.Widget)
            widgets.append(face.Widget);
    }
    // Headlines, labels and separators have no face; their widgets are named as they are.
    QWidget *const window = bench.GetForm()->GetGUI();
    QWidget *const named = widgets.isEmpty() && window ? window->findChild<QWidget *>(name) : nullptr;
    for (QWidget *widget : {named, static_cast<QWidget *>(control->GetRowLabel())}) {
        if (widget)
            widgets.append(widget);
    }
    return widgets;
}

QString ControlWidgets::At(const Workbench &bench, const QWidget *widget)
{
    if (!bench.GetForm())
        return QString();
    QHash<const QWidget *, QString> names;
    const KV218::OrbelSheet &sheet = bench.GetForm()->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const QString name = sheet.GetWidgetAt(i)->GetName();
        for (const QWidget *each : Of(bench, name))
            names.insert(each, name);
    }
    while (widget && !names.contains(widget))
        widget = widget->parentWidget();
    return names.value(widget);
}

} // namespace Orbel
