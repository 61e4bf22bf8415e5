#include "definitionlayout.h"

#include "elementnames.h"
#include "filetext.h"
#include "layoutwriter.h"
#include "xmlcheck.h"

#include <QXmlStreamReader>

namespace Orbel
{

namespace
{

namespace element = KV218::element;

/// A form, or an entry of a component list that has one as text.
bool HoldsForm(const Document &document, int at)
{
    return document.At(at).Name == element::Form
        || (document.At(at).Name == element::ValueString
            && document.AttributeOf(at, KV218::attribute::Id) == QLatin1String("ORBEL"));
}

/// The elements around forms.
QSet<int> OuterElements(const Document &document)
{
    QSet<int> outer;
    for (int i = 0; i < document.Elements().size(); ++i) {
        for (int above = document.At(i).Parent; HoldsForm(document, i) && above >= 0 && !outer.contains(above);) {
            outer.insert(above);
            above = document.At(above).Parent;
        }
    }
    return outer;
}

bool HoldsForm(const Document &document)
{
    for (int i = 0; i < document.Elements().size(); ++i) {
        if (HoldsForm(document, i))
            return true;
    }
    return false;
}

bool HoldsText(const QString &name)
{
    static const QSet<QString> structure{element::Form, element::Enums, element::Enum, element::EnumValue,
        element::Sheet, element::Properties, element::CustomProperties, element::Widget, element::Property,
        element::Repeat};
    return !structure.contains(name);
}

/// All that a reader finds in a document: elements with their attributes, texts, comments, instructions. White space
/// around elements that hold no text of their own is left out.
QStringList MeaningOf(const QString &text, const QSet<int> &outer)
{
    QXmlStreamReader reader(QString(text).remove(QLatin1Char('\r')));
    QStringList meaning;
    QVector<bool> holdText;
    QString content;
    int elements = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isCharacters()) {
            content += reader.text();
            continue;
        }
        const QString kept = !holdText.isEmpty() && holdText.constLast() ? content : content.trimmed();
        if (!kept.isEmpty())
            meaning.append(kept);
        content.clear();
        meaning.append(reader.tokenString() + reader.qualifiedName() + reader.text()
            + reader.processingInstructionTarget() + reader.processingInstructionData());
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            meaning.append(attribute.qualifiedName() + QLatin1Char('=') + attribute.value());
        if (reader.isStartElement())
            holdText.append(!outer.contains(elements++) && HoldsText(reader.name().toString()));
        else if (reader.isEndElement())
            holdText.removeLast();
    }
    meaning.append(reader.errorString());
    return meaning;
}

/// The text in the layout; findings where there is none.
QString LayOut(const FileText &file, Findings &refusal)
{
    const Document document(file.Source());
    FindingSink sink;
    CheckXml(file, document, sink);
    if (sink.Sorted(file).isEmpty() && !HoldsForm(document))
        sink.Add(Code::FormMissing, 0, QStringLiteral("There is no form in the document"));
    refusal = sink.Sorted(file);
    if (!refusal.isEmpty())
        return file.Text();
    const QSet<int> outer = OuterElements(document);
    const QString text = LayoutWriter(file.Text(), outer).Write();
    if (MeaningOf(text, outer) == MeaningOf(file.Text(), outer))
        return text;
    sink.Add(
        Code::XmlMalformed, 0, QStringLiteral("The document cannot be laid out without a change of what it means"));
    refusal = sink.Sorted(file);
    return file.Text();
}

} // namespace

DefinitionLayout DefinitionLayout::OfFile(const QByteArray &document)
{
    DefinitionLayout layout;
    const FileText file(document, FileText::AsForm);
    layout.Text = LayOut(file, layout.Refusal);
    if (layout.Refusal.isEmpty() && file.Encoded(file.Text()) != document) {
        FindingSink sink;
        TellMalformed(0, QStringLiteral("The document is not in one encoding, and cannot be written in it"), sink);
        layout.Refusal = sink.Sorted(file);
    }
    layout.Document = layout.Refusal.isEmpty() ? file.Encoded(layout.Text) : document;
    return layout;
}

DefinitionLayout DefinitionLayout::OfText(const QString &definition)
{
    DefinitionLayout layout;
    layout.Text = LayOut(FileText(definition), layout.Refusal);
    return layout;
}

} // namespace Orbel
