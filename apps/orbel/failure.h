#pragma once

#include <QString>

namespace Orbel
{

/// How the command ends.
enum ExitStatus {
    ekFine = 0,
    ekInputAtFault = 1, ///< An input is wrong, or a file cannot be read or written.
    ekWrongUsage = 2, ///< The command line is wrong, or names something that the input does not have.
};

/// Thrown to end a subcommand. The message is told on standard error.
struct Failure {
    ExitStatus Status;
    QString Message;
};

/// "FILE:LINE:COLUMN", whatever the name of the file is made of.
inline QString PlaceIn(const QString &file, int line, int column)
{
    return file + QLatin1Char(':') + QString::number(line) + QLatin1Char(':') + QString::number(column);
}

/// A failure that lies in a file.
inline Failure InputFailure(const QString &file, const QString &reason)
{
    return Failure{ekInputAtFault, file + QLatin1String(": ") + reason};
}

/// A failure that lies in the command line.
inline Failure UsageFailure(const QString &reason)
{
    return Failure{ekWrongUsage, reason};
}

} // namespace Orbel
