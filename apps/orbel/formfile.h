#pragma once

#include "failure.h"
#include "inputfile.h"
#include "orbelformular.h"

#include <QExplicitlySharedDataPointer>
#include <QStringList>
#include <QVector>

namespace Orbel
{

/// A file that holds a form definition or a template of one, or a component list with several.
/// What is malformed in it is told on standard error at once; the rest can be used, as far as it was read.
class FormFile
{
public:
    using Form = QExplicitlySharedDataPointer<KV218::OrbelFormular>;

    /// Reads the file. Throws a Failure when it cannot be read or holds no form.
    explicit FormFile(const QString &path);

    const QString &GetPath() const { return Input.Path; }
    /// What stands in the file; of a template the definition that it gives.
    const QByteArray &GetBytes() const { return Text; }
    /// The same, of a list the definition of a component, which is chosen as for Parse().
    QByteArray GetDefinition(const QString &component) const;
    bool IsList() const { return Input.Kind == DocumentKind::List; }
    bool IsDefinition() const { return Input.Kind == DocumentKind::Definition; }
    /// Input at fault when something is malformed.
    ExitStatus GetStatus() const { return Status; }

    /// Parses the form of a component, the first one of that name, or by its number, from 1. An empty name means the
    /// only form of the file. Throws a Failure when the file has no such component, or several forms to choose from.
    /// Exceptions of its script, be it of handlers, are told on standard error with their lines in the file.
    Form Parse(const QString &component) const;

private:
    struct Definition {
        QString Component;
        QString Text; ///< Of a component or a template.
    };

    void ReadTemplate();
    KV218::OrbelFormular *ParseBytes() const;
    void ReadList();
    template <class Document> bool HoldsForm(const Document &document, const QString &where);
    template <class Document> void TellMalformed(const Document &document, const QString &where);
    const Definition &Pick(const QString &component) const;

    const InputFile Input;
    QByteArray Text;
    QVector<Definition> Definitions;
    ExitStatus Status = ekFine;
};

} // namespace Orbel
