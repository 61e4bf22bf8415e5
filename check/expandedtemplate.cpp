#include "expandedtemplate.h"

#include "definitionlayout.h"
#include "filetext.h"
#include "templateexpansion.h"
#include "xmlcheck.h"

#include <QXmlStreamReader>

namespace Orbel
{

namespace
{

constexpr QLatin1String Target("orbel-template", 14);

/// What stands in front of the definition: the declaration, and where it comes from.
QString Head(const QString &name)
{
    const QString declaration = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    return name.isEmpty() ? declaration : declaration + QStringLiteral("<?%1 %2?>\n").arg(Target, name);
}

} // namespace

ExpandedTemplate::ExpandedTemplate(const QByteArray &bytes, const QString &name)
{
    const FileText file(bytes, FileText::AsForm);
    const Document source(file.Source());
    FindingSink sink;
    CheckXml(file, source, sink);
    Errors = sink.Sorted(file);
    if (!Errors.isEmpty())
        return;
    const TemplateExpansion expansion(file.Source(), sink);
    const Document expanded(expansion.GetDefinition());
    if (sink.Sorted(file).isEmpty() && !expanded.IsWhole())
        TellMalformed(expanded.PlaceOfError(), expanded.ErrorText(), sink);
    Errors = sink.Sorted(file);
    if (!Errors.isEmpty())
        return;
    QString text = expansion.GetDefinition().Text();
    if (text.startsWith(QLatin1String("<?xml ")))
        text.remove(0, text.indexOf(QLatin1String("?>")) + 2);
    const DefinitionLayout layout = DefinitionLayout::OfText(Head(name) + text.trimmed());
    Errors = layout.GetRefusal();
    Definition = Errors.isEmpty() ? layout.GetText().toUtf8() : QByteArray();
}

QString ExpandedTemplate::NamedIn(const QByteArray &definition)
{
    QXmlStreamReader reader(definition);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
        if (reader.isProcessingInstruction() && reader.processingInstructionTarget() == Target)
            return reader.processingInstructionData().toString();
    }
    return QString();
}

} // namespace Orbel
