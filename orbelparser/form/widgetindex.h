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
    /// A widget of the sheet.
    using Widget = QExplicitlySharedDataPointer<OrbelWidget>;

    /// Must be called when the list changed.
    void Drop() { HasNames = HasTags = false; }
    /// Must be called when an element name changed.
    void DropTags() { HasTags = false; }
    Widget FindName(const QList<Widget> &widgets, const QString &name) const;
    Widget FindTag(const QList<Widget> &widgets, const QString &tag) const;

private:
    mutable QHash<QString, Widget> ByName;
    mutable QHash<QString, Widget> ByTag;
    mutable bool HasNames = false;
    mutable bool HasTags = false;
};

} // namespace KV218
