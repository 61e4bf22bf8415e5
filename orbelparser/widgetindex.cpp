#include "widgetindex.h"

#include "orbeldelegate.h"
#include "orbelwidget.h"

namespace KV218
{

WidgetIndex::Widget WidgetIndex::FindName(const QList<Widget> &widgets, const QString &name) const
{
    Fill(widgets);
    return ByName.value(name);
}

WidgetIndex::Widget WidgetIndex::FindTag(const QList<Widget> &widgets, const QString &tag) const
{
    Fill(widgets);
    return ByTag.value(tag);
}

void WidgetIndex::Fill(const QList<Widget> &widgets) const
{
    if (Valid)
        return;
    ByName.clear();
    ByTag.clear();
    // From the back, so that of equal ones the first stays.
    for (int i = widgets.size() - 1; i >= 0; --i) {
        const Widget &widget = widgets.at(i);
        ByName.insert(widget->GetName(), widget);
        if (const OrbelDelegate *delegate = widget->GetDelegate())
            ByTag.insert(delegate->GetXmlTagName(), widget);
    }
    Valid = true;
}

} // namespace KV218
