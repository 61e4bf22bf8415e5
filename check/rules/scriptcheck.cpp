// The grammar of a form's script.

#include "formcheck.h"
#include "scriptscanner.h"
#include "scriptsourcemap.h"

#include <QScriptEngine>

namespace Orbel
{

namespace
{

/// The line in which the engine refuses the code; 0 when it takes it. Nothing of the code runs.
int RefusedLine(const QString &code)
{
    // The engine's own check of the syntax tells more, but writes beyond its stack where brackets stand deep.
    QScriptEngine engine;
    const QScriptValue thrown = engine.evaluate(QLatin1String("throw 0;") + code);
    return thrown.isError() ? engine.uncaughtExceptionLineNumber() : 0;
}

/// Whether two tokens without a blank between them may be one operator or one number.
bool MayBeOne(const QString &code, const ScriptToken &before, const ScriptToken &token)
{
    const QChar first = code.at(before.Index);
    const QChar second = code.at(token.Index);
    const bool isNumber = first.isDigit() || second.isDigit();
    if (!isNumber && (before.What != ScriptToken::Mark || token.What != ScriptToken::Mark))
        return false;
    const QString separators = isNumber ? QStringLiteral("()[]{},;") : QStringLiteral("()[]{},;.");
    return !separators.contains(first) && !separators.contains(second);
}

/// Where the tokens of a line begin, as far as it can be parted there.
QVector<int> PartsOfLine(const ScriptSourceMap &script, int line)
{
    QVector<int> parts;
    const QString &code = script.Code();
    const QVector<ScriptToken> tokens = ScanScript(code);
    for (int i = 0; i < tokens.size() && script.LineOf(tokens.at(i).Index) <= line; ++i) {
        const int at = tokens.at(i).Index;
        const bool isParted = i == 0 || code.at(at - 1).isSpace() || !MayBeOne(code, tokens.at(i - 1), tokens.at(i));
        if (isParted && script.LineOf(at) == line)
            parts.append(at);
    }
    return parts;
}

/// The index of what the engine refuses in a line. It counts lines alone, so each part is put into one of its own; by
/// comments, since they end no statement.
int RefusedIndex(const ScriptSourceMap &script, int line)
{
    const QVector<int> parts = PartsOfLine(script, line);
    QString code;
    int from = 0;
    for (const int part : parts) {
        code += script.Code().midRef(from, part - from) + QLatin1String("/*\n*/");
        from = part;
    }
    const int refused = RefusedLine(code + script.Code().midRef(from)) - line - 1;
    return refused >= 0 && refused < parts.size() ? parts.at(refused) : script.IndexOf(line);
}

/// What stands in front of the first letter of the line of an index.
QString MarginAt(const QString &code, int index)
{
    const int line = index == 0 ? 0 : code.lastIndexOf(QLatin1Char('\n'), index - 1) + 1;
    int end = line;
    while (end < code.size() && (code.at(end) == QLatin1Char(' ') || code.at(end) == QLatin1Char('\t')))
        ++end;
    return code.mid(line, end - line);
}

/// The first closing brace at the beginning of a line with another margin than the line of the one that it closes; -1
/// without any.
int MisplacedBrace(const QString &code)
{
    QVector<int> open;
    for (const ScriptToken &token : ScanScript(code)) {
        if (token.What != ScriptToken::Mark)
            continue;
        if (token.Text == QLatin1Char('{'))
            open.append(token.Index);
        if (token.Text != QLatin1Char('}'))
            continue;
        if (open.isEmpty())
            return token.Index;
        const QString margin = MarginAt(code, token.Index);
        const int line = token.Index == 0 ? 0 : code.lastIndexOf(QLatin1Char('\n'), token.Index - 1) + 1;
        const int opened = open.takeLast();
        if (line + margin.size() == token.Index && line > opened && margin != MarginAt(code, opened))
            return token.Index;
    }
    return -1;
}

} // namespace

bool IsScriptRefused(const QString &code)
{
    return RefusedLine(code) > 0;
}

void CheckScript(const FormModel &form, FindingSink &sink)
{
    const ScriptSourceMap &script = form.GetScriptSource();
    const int line = RefusedLine(script.Code());
    if (line == 0)
        return;
    const int size = script.Code().size();
    const bool isUnfinished = RefusedLine(script.Code() + QLatin1Char('\n')) > script.LineOf(size);
    const int index = isUnfinished ? size : RefusedIndex(script, line);
    sink.Add(Code::ScriptSyntax, script.PlaceOf(index),
        QStringLiteral("The script cannot be read from here on%1")
            .arg(isUnfinished ? QStringLiteral("; something that was opened is not closed") : QString()));
    const int brace = MisplacedBrace(script.Code());
    if (brace >= 0 && brace < index)
        sink.Add(Code::ScriptSyntax, script.PlaceOf(brace),
            QStringLiteral("This closes what was opened in a line of another margin"));
}

} // namespace Orbel
