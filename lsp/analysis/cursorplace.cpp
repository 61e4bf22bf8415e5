#include "cursorplace.h"

#include "elementnames.h"
#include "elementtable.h"
#include "mendedxml.h"
#include "placedtext.h"

#include <algorithm>

namespace Orbel
{

namespace
{

bool MayHold(const ElementInfo &child, const QString &parent)
{
    return std::any_of(
        child.parents.cbegin(), child.parents.cend(), [&](QLatin1String name) { return name == parent; });
}

} // namespace

CursorPlace::CursorPlace(const QString &text, int cursor) : Text(text), End(qBound(0, cursor, text.size()))
{
    while (!AtEnd())
        Step();
    if (Where == Content && NameAround() == KV218::element::Script)
        Settle(Script, Open.constLast().Content);
}

QString CursorPlace::NameAround(int steps) const
{
    return steps < Open.size() ? Open.at(Open.size() - 1 - steps).Name : QString();
}

const CursorPlace::OpenElement *CursorPlace::Innermost(const QString &name) const
{
    const auto found
        = std::find_if(Open.crbegin(), Open.crend(), [&](const OpenElement &element) { return element.Name == name; });
    return found == Open.crend() ? nullptr : &*found;
}

void CursorPlace::Settle(Kind kind, int from)
{
    Where = kind;
    Start = from;
    At = End;
}

bool CursorPlace::StandsHere(const char *mark) const
{
    const QLatin1String text(mark);
    return At + text.size() <= End && Text.midRef(At, text.size()) == text;
}

void CursorPlace::SkipBehind(const char *mark)
{
    const int size = int(qstrlen(mark));
    const int found = Text.indexOf(QLatin1String(mark), At);
    if (found < 0 || found + size > End)
        Settle(Nowhere, At);
    else
        At = found + size;
    Start = At;
}

QString CursorPlace::TakeName()
{
    const int from = At;
    while (!AtEnd() && IsXmlNamePart(Text.at(At)))
        ++At;
    return Text.mid(from, At - from);
}

void CursorPlace::Step()
{
    const bool isInScript = NameAround() == KV218::element::Script;
    if (StandsHere("<!--")) {
        SkipBehind("-->");
    } else if (StandsHere("<![CDATA[")) {
        // In a script that is where authors are; elsewhere a section holds text that nobody completes.
        if (isInScript && Text.midRef(At, End - At).indexOf(QLatin1String("]]>")) < 0)
            Settle(Content, At);
        else
            SkipBehind("]]>");
    } else if (isInScript && !StandsHere("</")) {
        ++At;
    } else if (StandsHere("<!") || StandsHere("<?")) {
        SkipBehind(">");
    } else if (StandsHere("</")) {
        EndTag();
    } else if (StandsHere("<")) {
        StartTag();
    } else {
        ++At;
    }
}

void CursorPlace::EndTag()
{
    const int from = At + 2;
    At = from;
    const QString name = TakeName();
    if (AtEnd())
        return Settle(EndTagName, from);
    const auto open
        = std::find_if(Open.crbegin(), Open.crend(), [&](const OpenElement &element) { return element.Name == name; });
    if (open != Open.crend())
        Open.resize(int(Open.crend() - open) - 1);
    while (!AtEnd() && Text.at(At).isSpace())
        ++At;
    if (StandsHere(">"))
        ++At;
    Start = At;
}

void CursorPlace::StartTag()
{
    const int bracket = At++;
    const QString name = TakeName();
    // What cannot stand in an element that is not closed stands behind it.
    if (const ElementInfo *info = FindElement(name)) {
        const auto holder = std::find_if(
            Open.crbegin(), Open.crend(), [&](const OpenElement &element) { return MayHold(*info, element.Name); });
        if (holder != Open.crend())
            Open.resize(int(Open.crend() - holder));
    }
    if (AtEnd())
        return Settle(TagName, bracket + 1);
    if (name.isEmpty())
        return;
    Open.append({name, bracket, End, {}});
    if (!Attributes())
        return;
    const bool isClosed = StandsHere("/>");
    At += isClosed ? 2 : StandsHere(">") ? 1 : 0;
    Open.last().Content = At;
    // In a repetition may stand what may stand around it.
    if (isClosed || name == KV218::element::Repeat)
        Open.removeLast();
    Start = At;
}

/// False when the cursor stands within the tag.
bool CursorPlace::Attributes()
{
    for (;;) {
        while (!AtEnd()
            && (Text.at(At).isSpace() || !(IsXmlNamePart(Text.at(At)) || QStringLiteral("<>/").contains(Text.at(At)))))
            ++At;
        const int from = At;
        if (StandsHere("<") || StandsHere(">") || StandsHere("/>"))
            return true;
        if (StandsHere("/"))
            ++At;
        const QString name = TakeName();
        if (AtEnd()) {
            Settle(AttributeName, from);
            return false;
        }
        while (!AtEnd() && (Text.at(At).isSpace() || Text.at(At) == QLatin1Char('=')))
            ++At;
        if (!StandsHere("\"") && !StandsHere("'"))
            continue;
        const QChar quote = Text.at(At++);
        const int value = At;
        while (!AtEnd() && Text.at(At) != quote && Text.at(At) != QLatin1Char('<'))
            ++At;
        if (AtEnd()) {
            Attribute = name;
            Settle(AttributeValue, value);
            return false;
        }
        Open.last().Attributes.insert(name, DecodeAttribute(PlacedText(Text), value, At).Text());
        if (Text.at(At) == quote)
            ++At;
    }
}

} // namespace Orbel
