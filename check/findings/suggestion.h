#pragma once

#include "checkexport.h"

#include <QStringList>

namespace Orbel
{

/// The name nearest to `name`, when it is near enough to be meant: at most one letter in three differs. Upper and lower
/// case count as equal. Never `name` itself. Empty when none is near.
ORBEL_CHECK_EXPORT QString NearestName(const QString &name, const QStringList &names);

/// The same, but nothing where the name differs from one of the others in its digits alone: "gain2" is no mistake for
/// "gain1".
ORBEL_CHECK_EXPORT QString MisspeltName(const QString &name, const QStringList &names);

/// `; did you mean "X"?`, or nothing when no name is near.
ORBEL_CHECK_EXPORT QString DidYouMean(const QString &name, const QStringList &names);

/// The same with the name that was found already; nothing when it is empty.
ORBEL_CHECK_EXPORT QString DidYouMean(const QString &nearest);

/// The names in quotation marks, for messages; beyond ten only their count.
ORBEL_CHECK_EXPORT QString Quoted(const QStringList &names);

} // namespace Orbel
