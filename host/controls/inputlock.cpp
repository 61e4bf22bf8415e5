#include "inputlock.h"

QEvent::Type InputLock::Kind()
{
    static const int kind = QEvent::registerEventType();
    return QEvent::Type(kind);
}
