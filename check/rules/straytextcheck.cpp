// Text between elements that hold no text.

#include "elementnames.h"
#include "formcheck.h"
#include "xmlscanner.h"

namespace Orbel
{

namespace
{

namespace element = KV218::element;

bool HoldsElements(const QString &name)
{
    static const QSet<QString> names{element::Form, element::Enums, element::Enum, element::EnumValue, element::Sheet,
        element::Properties, element::CustomProperties, element::Widget, element::Property};
    return names.contains(name);
}

/// The first character of a piece that is no white space; the end without one.
int FirstLetter(const QString &text, int from, int to)
{
    while (from < to && IsXmlBlank(text.at(from)))
        ++from;
    return from;
}

/// A comment that begins another one, or that a script stands in.
void CheckComment(const FormModel &form, const XmlToken &token, bool isInScript, FindingSink &sink)
{
    const QString text = form.Doc.Text().mid(token.From, token.To - token.From);
    const int second = text.indexOf(QLatin1String("<!-"), 1);
    if (second > 0)
        sink.Add(Code::CommentUnended, form.Doc.PlaceAt(token.From + second),
            QStringLiteral("This stands in a comment that has not ended yet"));
    const bool isCode = text.contains(QLatin1Char(';')) || text.contains(QLatin1Char('('));
    if (isInScript && isCode && form.Doc.At(form.Script).Text.trimmed().isEmpty())
        sink.Add(Code::ScriptCommented, form.Doc.PlaceAt(token.From),
            QStringLiteral("The script is nothing but this comment"));
}

} // namespace

void CheckStrayText(const FormModel &form, FindingSink &sink)
{
    const QString &text = form.Doc.Text();
    // What entities of the document's own stand for cannot be seen here.
    if (text.contains(QLatin1String("<!ENTITY")))
        return;
    QStringList open;
    bool isBehindValue = false; // The last tag ended an element.
    for (const XmlToken &token : ScanXml(text)) {
        const QStringRef raw = text.midRef(token.From, token.To - token.From);
        if (token.What == XmlToken::StartTag)
            open.append(NameOfTag(raw));
        else if (token.What == XmlToken::EndTag && !open.isEmpty())
            open.removeLast();
        if (token.What == XmlToken::StartTag || token.What == XmlToken::EndTag || token.What == XmlToken::EmptyTag)
            isBehindValue = token.What != XmlToken::StartTag;
        const bool isInScript = !open.isEmpty() && open.constLast() == element::Script;
        if (token.What == XmlToken::Comment)
            CheckComment(form, token, isInScript && form.Script >= 0, sink);
        const bool isText = token.What == XmlToken::Text || token.What == XmlToken::Section;
        const int letter = isText ? FirstLetter(text, token.From, token.To) : token.To;
        // A property that holds text in place of a value is told for that.
        const bool isTold = open.isEmpty() || (open.constLast() == element::Property && !isBehindValue);
        if (letter < token.To && !isTold && std::all_of(open.crbegin(), open.crend(), HoldsElements))
            sink.Add(Code::TextStray, form.Doc.PlaceAt(letter),
                QStringLiteral("The text \"%1\" stands between elements, and means nothing")
                    .arg(text.mid(letter, token.To - letter).simplified()));
    }
}

} // namespace Orbel
