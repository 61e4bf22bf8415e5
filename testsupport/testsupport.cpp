#include "testsupport.h"

#include "tree.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEventLoop>
#include <QPointer>
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

void TypeText(QWidget *field, const QString &text)
{
    // keyClicks() knows Latin letters only, and a field may end at any key.
    const QPointer<QWidget> kept = field;
    for (const QChar letter : text) {
        const bool isAscii = letter.unicode() < 128;
        const Qt::Key key = isAscii ? QTest::asciiToKey(letter.toLatin1()) : Qt::Key(letter.toUpper().unicode());
        if (kept)
            QTest::sendKeyEvent(QTest::Click, kept, key, QString(letter), {});
    }
}

void TypeOver(QWidget *field, const QString &text)
{
    const QPointer<QWidget> kept = field;
    field->setFocus();
    if (kept)
        QTest::keyClick(kept, Qt::Key_A, Qt::ControlModifier);
    if (kept)
        TypeText(kept, text);
}

QWidget *OpenCell(QAbstractItemView *table, int row, int column)
{
    const QPointer<QAbstractItemView> kept = table;
    table->setFocus();
    if (kept)
        kept->setCurrentIndex(kept->model()->index(row, column));
    if (kept)
        QTest::keyClick(kept, Qt::Key_F2);
    return kept ? kept->indexWidget(kept->currentIndex()) : nullptr;
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
