#pragma once

#include "opendocument.h"

namespace Orbel
{

/// Where the thing at a place is made; empty where none is, or nobody makes it.
QVector<TextSpan> DefinitionsAt(const OpenForm &form, int place);

/// All places that speak of the thing at a place.
QVector<TextSpan> ReferencesAt(const OpenForm &form, int place, bool withDefinitions);

/// The name at a place that can be changed; throws an RpcFailure with the reason where none can.
TextSpan RenamableAt(const OpenForm &form, const OpenDocument &document, int place);

/// All places that change with that name; throws an RpcFailure for a name that cannot be taken.
QVector<TextSpan> RenamedAt(const OpenForm &form, const OpenDocument &document, int place, const QString &name);

} // namespace Orbel
