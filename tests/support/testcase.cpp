#include "testcase.h"

#include "tree.h"

#include <QApplication>
#include <QLocale>
#include <QStyleFactory>
#include <QtTest>

int RunOrbelTest(QObject *test, int argc, char **argv)
{
    QLocale::setDefault(QLocale::c());
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create("fusion"));
    QFont font("DejaVu Sans");
    font.setPointSize(9);
    QApplication::setFont(font);
    return QTest::qExec(test, argc, argv);
}

QString LeftOver()
{
    // What ended within a call goes when the event loop comes round.
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList left;
    for (QWidget *widget : QApplication::topLevelWidgets())
        left << QStringLiteral("widget %1 %2").arg(widget->metaObject()->className(), widget->objectName());
    for (const QString &path : Tree::Instance()->GetPaths())
        left << QStringLiteral("node %1").arg(path);
    return left.join(QStringLiteral(", "));
}
