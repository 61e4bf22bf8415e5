#include "modalvisitor.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace Orbel
{

ModalVisitor::ModalVisitor(const std::function<void(QWidget *)> &visit) : Visit(visit)
{
    connect(this, &QTimer::timeout, this, &ModalVisitor::Look);
    start(0);
}

void ModalVisitor::Look()
{
    QWidget *const menu = QApplication::activePopupWidget();
    const QPointer<QWidget> open = menu ? menu : QApplication::activeModalWidget();
    if (!open)
        return;
    ++Count;
    if (Visit)
        Visit(open);
    if (open)
        open->close();
}

} // namespace Orbel
