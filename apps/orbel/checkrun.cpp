#include "checkrun.h"

#include "checkjson.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <cstdio>

namespace Orbel
{

namespace
{

/// Milliseconds that a script has.
constexpr int RunTime = 2000;
/// Milliseconds beyond that, in which the process stops a script by itself.
constexpr int StopTime = 2000;
/// Milliseconds for all else: what the largest form on a machine under load needs, and no hang.
constexpr int BuildTime = 120000;

/// Lines in front of the findings: a script begins, and has ended.
const char Begins[] = "+\n";
const char Ends[] = "-\n";

Finding Fault(const char *code, const char *text)
{
    return {1, 1, Severity::Error, QLatin1String(code), QLatin1String(text)};
}

/// Whether the process ended by itself in time. Gives what it printed behind the lines about scripts.
bool WaitFor(QProcess &process, QByteArray &output)
{
    QElapsedTimer clock;
    clock.start();
    bool isRunning = false;
    while (process.state() != QProcess::NotRunning) {
        const qint64 left = (isRunning ? RunTime + StopTime : BuildTime) - clock.elapsed();
        if (left <= 0)
            return false;
        process.waitForReadyRead(int(left));
        output += process.readAllStandardOutput();
        while (output.startsWith(Begins) || output.startsWith(Ends)) {
            isRunning = output.startsWith(Begins);
            output.remove(0, int(qstrlen(Begins)));
            clock.restart();
        }
    }
    return true;
}

void TellWatcher(bool isRunning)
{
    std::fputs(isRunning ? Begins : Ends, stdout);
    std::fflush(stdout);
}

} // namespace

QString WordOf(DocumentKind kind)
{
    return kind == DocumentKind::List    ? QStringLiteral("list")
        : kind == DocumentKind::Template ? QStringLiteral("template")
                                         : QStringLiteral("definition");
}

DocumentKind KindOf(const QString &word)
{
    for (const DocumentKind kind : {DocumentKind::List, DocumentKind::Template}) {
        if (word == WordOf(kind))
            return kind;
    }
    return DocumentKind::Definition;
}

Findings RunForms(DocumentKind kind)
{
    const QByteArray document = ReadFile(QStringLiteral("-"));
    const auto run = kind == DocumentKind::List ? Check::RunComponentList
        : kind == DocumentKind::Template        ? Check::RunTemplate
                                                : Check::RunDefinition;
    return run(document, RunTime, TellWatcher);
}

Findings RunInProcess(const InputFile &input)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(),
        {QStringLiteral("check"), QStringLiteral("--run-here"), WordOf(input.Kind)});
    // What can be read once only has been read already.
    process.write(input.Bytes);
    process.closeWriteChannel();
    QByteArray output;
    if (!process.waitForStarted() || !WaitFor(process, output)) {
        process.kill();
        process.waitForFinished();
        return {Fault("script-endless", "The script did not end, and could not be stopped")};
    }
    bool isValid = false;
    const Findings findings = FindingsFromJson(output, &isValid);
    if (isValid)
        return findings;
    return {Fault("script-exception", "The run ended by a fault before it could tell anything")};
}

} // namespace Orbel
