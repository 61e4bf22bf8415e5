#pragma once

#include "opendocument.h"

#include <QJsonArray>

namespace Orbel
{

/// What a document consists of, as a tree of the protocol's symbols: enumerations with their choices, groups of
/// controls under their headlines, functions of the script; in a component list each form.
QJsonArray OutlineOf(const OpenDocument &document);

} // namespace Orbel
