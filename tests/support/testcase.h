#pragma once

#include "rows.h"
#include "testsupport.h"

#include <QtTest>
#include <QtWidgets>

#include <functional>

/// Runs the tests of `test` in an application with the style, font and locale that all tests share.
/// Returns the exit status of QTest::qExec.
int RunOrbelTest(QObject *test, int argc, char **argv);

using Orbel::LeftOver;

/// What the file at the path holds; empty for a file that cannot be read.
inline QByteArray BytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file into a folder; gives its path, or nothing.
inline QString WriteFile(const QTemporaryDir &folder, const QString &name, const QByteArray &content)
{
    QFile file(folder.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
}

/// A number that an environment variable states, or another one.
inline int FromEnvironment(const char *name, int otherwise)
{
    bool stated = false;
    const int value = qEnvironmentVariableIntValue(name, &stated);
    return stated ? value : otherwise;
}

/// A test after each case of which nothing may be left behind.
class TestCase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }
};

#define ORBEL_TEST_MAIN(TestClass)                                                                                     \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        TestClass test;                                                                                                \
        return RunOrbelTest(&test, argc, argv);                                                                        \
    }
