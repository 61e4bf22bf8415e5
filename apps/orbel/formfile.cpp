#include "formfile.h"

#include "componentlist.h"
#include "expandedtemplate.h"
#include "messages.h"
#include "nearestnames.h"
#include "orbelcheck.h"
#include "orbelparser.h"
#include "xmlwalk.h"

#include <QTemporaryFile>

namespace Orbel
{

FormFile::FormFile(const QString &path) : Input(ReadInput(path)), Text(Input.Bytes)
{
    if (IsList())
        ReadList();
    else if (IsDefinition() && HoldsForm(Input.Bytes, path))
        Definitions.append(Definition());
    else if (Input.Kind == DocumentKind::Template)
        ReadTemplate();
    if (Definitions.isEmpty())
        throw InputFailure(path,
            IsList() ? QStringLiteral("there is no form in it (a name without \".orbel\" means a component list)")
                     : QStringLiteral("there is no form in it"));
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

void FormFile::ReadTemplate()
{
    const ExpandedTemplate expanded(Input.Bytes);
    for (const Finding &error : expanded.GetErrors()) {
        Complain(PlaceIn(Input.Path, error.Line, error.Column) + QLatin1String(": ") + error.Text);
        Status = ekInputAtFault;
    }
    Text = expanded.GetDefinition();
    if (expanded.GetErrors().isEmpty() && HoldsForm(Text, Input.Path))
        Definitions.append({QString(), QString::fromUtf8(Text)});
}

void FormFile::ReadList()
{
    TellMalformed(Input.Bytes, Input.Path);
    QXmlStreamReader list(Input.Bytes);
    KV218::ForEachDefinition(list, [this](const QString &component, const QString &text) {
        if (HoldsForm(text, QStringLiteral("%1: component \"%2\"").arg(Input.Path, component)))
            Definitions.append({component, text});
    });
}

const FormFile::Definition &FormFile::Pick(const QString &component) const
{
    QStringList names;
    for (const Definition &definition : Definitions) {
        if (IsList() && !component.isEmpty() && definition.Component == component)
            return definition;
        // One without a name has a number alone.
        names.append(definition.Component.isEmpty() ? QString::number(names.size() + 1) : definition.Component);
    }
    if (component.isEmpty() && Definitions.size() == 1)
        return Definitions.constFirst();
    if (!IsList())
        throw UsageFailure(QStringLiteral("%1: it is no component list, so --component means nothing").arg(Input.Path));
    const int number = component.toInt();
    if (number >= 1 && number <= Definitions.size())
        return Definitions.at(number - 1);
    if (component.isEmpty())
        throw UsageFailure(
            QStringLiteral("%1: choose a form with --component: %2").arg(Input.Path, QuotedNames(names)));
    throw UsageFailure(QStringLiteral("%1: there is no component \"%2\" in it; nearest: %3")
                           .arg(Input.Path, component, QuotedNames(NearestNames(component, names, 3))));
}

QByteArray FormFile::GetDefinition(const QString &component) const
{
    // The mark counts before an encoding that the text may declare.
    return IsList() ? "\xEF\xBB\xBF" + Pick(component).Text.toUtf8() : Text;
}

/// The line of a script's line; 0 where it is not known.
static int LineInFile(const InputFile &input, const QString &component, int line)
{
    if (line <= 0 || input.Kind == DocumentKind::Template)
        return 0;
    return input.Kind == DocumentKind::List ? Check::LineOfScript(input.Bytes, component, line)
                                            : Check::LineOfScript(input.Bytes, line);
}

/// As hosts read a file. The file itself may be a pipe, or another one meanwhile.
KV218::OrbelFormular *FormFile::ParseBytes() const
{
    QTemporaryFile file;
    if (!file.open() || file.write(Input.Bytes) != Input.Bytes.size() || !file.flush())
        throw InputFailure(file.fileName(), file.errorString());
    return KV218::OrbelParser().ParseORBELFile(file.fileName());
}

FormFile::Form FormFile::Parse(const QString &component) const
{
    const Definition &definition = Pick(component);
    const Form form(IsDefinition() ? ParseBytes() : KV218::OrbelParser().ParseORBEL(definition.Text));
    if (!form)
        throw InputFailure(Input.Path, QStringLiteral("there is no form in it"));
    QObject::connect(form.data(), &KV218::OrbelFormular::si_scriptFailed, form.data(),
        [input = Input, name = definition.Component](int line, const QString &text) {
            const int place = LineInFile(input, name, line);
            Complain(
                (place > 0 ? QStringLiteral("%1:%2: ").arg(input.Path).arg(place) : input.Path + QLatin1String(": "))
                + text);
        });
    return form;
}

} // namespace Orbel
