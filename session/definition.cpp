#include "definition.h"

#include "componentlist.h"
#include "orbelcheck.h"
#include "orbelformular.h"
#include "orbelparser.h"
#include "suggestion.h"

#include <QFile>

#include <algorithm>

namespace Orbel
{

Definition Definition::OfFile(const QString &path)
{
    Definition definition;
    definition.File = path;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        definition.Refuse(QStringLiteral("The file cannot be read: %1").arg(file.errorString()));
        return definition;
    }
    definition.Document = file.readAll();
    definition.Told = Check::Definition(definition.Document);
    return definition;
}

Definition Definition::OfText(const QByteArray &document)
{
    Definition definition;
    definition.Document = document;
    definition.Told = Check::Definition(document);
    return definition;
}

Definition Definition::OfComponent(const QByteArray &list, const QString &name)
{
    Definition definition;
    definition.Document = list;
    definition.Told = Check::ComponentList(list);
    QStringList names;
    QXmlStreamReader reader(list);
    KV218::ForEachDefinition(reader, [&](const QString &component, const QString &text) {
        names.append(component);
        if (!definition.Text.isNull() || (!name.isEmpty() && name != component))
            return;
        definition.Component = component;
        definition.Text = text;
    });
    if (definition.Text.isNull())
        definition.RefuseComponent(name, names);
    return definition;
}

Definition Definition::OfLater(const QByteArray &document) const
{
    Definition later = IsComponent() ? OfComponent(document, Component) : OfText(document);
    later.File = File;
    return later;
}

Definition Definition::OfLater(const QByteArray &document, const QVector<Finding> &told) const
{
    Definition later;
    later.File = File;
    later.Document = document;
    later.Told = told;
    return later;
}

bool Definition::HasErrors() const
{
    return std::any_of(
        Told.cbegin(), Told.cend(), [](const Finding &finding) { return finding.Level == Severity::Error; });
}

Definition::Form Definition::Parse() const
{
    KV218::OrbelParser parser;
    if (!Text.isNull())
        return Form(parser.ParseORBEL(Text));
    QByteArray document = Document;
    // A form's file is loaded without these bytes.
    if (!File.isEmpty())
        document.replace('\r', QByteArray());
    return Form(document.isEmpty() ? nullptr : parser.ParseORBEL(document));
}

int Definition::LineOfScript(int line) const
{
    return Text.isNull() ? Check::LineOfScript(Document, line) : Check::LineOfScript(Document, Component, line);
}

void Definition::Refuse(const QString &reason)
{
    Told.append({1, 1, Severity::Error, QStringLiteral("form-missing"), reason});
}

void Definition::RefuseComponent(const QString &name, const QStringList &names)
{
    const bool isTold = names.isEmpty() && HasErrors();
    if (!isTold)
        Refuse(
            QStringLiteral("There is no component \"%1\" with a form in the list").arg(name) + DidYouMean(name, names));
}

} // namespace Orbel
