#include "inputmask.h"

#include <QVector>

namespace Orbel
{

namespace
{

/// One character of a line edit with a mask.
struct MaskPlace {
    QChar Mark;
    bool IsFixed; ///< The mask itself puts its mark there.
};

bool IsMaskMark(QChar letter)
{
    return QStringLiteral("AaNnXx90Dd#HhBb").contains(letter);
}

QVector<MaskPlace> PlacesOfMask(const QString &marks)
{
    QVector<MaskPlace> places;
    bool isEscaped = false;
    for (const QChar mark : marks) {
        const bool isEscape = mark == QLatin1Char('\\') && !isEscaped;
        if (isEscaped || !(isEscape || QStringLiteral("<>!{}[]").contains(mark)))
            places.append({mark, isEscaped || !IsMaskMark(mark)});
        isEscaped = isEscape;
    }
    return places;
}

bool Takes(const MaskPlace &place, QChar letter, QChar blank)
{
    if (place.IsFixed)
        return false;
    // The other marks want a character, and these may stay empty.
    if (letter == blank && QStringLiteral("anx0d#hb").contains(place.Mark))
        return true;
    switch (place.Mark.toLower().toLatin1()) {
    case 'a':
        return letter.isLetter();
    case 'n':
        return letter.isLetterOrNumber();
    case 'x':
        return letter.isPrint() && letter != blank;
    case '9':
    case '0':
        return letter.isNumber();
    case 'd':
        return letter.isNumber() && letter.digitValue() > 0;
    case '#':
        return letter.isNumber() || letter == QLatin1Char('+') || letter == QLatin1Char('-');
    case 'h':
        return QStringLiteral("0123456789abcdef").contains(letter.toLower());
    default:
        return letter == QLatin1Char('0') || letter == QLatin1Char('1');
    }
}

/// Where a character goes that the place at `from` does not take: to the next fixed one like it, or else to the next
/// place that takes it. -1 when it is lost.
int NextPlace(const QVector<MaskPlace> &places, int from, QChar letter, QChar blank)
{
    for (int i = from; i < places.size(); ++i) {
        if (places.at(i).IsFixed && places.at(i).Mark == letter)
            return i;
    }
    for (int i = from; i < places.size(); ++i) {
        if (Takes(places.at(i), letter, blank))
            return i;
    }
    return -1;
}

} // namespace

bool FitsInputMask(const QString &text, const QString &mask)
{
    const QVector<MaskPlace> places = PlacesOfMask(mask.section(QLatin1Char(';'), 0, 0));
    const QString behind = mask.section(QLatin1Char(';'), 1);
    const QChar blank = behind.isEmpty() ? QLatin1Char(' ') : behind.at(0);
    if (places.isEmpty())
        return true;
    int at = 0;
    int place = 0;
    while (at < text.size() && place < places.size()) {
        const QChar letter = text.at(at);
        if (places.at(place).IsFixed) {
            at += letter == places.at(place++).Mark ? 1 : 0;
            continue;
        }
        const int next = Takes(places.at(place), letter, blank) ? place : NextPlace(places, place, letter, blank);
        if (next < 0 && letter != QLatin1Char(' ') && letter != blank)
            return false;
        place = next < 0 ? place : next + 1;
        ++at;
    }
    return at == text.size();
}

} // namespace Orbel
