#include "widgetindex.h"

#include "orbeldelegate.h"
#include "orbelwidget.h"

namespace KV218
{

namespace
{

/// Enters each widget under its key, from the back, so that of equal ones the first stays.
template <class Key>
void Fill(QHash<QString, WidgetIndex::Widget> &index, const QList<WidgetIndex::Widget> &widgets, Key key)
{
    index.clear();
    for (int i = widgets.size() - 1; i >= 0; --i) {
        if (widgets.at(i)->GetDelegate())
            index.insert(key(widgets.at(i)), widgets.at(i));
    }
}

} // namespace

WidgetIndex::Widget WidgetIndex::FindName(const QList<Widget> &widgets, const QString &name) const
{
    if (!HasNames)
        Fill(ByName, widgets, [](const Widget &widget) { return widget->GetName(); });
    HasNames = true;
    return ByName.value(name);
}

WidgetIndex::Widget WidgetIndex::FindTag(const QList<Widget> &widgets, const QString &tag) const
{
    if (!HasTags)
        Fill(ByTag, widgets, [](const Widget &widget) { return widget->GetXmlTagName(); });
    HasTags = true;
    return ByTag.value(tag);
}

} // namespace KV218
