#include "trace.h"

#include <QFileInfo>

// NOLINTNEXTLINE(bugprone-reserved-identifier)
void _Q_Trace(const QString &text, const QString &file, unsigned short line)
{
    const QString place = QStringLiteral(" (%1:%2)").arg(QFileInfo(file).fileName()).arg(line);
    ErrorHandler::Instance().WriteLine(text.trimmed().replace(QLatin1Char('\n'), QLatin1Char(' ')) + place);
}

void TraceFailure(const QString &text, const char *file, int line)
{
    if (ErrorHandler::Instance().GetTraceMask() & ekTraceFailure)
        _Q_Trace(text, QString::fromLocal8Bit(file), static_cast<unsigned short>(line));
}
