#include "formfile.h"

#include "componentlist.h"
#include "inputfile.h"
#include "messages.h"
#include "nearestnames.h"
#include "orbelparser.h"
#include "xmlwalk.h"

namespace Orbel
{

FormFile::FormFile(const QString &path) : Path(path)
{
    if (IsList())
        ReadList();
    else
        ReadDefinition();
    if (Definitions.isEmpty())
        throw InputFailure(path,
            IsList() ? QStringLiteral("there is no form in it (a name without \".orbel\" means a component list)")
                     : QStringLiteral("there is no form in it"));
}

bool FormFile::IsList() const
{
    return !Path.endsWith(QLatin1String(".orbel"));
}

/// Whether the parser finds a form.
template <class Document> bool FormFile::HoldsForm(const Document &document, const QString &where)
{
    TellMalformed(document, where);
    bool found = false;
    QXmlStreamReader reader(document);
    KV218::ForEachForm(reader, [&] {
        found = true;
        reader.skipCurrentElement();
    });
    return found;
}

/// A reader of its own, since the search for forms may end early, and runs over the end of a document that is whole.
template <class Document> void FormFile::TellMalformed(const Document &document, const QString &where)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd())
        reader.readNext();
    if (!reader.hasError())
        return;
    Complain(where + QLatin1String(": ") + ErrorText(reader));
    Status = ekInputAtFault;
}

void FormFile::ReadDefinition()
{
    if (HoldsForm(ReadFile(Path), Path))
        Definitions.append(Definition());
}

void FormFile::ReadList()
{
    const QByteArray document = ReadFile(Path);
    TellMalformed(document, Path);
    QXmlStreamReader list(document);
    KV218::ForEachDefinition(list, [this](const QString &component, const QString &text) {
        if (HoldsForm(text, QStringLiteral("%1: component \"%2\"").arg(Path, component)))
            Definitions.append({component, text});
    });
}

const FormFile::Definition &FormFile::Pick(const QString &component) const
{
    QStringList names;
    for (const Definition &definition : Definitions) {
        if (IsList() && !component.isEmpty() && definition.Component == component)
            return definition;
        names.append(definition.Component);
    }
    if (component.isEmpty() && Definitions.size() == 1)
        return Definitions.constFirst();
    if (!IsList())
        throw UsageFailure(QStringLiteral("%1: it is no component list, so --component means nothing").arg(Path));
    if (component.isEmpty())
        throw UsageFailure(QStringLiteral("%1: choose a form with --component: %2").arg(Path, QuotedNames(names)));
    throw UsageFailure(QStringLiteral("%1: there is no component \"%2\" in it; nearest: %3")
                           .arg(Path, component, QuotedNames(NearestNames(component, names, 3))));
}

FormFile::Form FormFile::Parse(const QString &component) const
{
    const Definition &definition = Pick(component);
    KV218::OrbelParser parser;
    const Form form(IsList() ? parser.ParseORBEL(definition.Text) : parser.ParseORBELFile(Path));
    // The file may have been replaced since it was looked at.
    if (!form)
        throw InputFailure(Path, QStringLiteral("there is no form in it"));
    return form;
}

} // namespace Orbel
