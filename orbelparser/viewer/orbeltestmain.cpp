#include "orbeltestmain.h"

#include <QCoreApplication>

namespace KV218
{

QSize OrbelTestMain::sizeHint() const
{
    return QSize(500, 800);
}

void OrbelTestMain::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    QCoreApplication::quit();
}

void OrbelTestMain::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
}

} // namespace KV218
