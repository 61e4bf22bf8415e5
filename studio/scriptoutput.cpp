#include "scriptoutput.h"

#include <cstdio>

namespace Orbel
{

ScriptOutput *ScriptOutput::Current = nullptr;

ScriptOutput::ScriptOutput()
{
    Current = this;
    Former = qInstallMessageHandler(&ScriptOutput::Hear);
}

ScriptOutput::~ScriptOutput()
{
    qInstallMessageHandler(Former);
    Current = nullptr;
}

void ScriptOutput::Hear(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!Current)
        return;
    if (Current->Former)
        Current->Former(type, context, text);
    else
        std::fputs(qPrintable(qFormatLogMessage(type, context, text) + QLatin1Char('\n')), stderr);
    const bool isPlain = !context.category || qstrcmp(context.category, "default") == 0;
    if (type == QtDebugMsg && isPlain)
        Q_EMIT Current->printed(text);
}

} // namespace Orbel
