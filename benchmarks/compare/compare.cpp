// compare FORM OUT.png: draws a form as the library makes it, and to its right the same controls in a QFormLayout, both
// in the width of the viewer's window and as high as they need to be, in the colours of a light desktop.

#include "handmade.h"

#include "orbelformular.h"
#include "orbelparser.h"

#include <QApplication>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleFactory>

namespace
{

constexpr int Width = 500;
constexpr int Margin = 16;

QPixmap Draw(QWidget *window, QScrollArea *area)
{
    window->resize(Width, window->minimumSizeHint().height());
    window->show();
    QApplication::processEvents();
    if (area)
        window->resize(Width, window->height() + area->verticalScrollBar()->maximum());
    QApplication::processEvents();
    if (QWidget *focused = QApplication::focusWidget())
        focused->clearFocus();
    QApplication::processEvents();
    return window->grab();
}

} // namespace

int main(int count, char **arguments)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    if (count != 3) {
        qCritical("usage: compare FORM OUT.png");
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    const auto name = QString::fromLocal8Bit(arguments[1]);
    QExplicitlySharedDataPointer<KV218::OrbelFormular> form(KV218::OrbelParser().ParseORBELFile(name));
    if (!form) {
        qCritical("%s: no form", arguments[1]);
        return 1;
    }
    form->CreateValueTree(QStringLiteral("/Form"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> ours(form->GetGUI());
    auto *area = ours->findChild<QScrollArea *>();
    const QPixmap left = Draw(ours.get(), area);
    const std::unique_ptr<QWidget> hands = HandMade(*area->widget()->layout());
    const QPixmap right = Draw(hands.get(), nullptr);

    QImage picture(left.width() + right.width() + 3 * Margin, qMax(left.height(), right.height()) + 2 * Margin,
        QImage::Format_RGB32);
    picture.fill(QApplication::palette().color(QPalette::Mid));
    QPainter painter(&picture);
    painter.drawPixmap(Margin, Margin, left);
    painter.drawPixmap(left.width() + 2 * Margin, Margin, right);
    painter.end();
    return picture.save(QString::fromLocal8Bit(arguments[2])) ? 0 : 1;
}
