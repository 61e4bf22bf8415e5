#include "formpicture.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

namespace Orbel
{

/// Makes the form so high that nothing of it must be scrolled.
static void GrowToContent(QWidget &gui)
{
    auto *area = qobject_cast<QScrollArea *>(&gui);
    if (!area)
        area = gui.findChild<QScrollArea *>();
    if (!area)
        return;
    const int height = gui.height() + area->verticalScrollBar()->maximum();
    gui.resize(gui.width(), qMin(height, int(FormPicture::GreatestSide / gui.devicePixelRatioF())));
    QApplication::processEvents();
}

QImage FormPicture::Draw(QWidget &gui, QSize size)
{
    const bool isGrowing = size.height() <= 0;
    gui.resize(size.width(), isGrowing ? gui.minimumSizeHint().height() : size.height());
    gui.show();
    QApplication::processEvents();
    if (isGrowing)
        GrowToContent(gui);
    QWidget *const focused = QApplication::focusWidget();
    if (focused && gui.isAncestorOf(focused))
        focused->clearFocus();
    return gui.grab().toImage();
}

} // namespace Orbel
