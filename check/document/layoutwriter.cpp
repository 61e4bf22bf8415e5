#include "layoutwriter.h"

#include "elementnames.h"

#include <algorithm>

namespace Orbel
{

namespace
{

namespace element = KV218::element;

constexpr int BlanksOfLevel = 2;

bool IsAny(const QString &name, std::initializer_list<QLatin1String> names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

LayoutWriter::LayoutWriter(const QString &definition, const QSet<int> &outer) : Source(definition), Outer(outer)
{
    const int lineFeed = Source.indexOf(QLatin1Char('\n'));
    const bool hasReturn = lineFeed > 0 && Source.at(lineFeed - 1) == QLatin1Char('\r');
    LineEnd = hasReturn ? QStringLiteral("\r\n") : QStringLiteral("\n");
}

QString LayoutWriter::Write()
{
    const QVector<XmlToken> tokens = ScanXml(Source);
    const auto isText = [&](int at) {
        return at < tokens.size() && (tokens.at(at).What == XmlToken::Text || tokens.at(at).What == XmlToken::Section);
    };
    for (int i = 0; i < tokens.size(); ++i) {
        if (!isText(i)) {
            WriteToken(tokens.at(i));
            continue;
        }
        const int from = tokens.at(i).From;
        while (isText(i + 1))
            ++i;
        WriteText(from, tokens.at(i).To);
    }
    return Written + LineEnd;
}

/// What the library skips, and the texts that it reads, are nobody's to lay out.
LayoutWriter::Style LayoutWriter::StyleOf(const QString &name, int element) const
{
    if (Outer.contains(element))
        return Lines;
    if (Surrounding() != Lines)
        return AsIs;
    if (IsAny(name, {element::Property, element::EnumValue}))
        return OneLine;
    return IsAny(name,
               {element::Form, element::Enums, element::Enum, element::Sheet, element::Properties,
                   element::CustomProperties, element::Widget, element::Repeat})
        ? Lines
        : AsIs;
}

void LayoutWriter::WriteToken(const XmlToken &token)
{
    if (token.What == XmlToken::EndTag) {
        WriteEnd(token);
    } else if (token.What == XmlToken::StartTag || token.What == XmlToken::EmptyTag) {
        WriteTag(token);
    } else {
        BeginItem(token.What != XmlToken::Doctype);
        Written += Raw(token);
    }
    LineFeeds = 0;
}

/// Text and sections that follow each other are one text to a reader.
void LayoutWriter::WriteText(int from, int to)
{
    if (Surrounding() != AsIs) {
        LineFeeds = 0;
        while (from < to && IsXmlBlank(Source.at(from)))
            LineFeeds += Source.at(from++) == QLatin1Char('\n') ? 1 : 0;
        int feedsBehind = 0;
        while (from < to && IsXmlBlank(Source.at(to - 1)))
            feedsBehind += Source.at(--to) == QLatin1Char('\n') ? 1 : 0;
        if (from == to)
            return;
        BeginItem(false);
        LineFeeds = feedsBehind;
    }
    if (!Opened.isEmpty())
        Opened.last().IsEmpty = false;
    Written += Source.midRef(from, to - from);
}

void LayoutWriter::WriteTag(const XmlToken &token)
{
    const bool isAsIs = Surrounding() == AsIs;
    const Style children = StyleOf(NameOfTag(Raw(token)), Elements++);
    BeginItem(false);
    if (isAsIs)
        Written += Raw(token);
    else
        Written += TagText(Raw(token));
    if (token.What == XmlToken::StartTag)
        Opened.append({children, true});
}

void LayoutWriter::WriteEnd(const XmlToken &token)
{
    const Open ended = Opened.takeLast();
    if (Surrounding() == AsIs) {
        Written += Raw(token);
        return;
    }
    if (ended.IsEmpty) {
        Written.insert(Written.size() - 1, QLatin1Char('/'));
        return;
    }
    if (ended.Children == Lines)
        Written += LineEnd + QString(BlanksOfLevel * Opened.size(), QLatin1Char(' '));
    Written += Raw(token).chopped(1).trimmed().toString() + QLatin1Char('>');
}

/// Goes to the line of the next piece. What may trail stays behind what stands in its line.
void LayoutWriter::BeginItem(bool mayTrail)
{
    const bool isFirst = Opened.isEmpty() ? Written.isEmpty() : Opened.constLast().IsEmpty;
    if (!Opened.isEmpty())
        Opened.last().IsEmpty = false;
    if (Surrounding() != Lines || Written.isEmpty())
        return;
    if (mayTrail && LineFeeds == 0) {
        Written += QLatin1Char(' ');
        return;
    }
    if (LineFeeds > 1 && !isFirst)
        Written += LineEnd;
    Written += LineEnd + QString(BlanksOfLevel * Opened.size(), QLatin1Char(' '));
}

/// One blank between attributes, and double quotes where the value has none.
QString LayoutWriter::TagText(QStringRef tag) const
{
    const bool isEmpty = tag.endsWith(QLatin1String("/>"));
    tag = tag.left(tag.size() - (isEmpty ? 2 : 1));
    QString text;
    for (int at = 0; at < tag.size();) {
        const QChar character = tag.at(at);
        if (IsXmlBlank(character)) {
            ++at;
        } else if (character == QLatin1Char('"') || character == QLatin1Char('\'')) {
            const int end = tag.indexOf(character, at + 1);
            const QStringRef value = tag.mid(at + 1, end - at - 1);
            const QChar quote = value.contains(QLatin1Char('"')) ? QChar(QLatin1Char('\'')) : QChar(QLatin1Char('"'));
            text += quote + value.toString() + quote;
            at = end + 1;
        } else {
            const int start = at;
            while (at < tag.size() && !IsXmlBlank(tag.at(at)) && tag.at(at) != QLatin1Char('\'')
                && tag.at(at) != QLatin1Char('"'))
                ++at;
            const QStringRef word = tag.mid(start, at - start);
            const bool isGlued = text.isEmpty() || word.startsWith(QLatin1Char('=')) || text.endsWith(QLatin1Char('='));
            text += (isGlued ? QString() : QStringLiteral(" ")) + word;
        }
    }
    return text + QLatin1String(isEmpty ? "/>" : ">");
}

} // namespace Orbel
