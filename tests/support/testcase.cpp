#include "testcase.h"

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
