#pragma once

#include "orbelexport.h"

class QByteArray;
class QString;
class QXmlStreamReader;

namespace KV218
{

class OrbelFormular;

/// Turns a form definition into a form. Nothing is kept between two calls.
///
/// Each operation gives a new form, which the caller owns: hold it in a QExplicitlySharedDataPointer or delete it. The
/// result is null when there is no form element on the chain of first elements of the document, or the file cannot be
/// read; a document that is malformed behind the start of the form gives the form as far as it was read. Nothing is
/// reported. Call it on the GUI thread.
class ORBEL_EXPORT OrbelParser
{
public:
    OrbelParser() = default;
    OrbelParser(const OrbelParser &) { }
    OrbelParser &operator=(const OrbelParser &) { return *this; }
    virtual ~OrbelParser();

    /// Reads a file in the encoding that it declares.
    OrbelFormular *ParseORBELFile(const QString &path);
    /// The bytes are decoded as their XML declaration says.
    OrbelFormular *ParseORBEL(const QByteArray &document);
    OrbelFormular *ParseORBEL(const QString &document);
    /// As the bytes; ends with a zero. Null is an empty document.
    OrbelFormular *ParseORBEL(const char *document);
    /// `reader` stands before the document's first element.
    OrbelFormular *ParseORBEL(QXmlStreamReader &reader);
};

} // namespace KV218
