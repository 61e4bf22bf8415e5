#pragma once

#include "latin1.h"
#include "orbelcheck.h"

namespace Orbel
{

/// Whether a file is read as a component list, by its name.
bool IsComponentList(const QString &path);

/// Builds and runs the forms of the document on the standard input in this process. A script is stopped after two
/// seconds; one that cannot be stopped keeps the process.
Findings RunForms(bool isList);

/// The same for a document at hand, in a process of its own, which is ended when it does not end by itself, and whose
/// end by a fault is a finding as well.
Findings RunInProcess(const QByteArray &document, bool isList);

/// The kinds of documents behind --run-here, by which the process of its own is told what it gets.
inline constexpr QLatin1String DefinitionKind = KV218::Latin1("definition");
inline constexpr QLatin1String ListKind = KV218::Latin1("list");

} // namespace Orbel
