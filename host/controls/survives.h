#pragma once

#include <QPointer>

namespace Orbel
{

/// Does what may delete `object`, which is a QObject, and tells whether it is still there.
template <class Object, class Act> bool Survives(Object *object, const Act &act)
{
    const QPointer<Object> self(object);
    act();
    return self;
}

} // namespace Orbel
