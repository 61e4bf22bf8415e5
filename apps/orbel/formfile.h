#pragma once

#include "failure.h"
#include "orbelformular.h"

#include <QExplicitlySharedDataPointer>
#include <QStringList>
#include <QVector>

namespace Orbel
{

/// A file that holds a form definition, or for any name that does not end in ".orbel" a component list with several.
/// What is malformed in it is told on standard error at once; the rest can be used, as far as it was read.
class FormFile
{
public:
    using Form = QExplicitlySharedDataPointer<KV218::OrbelFormular>;

    /// Reads the file. Throws a Failure when it cannot be read or holds no form.
    explicit FormFile(const QString &path);

    const QString &GetPath() const { return Path; }
    bool IsList() const;
    /// Input at fault when something is malformed.
    ExitStatus GetStatus() const { return Status; }

    /// Parses the form of a component, the first one of that name. An empty name means the only form of the file.
    /// Throws a Failure when the file has no such component, or several forms to choose from.
    Form Parse(const QString &component) const;

private:
    /// A definition is read from the file itself, a component's from the text that the list holds.
    struct Definition {
        QString Component;
        QString Text;
    };

    void ReadDefinition();
    void ReadList();
    template <class Document> bool HoldsForm(const Document &document, const QString &where);
    template <class Document> void TellMalformed(const Document &document, const QString &where);
    const Definition &Pick(const QString &component) const;

    QString Path;
    QVector<Definition> Definitions;
    ExitStatus Status = ekFine;
};

} // namespace Orbel
