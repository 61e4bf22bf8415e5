#include "opendocument.h"

#include "elementnames.h"
#include "mendedxml.h"

namespace Orbel
{

namespace
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;

/// As the library loads a form's file: without its returns.
PlacedText WithoutReturns(const QString &text)
{
    if (!text.contains(QLatin1Char('\r')))
        return PlacedText(text);
    PlacedText kept;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\r'))
            kept.Append(text.at(i), i);
    }
    kept.Close(text.size());
    return kept;
}

} // namespace

OpenDocument::OpenDocument(const QString &uri, Kind kind, const QString &text) : Name(uri), Holds(kind), Content(text)
{
}

QByteArray OpenDocument::Bytes() const
{
    return "\xEF\xBB\xBF" + Content.toUtf8();
}

void OpenDocument::SetText(const QString &text)
{
    Content = text;
    LineStarts.reset();
    AllForms.clear();
    IsRead = false;
}

void OpenDocument::Replace(const TextRange &range, const QString &text)
{
    const int from = Lines().IndexOf(range.From);
    const int to = Lines().IndexOf(range.To);
    SetText(QString(Content).replace(qMin(from, to), qAbs(to - from), text));
}

const TextLines &OpenDocument::Lines() const
{
    if (!LineStarts)
        LineStarts = std::make_unique<TextLines>(Content);
    return *LineStarts;
}

const std::vector<std::unique_ptr<OpenForm>> &OpenDocument::Forms() const
{
    if (!IsRead)
        ReadForms();
    IsRead = true;
    return AllForms;
}

void OpenDocument::ReadForms() const
{
    if (Holds != List) {
        AllForms.push_back(std::make_unique<OpenForm>(WithoutReturns(Content)));
        return;
    }
    Document list((PlacedText(Content)));
    if (!list.IsWhole())
        list = Document(MendXml(PlacedText(Content)));
    for (int i = 0; i < list.Elements().size(); ++i) {
        const Attribute *value = list.FindAttribute(i, attribute::Value);
        if (value && list.At(i).Name == element::ValueString
            && list.AttributeOf(i, attribute::Id) == QLatin1String("ORBEL"))
            AllForms.push_back(std::make_unique<OpenForm>(list.ValueOf(*value)));
    }
}

const OpenForm *OpenDocument::FormAt(int place) const
{
    for (const std::unique_ptr<OpenForm> &form : Forms()) {
        if (Holds != List || form->Form.Extent().Holds(place))
            return form.get();
    }
    return nullptr;
}

QString OpenDocument::Written(const QString &text) const
{
    return Holds == List ? text.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("&#10;")) : text;
}

} // namespace Orbel
