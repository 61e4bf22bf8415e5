#include "scriptbuiltins.h"

#include <QRegularExpression>

namespace Orbel
{

namespace
{

QSet<QString> Words(const char *text)
{
    const QStringList words = QString::fromLatin1(text).split(QLatin1Char(' '));
    return QSet<QString>(words.cbegin(), words.cend());
}

} // namespace

const QSet<QString> &ScriptBuiltins()
{
    static const QSet<QString> names = Words(
        "Math NaN undefined Infinity JSON Object Function Array Boolean String Number Date RegExp Error EvalError "
        "RangeError ReferenceError SyntaxError TypeError URIError eval parseInt parseFloat isNaN isFinite escape "
        "unescape "
        "decodeURI decodeURIComponent encodeURI encodeURIComponent print gc version arguments");
    return names;
}

const QSet<QString> &ReservedWords()
{
    static const QSet<QString> words = Words(
        "break case catch class const continue debugger default delete do else enum export extends false finally for "
        "function if import in instanceof new null return super switch this throw true try typeof var void while with");
    return words;
}

bool IsScriptName(const QString &text)
{
    static const QRegularExpression name(QStringLiteral("\\A[\\p{L}_$][\\p{L}\\p{N}_$]*\\z"));
    return name.match(text).hasMatch() && !ReservedWords().contains(text);
}

} // namespace Orbel
