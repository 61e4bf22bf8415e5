#include "testsupport.h"

#include "tree.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace Orbel
{

static FailureHandler &Handler()
{
    static FailureHandler handler;
    return handler;
}

void SetFailureHandler(const FailureHandler &handler)
{
    Handler() = handler;
}

void FailTest(const QString &text, const CallSite &at)
{
    if (Handler())
        Handler()(text, at);
    else if (QTest::currentTestFunction())
        QTest::qFail(qPrintable(text), at.File, at.Line);
    else
        qFatal("%s:%d: %s", at.File, at.Line, qPrintable(text));
}

void Settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void PassTime(int milliseconds)
{
    // Timers go off in the order in which they are due, however late that is.
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    Settle();
}

void TypeOver(QWidget *field, const QString &text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
}

QWidget *OpenCell(QAbstractItemView *table, int row, int column)
{
    table->setFocus();
    table->setCurrentIndex(table->model()->index(row, column));
    QTest::keyClick(table, Qt::Key_F2);
    return table->indexWidget(table->currentIndex());
}

QString LeftOver()
{
    // What ended within a call goes when the event loop comes round.
    QCoreApplication::processEvents();
    Settle();
    QStringList left;
    for (const QWidget *widget : QApplication::topLevelWidgets())
        left << QStringLiteral("widget %1 %2")
                    .arg(QLatin1String(widget->metaObject()->className()), widget->objectName());
    for (const QString &path : Tree::Instance()->GetPaths())
        left << QStringLiteral("node %1").arg(path);
    return left.join(QStringLiteral(", "));
}

} // namespace Orbel
