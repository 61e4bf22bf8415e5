#include "checkrun.h"

#include "checkjson.h"
#include "inputfile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <cstdio>

namespace
{

/// Milliseconds that a script has.
constexpr int RunTime = 2000;
/// Milliseconds beyond that which the process has to build forms and to tell its findings; what a machine under load
/// needs, and no form.
constexpr int StartTime = 20000;
constexpr int EndTime = 1000;

/// Printed before each form, so that its time counts from there.
const char Mark[] = "run\n";

Orbel::Finding Fault(const char *code, const char *text)
{
    return {1, 1, Orbel::Severity::Error, QLatin1String(code), QLatin1String(text)};
}

/// Whether the process ended by itself in time.
bool WaitFor(QProcess &process, QByteArray &output)
{
    QElapsedTimer clock;
    clock.start();
    bool isRunning = false;
    while (process.state() != QProcess::NotRunning) {
        const qint64 left = (isRunning ? RunTime + EndTime : StartTime) - clock.elapsed();
        if (left <= 0)
            return false;
        process.waitForReadyRead(int(left));
        output += process.readAllStandardOutput();
        if (!isRunning && output.startsWith(Mark)) {
            isRunning = true;
            clock.restart();
        }
    }
    output += process.readAllStandardOutput();
    return true;
}

} // namespace

bool IsComponentList(const QString &path)
{
    return !path.endsWith(QLatin1String(".orbel"));
}

Orbel::Findings RunForms(const QString &path)
{
    const QByteArray document = ReadFile(path);
    std::fputs(Mark, stdout);
    std::fflush(stdout);
    return IsComponentList(path) ? Orbel::Check::RunComponentList(document, RunTime)
                                 : Orbel::Check::RunDefinition(document, RunTime);
}

Orbel::Findings RunInProcess(const QString &path)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(),
        {QStringLiteral("check"), QStringLiteral("--run-here"), QStringLiteral("--"), path}, QIODevice::ReadOnly);
    QByteArray output;
    if (!process.waitForStarted() || !WaitFor(process, output)) {
        process.kill();
        process.waitForFinished();
        return {Fault("script-endless", "The script did not end, and could not be stopped")};
    }
    bool isValid = false;
    const Orbel::Findings findings = FindingsFromJson(output.mid(int(qstrlen(Mark))), &isValid);
    if (isValid)
        return findings;
    return {Fault("script-exception", "The run ended by a fault before it could tell anything")};
}
