#include "restdepth.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

namespace KV218
{

/// How deep events and event loops stand in one another, which Qt knows for what is to be deleted later.
static int EventDepth()
{
    QObject probe;
    auto *const event = new QDeferredDeleteEvent; // goes with the probe
    QCoreApplication::postEvent(&probe, event);
    return event->loopLevel();
}

/// That of an event in the application's own event loop; where none runs yet, of one that the host has processed.
static int OutermostDepth()
{
    return QThread::currentThread()->loopLevel() > 0 ? 2 : 1;
}

RestDepth::RestDepth()
{
    Follow();
}

/// Comes along when control returns from the handler, or the event loop, that made this: Qt deletes later than that
/// what was given up there.
void RestDepth::Follow()
{
    Least = std::min(Least, EventDepth());
    if (Least <= OutermostDepth())
        return;
    auto *const returned = new QObject;
    connect(returned, &QObject::destroyed, this, &RestDepth::Follow);
    returned->deleteLater();
}

bool RestDepth::IsAtRest() const
{
    return EventDepth() <= std::max(OutermostDepth(), Least);
}

} // namespace KV218
