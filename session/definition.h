#pragma once

#include "finding.h"

#include <QByteArray>
#include <QExplicitlySharedDataPointer>
#include <QString>

namespace KV218
{
class OrbelFormular;
}

namespace Orbel
{

/// A form definition, where it came from, and what the checker has to say of it.
class Definition
{
public:
    using Form = QExplicitlySharedDataPointer<KV218::OrbelFormular>;

    static Definition OfFile(const QString &path);
    static Definition OfText(const QByteArray &document);
    /// The definition of that name in a component list; the first one for an empty name.
    static Definition OfComponent(const QByteArray &list, const QString &name);

    /// Empty without one.
    const QString &GetFile() const { return File; }
    /// The bytes that were given.
    const QByteArray &GetDocument() const { return Document; }
    bool IsComponent() const { return !Text.isNull(); }
    /// What takes the place of this one: a definition, or of a component list the component of the same name.
    Definition OfLater(const QByteArray &document) const;
    /// The same where it is known what the checker has to say.
    Definition OfLater(const QByteArray &document, const QVector<Finding> &told) const;
    /// In the order of the document. Where Parse() gives null there is at least one error.
    const QVector<Finding> &GetFindings() const { return Told; }
    bool HasErrors() const;
    /// A new form, without nodes; null when there is none.
    Form Parse() const;
    /// The line in the document, from 1, of a line of the form's script.
    int LineOfScript(int line) const;

private:
    void Refuse(const QString &reason);
    void RefuseComponent(const QString &name, const QStringList &names);

    QString File;
    /// What was given: a definition or a component list.
    QByteArray Document;
    /// Of a list: the name of the component, and its definition.
    QString Component;
    QString Text;
    QVector<Finding> Told;
};

} // namespace Orbel
