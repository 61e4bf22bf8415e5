#pragma once

#include <QStringList>

namespace Orbel
{

/// Up to `count` of the names, without repeats, that take the fewest inserted, removed and replaced letters to become
/// `name`; upper and lower case count as equal. The nearest first, equally near ones in the order of the list. Names of
/// which more than half would change are left out, but for the nearest.
QStringList NearestNames(const QString &name, const QStringList &names, int count);

} // namespace Orbel
