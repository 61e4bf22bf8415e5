#include "checkprocess.h"

#include "checkjson.h"

#include <QCoreApplication>
#include <QDir>

namespace Orbel
{

CheckProcess::CheckProcess(const QByteArray &document, const QString &end, const Done &done, QObject *parent)
    : QObject(parent), Tell(done), File(QDir::temp().filePath(QStringLiteral("XXXXXX") + end))
{
    Process.setStandardErrorFile(QProcess::nullDevice());
    Process.setStandardInputFile(QProcess::nullDevice());
    connect(&Process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &CheckProcess::End);
    connect(&Process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            deleteLater();
    });
    if (!File.open() || File.write(document) != document.size() || !File.flush()) {
        deleteLater();
        return;
    }
    Process.start(QCoreApplication::applicationFilePath(),
        {QStringLiteral("check"), QStringLiteral("--run"), QStringLiteral("--json"), File.fileName()});
}

CheckProcess::~CheckProcess()
{
    Process.disconnect(this);
    Process.kill();
    Process.waitForFinished();
}

void CheckProcess::End()
{
    bool isValid = false;
    const Findings findings = FindingsFromJson(Process.readAllStandardOutput(), &isValid);
    deleteLater();
    if (isValid)
        Tell(findings);
}

} // namespace Orbel
