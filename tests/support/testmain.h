#pragma once

#include <QObject>

/// Runs the tests of `test` in an application with the style, font and locale that all tests share.
/// Returns the exit status of QTest::qExec.
int RunOrbelTest(QObject *test, int argc, char **argv);

/// What a finished test case left behind, as text; empty when nothing was left. Call it in cleanup().
QString LeftOver();

#define ORBEL_TEST_MAIN(TestClass)                                                                                     \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        TestClass test;                                                                                                \
        return RunOrbelTest(&test, argc, argv);                                                                        \
    }
