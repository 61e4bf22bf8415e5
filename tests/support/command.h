#pragma once

#include <QProcess>

/// What a program that has ended left: its status, -1 when it broke off or could not be started, and its output.
struct Result {
    int Status = -1;
    QString Out;
    QString Err;
};

inline Result Run(const QString &program, const QStringList &arguments,
    const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(),
        (ended ? QString() : process.errorString()) + process.readAllStandardError()};
}
