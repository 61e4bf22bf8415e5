#include "placedtext.h"

namespace Orbel
{

namespace
{

struct Entity {
    const char *name;
    char16_t character;
};

constexpr Entity Entities[] = {{"amp", u'&'}, {"lt", u'<'}, {"gt", u'>'}, {"quot", u'"'}, {"apos", u'\''}};

/// The character that a reference names, without its & and ;. Null for an entity of the document's own.
QString Resolved(const QStringRef &name)
{
    if (name.startsWith(QLatin1Char('#'))) {
        const bool hexadecimal = name.length() > 1 && name.at(1) == QLatin1Char('x');
        const uint code = name.mid(hexadecimal ? 2 : 1).toUInt(nullptr, hexadecimal ? 16 : 10);
        return QString::fromUcs4(&code, 1);
    }
    for (const Entity &entity : Entities) {
        if (name == QLatin1String(entity.name))
            return QString(QChar(entity.character));
    }
    return QString();
}

class Decoder
{
public:
    Decoder(const PlacedText &source, int from, int to, bool isAttribute)
        : Source(source), Text(source.Text()), At(from), End(to), IsAttribute(isAttribute)
    {
        Decoded.Reserve(qMax(0, to - from));
    }

    PlacedText Run()
    {
        while (At < End)
            Step();
        Decoded.Close(Source.OffsetOf(End));
        return Decoded;
    }

private:
    bool StandsHere(const char *mark) const
    {
        const QLatin1String text(mark);
        return Text.at(At) == text.at(0) && At + text.size() <= End && Text.midRef(At, text.size()) == text;
    }

    void Step()
    {
        if (StandsHere("<![CDATA["))
            CopySection();
        else if (StandsHere("<!--"))
            SkipBehind("-->");
        else if (StandsHere("<?"))
            SkipBehind("?>");
        else if (Text.at(At) == QLatin1Char('&'))
            Reference();
        else
            Copy();
    }

    /// One character; a line end counts as one line feed, and in an attribute as a blank.
    void Copy()
    {
        QChar character = Text.at(At);
        const int place = Source.OffsetOf(At++);
        if (character == QLatin1Char('\r')) {
            if (At < End && Text.at(At) == QLatin1Char('\n'))
                ++At;
            character = QLatin1Char('\n');
        }
        const bool isBlank = character == QLatin1Char('\n') || character == QLatin1Char('\t');
        Decoded.Append(IsAttribute && isBlank ? QChar(QLatin1Char(' ')) : character, place);
    }

    void CopySection()
    {
        At += int(qstrlen("<![CDATA["));
        while (At < End && !StandsHere("]]>"))
            Copy();
        At = qMin(End, At + 3);
    }

    void SkipBehind(const char *mark)
    {
        const int found = Text.indexOf(QLatin1String(mark), At);
        At = found < 0 ? End : qMin(End, found + int(qstrlen(mark)));
    }

    void Reference()
    {
        const int semicolon = Text.indexOf(QLatin1Char(';'), At);
        const QString character
            = semicolon < 0 || semicolon >= End ? QString() : Resolved(Text.midRef(At + 1, semicolon - At - 1));
        if (character.isEmpty()) {
            Copy();
            return;
        }
        for (const QChar part : character)
            Decoded.Append(part, Source.OffsetOf(At));
        At = semicolon + 1;
    }

    const PlacedText &Source;
    const QString &Text;
    int At;
    int End;
    bool IsAttribute;
    PlacedText Decoded;
};

} // namespace

PlacedText PlacedText::AllAt(const QString &text, int offset)
{
    PlacedText placed;
    placed.Characters = text;
    placed.Offsets.fill(offset, text.size() + 1);
    return placed;
}

int PlacedText::OffsetOf(int index) const
{
    if (Offsets.isEmpty())
        return qMin(index, Characters.size());
    return Offsets.at(qMin(index, Offsets.size() - 1));
}

void PlacedText::Reserve(int characters)
{
    Characters.reserve(characters);
    Offsets.reserve(characters + 1);
}

void PlacedText::Append(QChar character, int offset)
{
    Characters.append(character);
    Offsets.append(offset);
}

void PlacedText::Close(int offset)
{
    Offsets.append(offset);
}

PlacedText DecodeContent(const PlacedText &source, int from, int to)
{
    return Decoder(source, from, to, false).Run();
}

PlacedText DecodeAttribute(const PlacedText &source, int from, int to)
{
    return Decoder(source, from, to, true).Run();
}

} // namespace Orbel
