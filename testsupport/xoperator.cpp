#include "xoperator.h"

#include "clickpoint.h"
#include "testsupport.h"

#include <QApplication>
#include <QMenu>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace Orbel
{

static const QString &Program()
{
    static const QString program = QStandardPaths::findExecutable(QStringLiteral("xdotool"));
    return program;
}

bool XOperator::IsThere()
{
    return QGuiApplication::platformName() == QLatin1String("xcb") && !Program().isEmpty();
}

QString XOperator::Run(const QStringList &arguments, const CallSite &at)
{
    QProcess process;
    process.start(Program(), arguments);
    // The X server may wait for this application to answer.
    if (!QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, 30000)) {
        FailTest(QStringLiteral("xdotool does not end"), at);
        return QString();
    }
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

bool XOperator::Show(QWidget *window)
{
    window->move(0, 0);
    window->show();
    if (!QTest::qWaitForWindowExposed(window))
        return false;
    // There is no window manager to give the focus.
    Run({QStringLiteral("windowfocus"), QStringLiteral("--sync"), QString::number(window->winId())});
    window->activateWindow();
    return QTest::qWaitForWindowActive(window);
}

void XOperator::Click(QWidget *widget, int button)
{
    ClickAt(widget, ClickPoint(*widget), button);
}

void XOperator::ClickAt(QWidget *widget, const QPoint &point, int button)
{
    const QPoint place = widget->mapToGlobal(point);
    Run({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()), QStringLiteral("click"),
        QString::number(button)});
}

void XOperator::Type(const QString &text)
{
    Run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("5"), text});
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
        QProcess::startDetached(Program(), QStringList(QStringLiteral("key")) + keys);
    });
    poll->start(20);
}

void XOperator::Press(const QString &keys)
{
    Run({QStringLiteral("key"), keys});
}

} // namespace Orbel
