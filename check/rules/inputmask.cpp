#include "inputmask.h"

namespace Orbel
{

namespace
{

/// Whether a place of the mask takes a character; `isInput` tells whether it is such a place at all.
bool Takes(QChar place, QChar letter, bool *isInput)
{
    const char kind = place.toLower().toLatin1();
    *isInput = true;
    switch (kind) {
    case 'a':
        return letter.isLetter();
    case 'n':
        return letter.isLetterOrNumber();
    case 'x':
        return letter.isPrint();
    case '9':
    case '0':
        return letter.isNumber();
    case 'd':
        return letter.isNumber() && letter != QLatin1Char('0');
    case '#':
        return letter.isNumber() || letter == QLatin1Char('+') || letter == QLatin1Char('-');
    case 'h':
        return QStringLiteral("0123456789abcdef").contains(letter.toLower());
    case 'b':
        return letter == QLatin1Char('0') || letter == QLatin1Char('1');
    default:
        *isInput = false;
        return false;
    }
}

} // namespace

bool FitsInputMask(const QString &text, const QString &mask)
{
    const int blank = mask.lastIndexOf(QLatin1Char(';'));
    const QString places = blank >= 0 ? mask.left(blank) : mask;
    if (places.isEmpty())
        return true;
    int at = 0;
    for (int i = 0; i < places.size() && at < text.size(); ++i) {
        bool isInput = false;
        const bool isEscaped = places.at(i) == QLatin1Char('\\') && i + 1 < places.size();
        if (isEscaped)
            ++i;
        else if (QStringLiteral("<>!").contains(places.at(i)))
            continue;
        if (!isEscaped && Takes(places.at(i), text.at(at), &isInput)) {
            ++at;
        } else if (isEscaped || !isInput) {
            at += text.at(at) == places.at(i) ? 1 : 0;
        } else if (text.at(at) == QLatin1Char(' ')) {
            ++at;
        } else {
            // Places may stay empty before the character that parts them from the next.
            const int next = places.indexOf(text.at(at), i);
            bool isPlace = false;
            Takes(text.at(at), QLatin1Char('0'), &isPlace);
            if (next < 0 || isPlace)
                return false;
            i = next;
            ++at;
        }
    }
    return at == text.size();
}

} // namespace Orbel
