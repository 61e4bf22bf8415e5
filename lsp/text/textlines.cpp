#include "textlines.h"

#include <algorithm>

namespace Orbel
{

TextLines::TextLines(const QString &text)
{
    Starts.append(0);
    for (int i = 0; i < text.size(); ++i) {
        const bool isReturn = text.at(i) == QLatin1Char('\r');
        if (!isReturn && text.at(i) != QLatin1Char('\n'))
            continue;
        Ends.append(i);
        if (isReturn && i + 1 < text.size() && text.at(i + 1) == QLatin1Char('\n'))
            ++i;
        Starts.append(i + 1);
    }
    Ends.append(text.size());
}

int TextLines::IndexOf(TextPosition position) const
{
    if (position.Line < 0)
        return 0;
    if (position.Line >= Starts.size())
        return Ends.constLast();
    const int length = Ends.at(position.Line) - Starts.at(position.Line);
    return Starts.at(position.Line) + qBound(0, position.Character, length);
}

TextPosition TextLines::PositionOf(int index) const
{
    const int within = qBound(0, index, Ends.constLast());
    const int line = int(std::upper_bound(Starts.cbegin(), Starts.cend(), within) - Starts.cbegin()) - 1;
    return {line, qMin(within, Ends.at(line)) - Starts.at(line)};
}

} // namespace Orbel
