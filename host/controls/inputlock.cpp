#include "inputlock.h"

namespace Orbel
{

QEvent::Type InputLock::Kind()
{
    static const int kind = QEvent::registerEventType();
    return QEvent::Type(kind);
}

} // namespace Orbel
