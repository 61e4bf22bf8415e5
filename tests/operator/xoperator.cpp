#include "xoperator.h"

#include <QtTest>
#include <QtWidgets>

void XOperator::Run(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(ORBEL_XDOTOOL), arguments);
    // The X server may wait for this application to answer.
    QTRY_VERIFY2_WITH_TIMEOUT(process.state() == QProcess::NotRunning, "xdotool does not end", 30000);
    if (process.exitCode() != 0)
        qWarning("xdotool: %s", process.readAllStandardError().constData());
}

bool XOperator::Show(QWidget *window)
{
    window->move(0, 0);
    window->show();
    if (!QTest::qWaitForWindowExposed(window))
        return false;
    // There is no window manager to give the focus.
    Run({"windowfocus", "--sync", QString::number(window->winId())});
    window->activateWindow();
    return QTest::qWaitForWindowActive(window);
}

void XOperator::Click(QWidget *widget, int button)
{
    QPoint place = widget->rect().center();
    if (qobject_cast<QCheckBox *>(widget)) {
        // Only indicator and text of a check box take clicks, and the box may be much wider.
        QStyleOptionButton option;
        option.initFrom(widget);
        place = widget->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, widget).center();
    }
    ClickAt(widget, place, button);
}

void XOperator::ClickAt(QWidget *widget, const QPoint &point, int button)
{
    const QPoint place = widget->mapToGlobal(point);
    Run({"mousemove", QString::number(place.x()), QString::number(place.y()), "click", QString::number(button)});
}

void XOperator::Type(const QString &text)
{
    Run({"type", "--delay", "5", text});
}

void XOperator::PressInMenu(const QStringList &keys, const std::function<void(QMenu *)> &look)
{
    auto *poll = new QTimer(qApp);
    QObject::connect(poll, &QTimer::timeout, poll, [=] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        poll->stop();
        poll->deleteLater();
        look(menu);
        QProcess::startDetached(QStringLiteral(ORBEL_XDOTOOL), QStringList("key") + keys);
    });
    poll->start(20);
}

void XOperator::Press(const QString &keys)
{
    Run({"key", keys});
}
