#include "editquery.h"

#include <QCoreApplication>
#include <QWidget>

QEvent::Type EditQuery::Kind()
{
    static const int kind = QEvent::registerEventType();
    return QEvent::Type(kind);
}

bool EditQuery::IsEditing(QWidget *field)
{
    EditQuery query;
    if (field)
        QCoreApplication::sendEvent(field, &query);
    return query.isAccepted();
}
