#pragma once

#include "document.h"
#include "filetext.h"
#include "findingsink.h"

namespace Orbel
{

/// Tells where a document stops being well-formed, or does not fit its encoding.
void CheckXml(const FileText &file, const Document &document, FindingSink &sink);

/// What a reader of XML says of a place.
void TellMalformed(int place, QString text, FindingSink &sink);

} // namespace Orbel
