// The grammar of a form's script.

#include "formcheck.h"
#include "scripttext.h"

#include <QScriptEngine>

namespace Orbel
{

namespace
{

/// The line in which the engine refuses the code; 0 when it takes it. Nothing of the code runs.
int RefusedLine(const QString &code)
{
    QScriptEngine engine;
    const QScriptValue thrown = engine.evaluate(QLatin1String("throw 0;") + code);
    return thrown.isError() ? engine.uncaughtExceptionLineNumber() : 0;
}

} // namespace

void CheckScript(const FormModel &form, FindingSink &sink)
{
    const ScriptText script(form);
    const int line = RefusedLine(script.Code());
    if (line == 0)
        return;
    // The engine alone knows what it takes; the other checker knows the column, where both agree.
    const QScriptSyntaxCheckResult result = QScriptEngine::checkSyntax(script.Code());
    const bool agree = result.state() == QScriptSyntaxCheckResult::Error && result.errorLineNumber() == line;
    const QString reason = agree ? result.errorMessage() : QString();
    const bool isUnfinished = result.state() == QScriptSyntaxCheckResult::Intermediate;
    const int index
        = isUnfinished ? script.Code().size() : script.IndexOf(line, agree ? result.errorColumnNumber() : 0);
    sink.Add(Code::ScriptSyntax, script.PlaceOf(index),
        QStringLiteral("The script cannot be read from here on%1")
            .arg(isUnfinished          ? QStringLiteral("; something that was opened is not closed")
                    : reason.isEmpty() ? QString()
                                       : QLatin1String("; ") + reason.toLower()));
}

} // namespace Orbel
