#pragma once

#include "checkexport.h"

#include <QStringList>

struct QMetaObject;

namespace Orbel
{

/// What scripts and hosts can call or connect to, as signatures with the names of the arguments, in the order of the
/// meta-object.
struct ORBEL_CHECK_INTERNAL ClassMembers {
    QStringList Signals;
    QStringList Slots; ///< Public ones.
    QStringList Invokables;
};

/// The name in a signature as `int firstIndexOfValue(QString value)`.
ORBEL_CHECK_INTERNAL QString NameOfMember(const QString &signature);
/// The members of a class and of its bases, as far as they are not members of `base`.
ORBEL_CHECK_INTERNAL ClassMembers MembersOf(const QMetaObject *metaObject, const QMetaObject &base);

} // namespace Orbel
