#include "testcase.h"

QByteArray BytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString WriteFile(const QTemporaryDir &folder, const QString &name, const QByteArray &content)
{
    QFile file(folder.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
}

int FromEnvironment(const char *name, int otherwise)
{
    bool stated = false;
    const int value = qEnvironmentVariableIntValue(name, &stated);
    return stated ? value : otherwise;
}
