#include "scriptsourcemap.h"

#include <algorithm>

namespace Orbel
{

ScriptSourceMap::ScriptSourceMap(const Document &form, int script)
{
    if (script >= 0)
        Resolve(form.ContentOf(script));
    LineStarts.append(0);
    for (int i = 0; i < Code().size(); ++i) {
        const QChar character = Code().at(i);
        if (character == QLatin1Char('\n') || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator)
            LineStarts.append(i + 1);
    }
}

/// All kinds of line ends become line feeds, so that engine and checks count lines alike.
void ScriptSourceMap::Resolve(const PlacedText &text)
{
    const QString &code = text.Text();
    const auto standsAt = [&](int index, QLatin1String mark) {
        return code.at(index) == mark.at(0) && code.midRef(index, mark.size()) == mark;
    };
    Placed.Reserve(code.size());
    bool afterReturn = false;
    for (int i = 0; i < code.size();) {
        const bool isReturnMark = standsAt(i, QLatin1String("{{CR}}"));
        const bool isMark = isReturnMark || standsAt(i, QLatin1String("{{LF}}"));
        const bool isReturn = isReturnMark || code.at(i) == QLatin1Char('\r');
        const QChar character = isMark || isReturn ? QChar(QLatin1Char('\n')) : code.at(i);
        if (!(afterReturn && !isReturn && character == QLatin1Char('\n')))
            Placed.Append(character, text.OffsetOf(i));
        afterReturn = isReturn;
        i += isMark ? int(qstrlen("{{LF}}")) : 1;
    }
    Placed.Close(text.OffsetOf(code.size()));
}

int ScriptSourceMap::IndexOf(int line, int column) const
{
    const int start = LineStarts.at(qBound(0, line - 1, LineStarts.size() - 1));
    if (column > 0)
        return qMin(start + column - 1, Code().size());
    int index = start;
    while (index < Code().size() && Code().at(index) != QLatin1Char('\n') && Code().at(index).isSpace())
        ++index;
    return index;
}

int ScriptSourceMap::LineOf(int index) const
{
    return int(std::upper_bound(LineStarts.cbegin(), LineStarts.cend(), index) - LineStarts.cbegin());
}

} // namespace Orbel
