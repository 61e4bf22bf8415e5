#pragma once

#include "hostexport.h"

#include <QEvent>

namespace Orbel
{

/// Sent to the field that has the focus when its input is about to be locked. A field takes a text back that is being
/// typed, as with Escape, and tells the operator which. One that no lock reaches does not accept the event, and goes
/// on.
class ORBEL_HOST_EXPORT InputLock : public QEvent
{
public:
    InputLock() : QEvent(Kind()) { }

    /// The type that Qt has registered for this event.
    static QEvent::Type Kind();
};

} // namespace Orbel
