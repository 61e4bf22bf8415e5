#pragma once

#include "testsupportexport.h"

#include <QObject>

namespace Orbel
{

/// Runs the tests of `test` in an application with a style, font and locale that are the same everywhere, so that what
/// is typed and shown does not depend on the machine. Gives the exit status of QTest::qExec().
ORBEL_TESTSUPPORT_EXPORT int RunTest(QObject *test, int argc, char **argv);

/// A QtTest each function of which fails when it leaves a window or a node of the value tree behind. A class with a
/// cleanup() of its own asks for LeftOver() there.
class ORBEL_TESTSUPPORT_EXPORT TestCase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
};

} // namespace Orbel

/// The main function of a test: RunTest() of that class.
#define ORBEL_TEST_MAIN(TestClass)                                                                                     \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        TestClass test;                                                                                                \
        return Orbel::RunTest(&test, argc, argv);                                                                      \
    }
