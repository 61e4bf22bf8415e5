#include "orbeltestcase.h"

#include "testsupport.h"

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QStyleFactory>
#include <QTest>

namespace Orbel
{

int RunTest(QObject *test, int argc, char **argv)
{
    QLocale::setDefault(QLocale::c());
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(9);
    QApplication::setFont(font);
    return QTest::qExec(test, argc, argv);
}

void TestCase::cleanup()
{
    QCOMPARE(LeftOver(), QString());
}

} // namespace Orbel
