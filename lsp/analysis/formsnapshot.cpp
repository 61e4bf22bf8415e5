#include "formsnapshot.h"

#include "elementnames.h"
#include "mendedxml.h"

namespace Orbel
{

namespace
{

Document ReadTolerantly(const PlacedText &source)
{
    Document document(source);
    return document.IsWhole() ? document : Document(MendXml(source));
}

/// Of several forms in one document the last one counts.
int FormIn(const Document &document)
{
    int form = document.Elements().size() - 1;
    while (form >= 0 && document.At(form).Name != KV218::element::Form)
        --form;
    return form;
}

} // namespace

FormSnapshot::FormSnapshot(const PlacedText &source)
    : Doc(ReadTolerantly(source)), Source(source), Model(Doc, FormIn(Doc)), Script(Doc, Model.Script),
      Tokens(ScanScript(Script.Code()))
{
}

TextSpan FormSnapshot::Extent() const
{
    return {Source.OffsetOf(0), Source.OffsetOf(Source.Text().size())};
}

int FormSnapshot::IndexIn(const PlacedText &text, int place)
{
    // Places grow with the indices.
    int low = 0;
    int high = text.Text().size();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (text.OffsetOf(middle) < place)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

int FormSnapshot::ScriptIndexOf(int place) const
{
    const int size = Script.Code().size();
    if (Model.Script < 0 || place < Script.PlaceOf(0) || place > Script.PlaceOf(size))
        return -1;
    int low = 0;
    for (int high = size; low < high;) {
        const int middle = (low + high) / 2;
        if (Script.PlaceOf(middle) < place)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

int FormSnapshot::ElementAt(int place) const
{
    int low = -1;
    for (int high = Doc.Elements().size(); high - low > 1;) {
        const int middle = (low + high) / 2;
        if (Doc.PlaceOf(middle) <= place)
            low = middle;
        else
            high = middle;
    }
    int element = low;
    while (element >= 0 && !SpanOf(element).Holds(place))
        element = Doc.At(element).Parent;
    return element;
}

const WidgetEntry *FormSnapshot::WidgetOf(int element) const
{
    while (element >= 0 && Doc.At(element).Name != KV218::element::Widget)
        element = Doc.At(element).Parent;
    for (const WidgetEntry &widget : Model.Widgets) {
        if (widget.Element == element)
            return &widget;
    }
    return nullptr;
}

TextSpan FormSnapshot::SpanOfToken(int token) const
{
    const ScriptToken &here = Tokens.at(token);
    const int from = here.What == ScriptToken::Literal ? here.Index + 1 : here.Index;
    return {Script.PlaceOf(from), Script.PlaceOf(from + here.Text.size())};
}

TextSpan FormSnapshot::SpanOfValue(const Attribute &attribute) const
{
    const PlacedText value = Doc.ValueOf(attribute);
    return {value.OffsetOf(0), value.OffsetOf(value.Text().size())};
}

TextSpan FormSnapshot::SpanOfText(int element) const
{
    const PlacedText content = Doc.ContentOf(element);
    return SpanOfText(content, 0, content.Text().size());
}

TextSpan FormSnapshot::SpanOfText(const PlacedText &content, int from, int size) const
{
    return {content.OffsetOf(from), content.OffsetOf(from + size)};
}

TextSpan FormSnapshot::SpanOfName(int element) const
{
    const int index = IndexIn(Source, Doc.PlaceOf(element)) + 1;
    return {Source.OffsetOf(index), Source.OffsetOf(index + Doc.At(element).Name.size())};
}

TextSpan FormSnapshot::SpanOfEndName(int element) const
{
    // Of a mended document the end tag may be made up.
    const QString &text = Source.Text();
    const int behind = IndexIn(Source, Doc.PlaceAt(Doc.At(element).ContentTo));
    const QString endTag = QLatin1String("</") + Doc.At(element).Name;
    const bool isClosedAtOnce = text.midRef(qMax(0, behind - 2), 2) == QLatin1String("/>");
    if (isClosedAtOnce || text.midRef(behind, endTag.size()) != endTag)
        return {Source.OffsetOf(behind), Source.OffsetOf(behind)};
    return {Source.OffsetOf(behind + 2), Source.OffsetOf(behind + endTag.size())};
}

TextSpan FormSnapshot::SpanOf(int element) const
{
    const TextSpan end = SpanOfEndName(element);
    if (end.From == end.To)
        return {Doc.PlaceOf(element), end.To};
    const QString &text = Source.Text();
    const int bracket = text.indexOf(QLatin1Char('>'), IndexIn(Source, end.To));
    return {Doc.PlaceOf(element), Source.OffsetOf(bracket < 0 ? text.size() : bracket + 1)};
}

} // namespace Orbel
