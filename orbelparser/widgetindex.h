#pragma once

#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QList>
#include <QString>

namespace KV218
{

class OrbelWidget;

/// Finds the widgets of a sheet by name and by element name in constant time; of equal ones the first in list order.
/// Made anew from the list when it is asked after a Drop().
class WidgetIndex
{
public:
    using Widget = QExplicitlySharedDataPointer<OrbelWidget>;

    void Drop() { Valid = false; }
    Widget FindName(const QList<Widget> &widgets, const QString &name) const;
    Widget FindTag(const QList<Widget> &widgets, const QString &tag) const;

private:
    void Fill(const QList<Widget> &widgets) const;

    mutable QHash<QString, Widget> ByName;
    mutable QHash<QString, Widget> ByTag;
    mutable bool Valid = false;
};

} // namespace KV218
