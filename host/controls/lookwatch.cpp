#include "lookwatch.h"

#include <QEvent>
#include <QWidget>

namespace Orbel
{

LookWatch::LookWatch(QWidget *watched, QObject *owner, std::function<void()> follow)
    : QObject(owner), Follow(std::move(follow))
{
    watched->installEventFilter(this);
}

bool LookWatch::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        Follow();
    return false;
}

} // namespace Orbel
