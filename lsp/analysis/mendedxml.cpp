#include "mendedxml.h"

#include "elementnames.h"
#include "elementtable.h"
#include "xmlname.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>

namespace Orbel
{

namespace
{

class Mender
{
public:
    explicit Mender(const PlacedText &source) : Source(source), Text(source.Text()) { }

    PlacedText Run()
    {
        while (At < Text.size())
            Step();
        CloseDownTo(0);
        Mended.Close(Source.OffsetOf(Text.size()));
        return Mended;
    }

private:
    bool StandsHere(const char *mark) const
    {
        const QLatin1String text(mark);
        return Text.midRef(At, text.size()) == text;
    }

    void Step()
    {
        if (StandsHere("<!--"))
            SkipBehind("-->");
        else if (StandsHere("<![CDATA["))
            Section();
        else if (IsInScript() && !StandsHere("</Script"))
            Character();
        else if (StandsHere("<!") || StandsHere("<?"))
            SkipBehind(">");
        else if (StandsHere("</"))
            EndTag();
        else if (StandsHere("<") && At + 1 < Text.size() && (Text.at(At + 1).isLetter() || StandsHere("<_")))
            StartTag();
        else
            Character();
    }

    /// There a < compares.
    bool IsInScript() const { return !Open.isEmpty() && Open.constLast() == KV218::element::Script; }

    void SkipBehind(const char *mark)
    {
        const int found = Text.indexOf(QLatin1String(mark), At);
        At = found < 0 ? Text.size() : found + int(qstrlen(mark));
    }

    void Emit(const QString &text)
    {
        for (const QChar character : text)
            Mended.Append(character, Source.OffsetOf(At));
    }

    /// One character of a text or of an attribute's value.
    void Character()
    {
        // Outside of the form nothing may stand.
        if (Open.isEmpty()) {
            ++At;
            return;
        }
        const QChar character = Text.at(At);
        if (character == QLatin1Char('<'))
            Emit(QStringLiteral("&lt;"));
        else if (character == QLatin1Char('&') && !IsReference())
            Emit(QStringLiteral("&amp;"));
        else
            Emit(IsAllowed() ? character : QLatin1Char(' '));
        ++At;
    }

    bool IsReference() const
    {
        static const QRegularExpression reference(
            QStringLiteral("\\G&(?:amp|lt|gt|quot|apos|#(\\d{1,7})|#x([0-9a-fA-F]{1,6}));"));
        const QRegularExpressionMatch match = reference.match(Text, At);
        if (!match.hasMatch() || match.lastCapturedIndex() == 0)
            return match.hasMatch();
        const uint code
            = match.captured(2).isEmpty() ? match.captured(1).toUInt() : match.captured(2).toUInt(nullptr, 16);
        return code == '\t' || code == '\n' || code == '\r' || (code >= 0x20 && code < 0xd800)
            || (code >= 0xe000 && code < 0xfffe) || (code > 0xffff && code <= 0x10ffff);
    }

    /// Whether a document may hold the character here.
    bool IsAllowed() const
    {
        const QChar character = Text.at(At);
        if (character.isHighSurrogate())
            return At + 1 < Text.size() && Text.at(At + 1).isLowSurrogate();
        if (character.isLowSurrogate())
            return At > 0 && Text.at(At - 1).isHighSurrogate();
        const ushort code = character.unicode();
        return code >= 0x20 ? code < 0xfffe : character.isSpace() && code != 0x0b && code != 0x0c;
    }

    void Section()
    {
        const int from = At + int(qstrlen("<![CDATA["));
        const int end = Text.indexOf(QLatin1String("]]>"), from);
        // A section that is not closed ends in front of the end tag of what it stands in.
        const int tag = Open.isEmpty() ? -1 : Text.lastIndexOf(QLatin1String("</") + Open.constLast());
        const int to = end >= 0 ? end : tag >= from ? tag : Text.size();
        for (At = from; At < to; ++At) {
            if (!Open.isEmpty())
                Emit(Escaped());
        }
        if (end >= 0)
            At = end + 3;
    }

    /// The character of a section, as it is written outside of one.
    QString Escaped() const
    {
        const QChar character = Text.at(At);
        if (character == QLatin1Char('<'))
            return QStringLiteral("&lt;");
        if (character == QLatin1Char('&'))
            return QStringLiteral("&amp;");
        return character == QLatin1Char('>') ? QStringLiteral("&gt;")
                                             : QString(IsAllowed() ? character : QChar(QLatin1Char(' ')));
    }

    QString TakeName()
    {
        const int from = At;
        while (At < Text.size() && IsXmlNamePart(Text.at(At)))
            ++At;
        return Text.mid(from, At - from);
    }

    void SkipBlanks()
    {
        while (At < Text.size() && Text.at(At).isSpace())
            ++At;
    }

    void EndTag()
    {
        const int from = At;
        At += 2;
        const int depth = Open.lastIndexOf(TakeName());
        // The outermost element goes on to the end, since a document has only one.
        const int place = At;
        At = from;
        if (depth > 0)
            CloseDownTo(depth);
        At = place;
        SkipBlanks();
        if (At < Text.size() && Text.at(At) == QLatin1Char('>'))
            ++At;
    }

    void CloseDownTo(int depth)
    {
        while (Open.size() > depth)
            Emit(QLatin1String("</") + Open.takeLast() + QLatin1Char('>'));
    }

    /// An element that cannot stand where the author is typing belongs to what is around that.
    void LeaveFor(const QString &name)
    {
        const ElementInfo *info = FindElement(name);
        if (!info)
            return;
        for (int i = Open.size() - 1; i >= 0; --i) {
            const QString &open = Open.at(i);
            if (std::any_of(info->parents.cbegin(), info->parents.cend(), [&](auto parent) { return parent == open; }))
                return CloseDownTo(i + 1);
        }
    }

    void StartTag()
    {
        const int from = At++;
        const QString name = TakeName();
        if (!IsXmlName(name)) {
            At = from + 1;
            return;
        }
        const int behind = At;
        At = from;
        LeaveFor(name);
        for (; At < behind; ++At)
            Emit(QString(Text.at(At)));
        Open.append(name);
        Attributes();
        const bool isClosed = StandsHere("/");
        if (isClosed)
            ++At;
        Emit(QStringLiteral(">"));
        if (StandsHere(">"))
            ++At;
        if (isClosed && Open.size() > 1)
            CloseDownTo(Open.size() - 1);
    }

    void Attributes()
    {
        QSet<QString> names;
        while (At < Text.size() && !StandsHere(">") && !StandsHere("<") && !StandsHere("/>")) {
            SkipBlanks();
            const int from = At;
            const QString name = TakeName();
            if (name.isEmpty()) {
                if (At < Text.size() && !StandsHere(">") && !StandsHere("<") && !StandsHere("/>"))
                    ++At;
                continue;
            }
            const bool isGood = IsXmlName(name) && !names.contains(name);
            names.insert(name);
            Attribute(from, name, isGood);
        }
    }

    void Attribute(int from, const QString &name, bool isGood)
    {
        SkipBlanks();
        if (!StandsHere("="))
            return;
        ++At;
        SkipBlanks();
        if (!StandsHere("\"") && !StandsHere("'"))
            return;
        const int to = EndOfValue();
        const QChar quote = Text.at(At);
        const int value = At + 1;
        if (isGood) {
            At = from;
            Emit(QStringLiteral(" "));
            for (; At < from + name.size(); ++At)
                Emit(QString(Text.at(At)));
            Emit(QLatin1Char('=') + QString(quote));
            for (At = value; At < to;)
                Character();
            Emit(QString(quote));
        }
        At = qMin(Text.size(), to < Text.size() && Text.at(to) == quote ? to + 1 : to);
    }

    /// A value that is not closed ends with its line or its tag.
    int EndOfValue() const
    {
        const QChar quote = Text.at(At);
        int cut = Text.size();
        for (int i = At + 1; i < Text.size() && Text.at(i) != QLatin1Char('<'); ++i) {
            if (Text.at(i) == quote)
                return i;
            if (cut == Text.size() && (Text.at(i) == QLatin1Char('\n') || Text.at(i) == QLatin1Char('>')))
                cut = i;
        }
        const int tag = Text.indexOf(QLatin1Char('<'), At);
        return tag < 0 ? cut : qMin(cut, tag);
    }

    const PlacedText &Source;
    const QString &Text;
    int At = 0;
    QStringList Open;
    PlacedText Mended;
};

} // namespace

bool IsXmlNamePart(QChar character)
{
    return character.isLetterOrNumber() || QStringLiteral("_-.:").contains(character);
}

PlacedText MendXml(const PlacedText &source)
{
    return Mender(source).Run();
}

} // namespace Orbel
