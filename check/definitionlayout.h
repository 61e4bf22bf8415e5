#pragma once

#include "checkexport.h"
#include "finding.h"

#include <QByteArray>

namespace Orbel
{

/// A form definition, or a template of one, in the one canonical layout: two blanks a level, a property and a row of an
/// enumeration on one line each, attributes in double quotes, empty elements in one tag, at most one blank line between
/// two elements, and line ends of the kind that the first line has. Comments, scripts, texts and the values of
/// attributes stay as they stand, character by character; what the library skips keeps its own layout. A definition
/// means the same in it, and laying it out again changes nothing.
class ORBEL_CHECK_EXPORT DefinitionLayout
{
public:
    /// Of a file of these bytes; encoding and byte order mark are kept.
    static DefinitionLayout OfFile(const QByteArray &document);
    /// Of a text at hand, whatever encoding it declares.
    static DefinitionLayout OfText(const QString &definition);

    /// Why there is no layout, with its place: malformed XML, or no form. Empty when there is one.
    const Findings &GetRefusal() const { return Refusal; }
    /// The file's bytes; empty for a text. What was given when it was refused.
    const QByteArray &GetDocument() const { return Document; }
    /// The same as text.
    const QString &GetText() const { return Text; }

private:
    Findings Refusal;
    QByteArray Document;
    QString Text;
};

} // namespace Orbel
