#pragma once

#include <QByteArray>
#include <QString>

class QXmlStreamReader;

namespace Orbel
{

/// The bytes of a file that is read as a whole; "-" is standard input. Throws a Failure when it cannot be read.
QByteArray ReadFile(const QString &path);

/// What a file holds, by the end of its name: ".orbel" a form definition, ".orbelt" a template of one, any other a
/// component list. Where there is no file of that name, as with a pipe, its first element tells a definition.
enum class DocumentKind { Definition, Template, List };

struct InputFile {
    QString Path;
    QByteArray Bytes;
    DocumentKind Kind;
};

/// Reads a file, once. Throws a Failure when it cannot be read.
InputFile ReadInput(const QString &path);

/// The text of an XML document in a file, in the encoding that it declares. Throws a Failure when the file cannot be
/// read, is malformed or has no element `element` at any depth.
QString ReadDocument(const QString &path, const QString &element);

/// The error of a reader with its line, for messages.
QString ErrorText(const QXmlStreamReader &reader);

} // namespace Orbel
