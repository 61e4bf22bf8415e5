#pragma once

class QXmlStreamReader;

namespace KV218
{

class OrbelFormular;

/// Searches a document for a form, from the present place of `reader`, and parses it; null when there is none. The
/// caller owns the form, which has no name yet.
OrbelFormular *NewFormular(QXmlStreamReader &reader);

} // namespace KV218
