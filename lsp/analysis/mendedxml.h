#pragma once

#include "placedtext.h"

namespace Orbel
{

/// Whether the name of an element or an attribute may hold the character.
bool IsXmlNamePart(QChar character);

/// A well-formed document that is as near to a malformed one as can be: tags that are not finished are, what is not
/// closed is closed, stray marks become text, comments go. While an author types, forms are malformed at nearly any
/// moment, and all that stands around the place counts nevertheless. Each character keeps its place.
PlacedText MendXml(const PlacedText &source);

} // namespace Orbel
