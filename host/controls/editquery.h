#pragma once

#include "hostexport.h"

#include <QEvent>

class QWidget;

/// Asks the field that has the focus whether the operator is in the middle of an edit there: something is typed that no
/// node holds yet, or a list is open to choose from. A field in which this is so accepts the event.
class ORBEL_HOST_EXPORT EditQuery : public QEvent
{
public:
    EditQuery() : QEvent(Kind()) { setAccepted(false); }

    /// The type that Qt has registered for this event.
    static QEvent::Type Kind();
    /// Asks `field`; null is none.
    static bool IsEditing(QWidget *field);
};
