#pragma once

#include <QString>
#include <QVector>

namespace Orbel
{

/// A piece of an XML document as it stands in the file.
struct XmlToken {
    enum Kind {
        Text,
        Section, ///< CDATA with its marks.
        Comment,
        Instruction, ///< Also the XML declaration.
        Doctype,
        StartTag,
        EmptyTag, ///< Start and end in one.
        EndTag,
    };
    Kind What;
    int From; ///< In the document.
    int To; ///< Behind the last character.
};

/// The pieces of a document, one behind the other, without a gap. Meant for documents that are well-formed.
QVector<XmlToken> ScanXml(const QString &document);

/// The name in a start or end tag, without a prefix.
QString NameOfTag(const QStringRef &tag);

/// Whether a character is white space to XML.
bool IsXmlBlank(QChar character);

} // namespace Orbel
