#include "messages.h"

#include "errorhandler.h"

#include <QLoggingCategory>

#include <cstdio>

namespace Orbel
{

namespace
{

void WriteLine(std::FILE *stream, const QByteArray &text)
{
    std::fwrite(text.constData(), 1, size_t(text.size()), stream);
    std::fputc('\n', stream);
    std::fflush(stream);
}

/// What Qt says of the machine and of its platforms without a display, and nobody who draws a form wants to know.
bool IsNoise(const QString &text)
{
    return text.startsWith(QLatin1String("QStandardPaths: "))
        || text.startsWith(QLatin1String("This plugin does not support "));
}

void HandleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    static const QLatin1String applied("sl_parametersModified:\n");
    if (qstrcmp(context.category, "orbel.viewer") == 0 && text.startsWith(applied))
        WriteDocument(text.mid(applied.size()));
    else if (type != QtWarningMsg || !IsNoise(text))
        WriteLine(stderr, text.trimmed().toLocal8Bit());
}

} // namespace

void RouteMessages()
{
    qInstallMessageHandler(HandleMessage);
    // Scripts print through debug messages, which some systems hold back.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=true"));
    ErrorHandler::Instance().SetTraceMask(ekTraceFailure);
}

void WriteDocument(const QString &xml)
{
    const QString document = xml.trimmed();
    if (!document.isEmpty())
        WriteLine(stdout, document.toUtf8());
}

void Complain(const QString &message)
{
    WriteLine(stderr, "orbel: " + message.toLocal8Bit());
}

QString QuotedNames(const QStringList &names)
{
    return QLatin1Char('"') + names.join(QLatin1String("\", \"")) + QLatin1Char('"');
}

} // namespace Orbel
