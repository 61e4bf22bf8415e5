#pragma once

#include "finding.h"
#include "opendocument.h"

#include <QJsonArray>

namespace Orbel
{

/// The protocol's code actions for the findings at a stretch of the text: one for each edit that mends a finding, and
/// one for all edits of the document together where there are several.
QJsonArray QuickFixesAt(TextSpan span, const Findings &findings, const OpenDocument &document);

} // namespace Orbel
