#include "controlpointer.h"

#include "controlwidgets.h"
#include "workbench.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace Orbel
{

ControlPointer::ControlPointer(Workbench &bench) : Bench(bench) { }

ControlPointer::~ControlPointer()
{
    SetOn(false);
}

void ControlPointer::SetOn(bool on)
{
    if (on == IsOn)
        return;
    IsOn = on;
    if (on) {
        QApplication::setOverrideCursor(Qt::CrossCursor);
        qApp->installEventFilter(this);
    } else {
        QApplication::restoreOverrideCursor();
        qApp->removeEventFilter(this);
    }
}

QString ControlPointer::NameAt(const QPoint &place) const
{
    return ControlWidgets::At(Bench, QApplication::widgetAt(place));
}

/// Windows hear of the mouse before widgets do, and wherever it moves.
bool ControlPointer::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWindowType())
        return false;
    switch (event->type()) {
    case QEvent::MouseMove:
        Q_EMIT moved(NameAt(static_cast<QMouseEvent *>(event)->globalPos()));
        return true;
    case QEvent::MouseButtonPress:
        return true;
    case QEvent::MouseButtonRelease:
        SetOn(false);
        Q_EMIT ended(NameAt(static_cast<QMouseEvent *>(event)->globalPos()));
        return true;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
            return false;
        SetOn(false);
        Q_EMIT ended(QString());
        return true;
    default:
        return false;
    }
}

} // namespace Orbel
