#include "document.h"

#include <QXmlStreamReader>

namespace Orbel
{

namespace
{

/// Steps over the attributes of a start tag, which is known to be well-formed.
class StartTag
{
public:
    StartTag(const QString &text, int from, int to) : Text(text), At(from), End(to)
    {
        // The name of the element.
        while (At < End && !Text.at(At).isSpace() && Text.at(At) != QLatin1Char('>') && Text.at(At) != QLatin1Char('/'))
            ++At;
    }

    bool Next()
    {
        while (At < End && Text.at(At).isSpace())
            ++At;
        Name = At;
        const int equals = Text.indexOf(QLatin1Char('='), At);
        if (equals < 0 || equals >= End)
            return false;
        At = equals + 1;
        while (At < End && Text.at(At).isSpace())
            ++At;
        if (At >= End)
            return false;
        ValueFrom = At + 1;
        ValueTo = Text.indexOf(Text.at(At), ValueFrom);
        if (ValueTo < 0 || ValueTo >= End)
            return false;
        At = ValueTo + 1;
        return true;
    }

    bool IsNamespace() const { return Text.midRef(Name, 5) == QLatin1String("xmlns"); }

    int Name = 0;
    int ValueFrom = 0;
    int ValueTo = 0;

private:
    const QString &Text;
    int At;
    int End;
};

} // namespace

Document::Document(const PlacedText &source) : Source(source)
{
    Read();
}

void Document::Read()
{
    QXmlStreamReader reader(Source.Text());
    const QString &text = Source.Text();
    int last = 0;
    int begin = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        // Behind text, the reader has read the opening < of the next tag already.
        const int from = last > 0 && last <= text.size() && text.at(last - 1) == QLatin1Char('<') ? last - 1 : last;
        begin = from;
        last = int(reader.characterOffset());
        // Without a declaration, the reader has read into the first tag already.
        if (reader.isStartDocument() && !text.startsWith(QLatin1String("<?xml")))
            last = 0;
        if (reader.isStartElement())
            Open(from, last, reader);
        else if (reader.isEndElement())
            Close(from);
        else if (reader.isCharacters() && !Stack.isEmpty() && All.at(Stack.constLast()).FirstChild < 0)
            All[Stack.constLast()].Text += reader.text();
    }
    if (!reader.hasError())
        return;
    Error = reader.errorString();
    ErrorOffset = text.midRef(begin, 2) == QLatin1String("</") ? begin : last;
    // Where a document ends too early, its author looks at the last that stands there.
    if (ErrorOffset >= text.size()) {
        while (ErrorOffset > 0 && text.at(ErrorOffset - 1).isSpace())
            --ErrorOffset;
    }
    for (const int open : qAsConst(Stack)) {
        All[open].Last = All.size() - 1;
        All[open].ContentTo = last;
    }
}

void Document::Open(int from, int to, const QXmlStreamReader &reader)
{
    const int index = All.size();
    Element element;
    element.Name = reader.name().toString();
    const int bracket = Source.Text().indexOf(QLatin1Char('<'), from);
    element.Offset = bracket >= 0 && bracket < to ? bracket : from;
    element.Last = index;
    element.ContentFrom = element.ContentTo = to;
    ReadAttributes(element, to, reader);
    if (!Stack.isEmpty()) {
        element.Parent = Stack.constLast();
        Element &parent = All[element.Parent];
        if (parent.FirstChild < 0)
            parent.FirstChild = index;
        else
            All[parent.Last].NextSibling = index;
        // Until its end tag, the field holds the last direct child.
        parent.Last = index;
    }
    All.append(element);
    Stack.append(index);
    TagList.append({index, true});
}

void Document::ReadAttributes(Element &element, int to, const QXmlStreamReader &reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    StartTag tag(Source.Text(), element.Offset, to);
    element.Attributes.reserve(attributes.size());
    for (const QXmlStreamAttribute &attribute : attributes) {
        bool found = tag.Next();
        while (found && tag.IsNamespace())
            found = tag.Next();
        Attribute entry{attribute.name().toString(), attribute.value().toString(), !attribute.namespaceUri().isEmpty(),
            element.Offset, element.Offset, element.Offset};
        if (found) {
            entry.Offset = tag.Name;
            entry.ValueFrom = tag.ValueFrom;
            entry.ValueTo = tag.ValueTo;
        }
        element.Attributes.append(entry);
    }
}

void Document::Close(int from)
{
    const int index = Stack.takeLast();
    All[index].Last = All.size() - 1;
    All[index].ContentTo = qMax(from, All.at(index).ContentFrom);
    TagList.append({index, false});
}

const Attribute *Document::FindAttribute(int element, QLatin1String name) const
{
    for (const Attribute &attribute : At(element).Attributes) {
        if (!attribute.IsForeign && attribute.Name == name)
            return &attribute;
    }
    return nullptr;
}

QString Document::AttributeOf(int element, QLatin1String name) const
{
    const Attribute *attribute = FindAttribute(element, name);
    return attribute ? attribute->Value : QString();
}

int Document::PlaceOfAttribute(int element, QLatin1String name) const
{
    const Attribute *attribute = FindAttribute(element, name);
    return attribute ? Source.OffsetOf(attribute->ValueFrom) : PlaceOf(element);
}

int Document::PlaceOfText(int element) const
{
    return At(element).Text.isEmpty() ? PlaceOf(element) : Source.OffsetOf(At(element).ContentFrom);
}

PlacedText Document::ContentOf(int element) const
{
    const Element &holder = At(element);
    const PlacedText decoded = DecodeContent(Source, holder.ContentFrom, holder.ContentTo);
    return decoded.Text() == holder.Text ? decoded : PlacedText::AllAt(holder.Text, PlaceOf(element));
}

PlacedText Document::ValueOf(const Attribute &attribute) const
{
    const PlacedText decoded = DecodeAttribute(Source, attribute.ValueFrom, attribute.ValueTo);
    return decoded.Text() == attribute.Value ? decoded : PlacedText::AllAt(attribute.Value, PlaceOf(attribute));
}

} // namespace Orbel
