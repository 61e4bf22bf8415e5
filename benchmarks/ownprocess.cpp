#include "ownprocess.h"

#include <QCoreApplication>
#include <QProcess>

namespace ownprocess
{

QString OutputOf(const QStringList &arguments)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), arguments);
    child.waitForFinished(-1);
    if (child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        qFatal("%s failed", qPrintable(arguments.join(QLatin1Char(' '))));
    return QString::fromUtf8(child.readAllStandardOutput()).trimmed();
}

} // namespace ownprocess
