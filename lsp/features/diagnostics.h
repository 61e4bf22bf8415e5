#pragma once

#include "finding.h"
#include "opendocument.h"

#include <QJsonArray>

namespace Orbel
{

/// What the checker finds in a document.
Findings FindingsOf(const OpenDocument &document);

/// Where a finding stands, as much of the text as it is about.
TextSpan SpanOf(const Finding &finding, const OpenDocument &document);

/// The findings as the protocol's diagnostics, in their order.
QJsonArray DiagnosticsOf(const Findings &findings, const OpenDocument &document);
QJsonObject DiagnosticOf(const Finding &finding, const OpenDocument &document);

} // namespace Orbel
