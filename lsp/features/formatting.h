#pragma once

#include "opendocument.h"

#include <QJsonArray>

namespace Orbel
{

/// The edits that bring a definition into its canonical layout; none where it has it. Throws an RpcFailure with the
/// reason for a document that has no layout.
QJsonArray FormattingOf(const OpenDocument &document);

} // namespace Orbel
