#include "inputfile.h"

#include "elementnames.h"
#include "failure.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cstdio>

namespace Orbel
{

QByteArray ReadFile(const QString &path)
{
    QFile file(path);
    const bool isInput = path == QLatin1String("-");
    if (!isInput && QFileInfo(path).isDir())
        throw InputFailure(path, QStringLiteral("Is a directory"));
    const bool isOpen = isInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!isOpen)
        throw InputFailure(path, file.errorString());
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw InputFailure(path, file.errorString());
    return bytes;
}

static DocumentKind KindOf(const QString &path, const QByteArray &bytes)
{
    if (path.endsWith(QLatin1String(".orbel")))
        return DocumentKind::Definition;
    if (path.endsWith(QLatin1String(".orbelt")))
        return DocumentKind::Template;
    QXmlStreamReader reader(bytes);
    const bool isForm
        = !QFileInfo(path).isFile() && reader.readNextStartElement() && reader.name() == KV218::element::Form;
    return isForm ? DocumentKind::Definition : DocumentKind::List;
}

InputFile ReadInput(const QString &path)
{
    const QByteArray bytes = ReadFile(path);
    return {path, bytes, KindOf(path, bytes)};
}

QString ReadDocument(const QString &path, const QString &element)
{
    QXmlStreamReader reader(ReadFile(path));
    QString text;
    QXmlStreamWriter writer(&text);
    bool found = false;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.hasError())
            throw InputFailure(path, ErrorText(reader));
        found = found || (reader.isStartElement() && reader.name() == element);
        // The copy is a text already, to which a declared encoding does not apply.
        if (!reader.isStartDocument() && !reader.isEndDocument())
            writer.writeCurrentToken(reader);
    }
    if (!found)
        throw InputFailure(path, QStringLiteral("there is no element \"%1\" in it").arg(element));
    return text;
}

QString ErrorText(const QXmlStreamReader &reader)
{
    return QStringLiteral("line %1: %2").arg(reader.lineNumber()).arg(reader.errorString());
}

} // namespace Orbel
