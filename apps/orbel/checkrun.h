#pragma once

#include "inputfile.h"
#include "orbelcheck.h"

namespace Orbel
{

/// Builds and runs the forms of the document on the standard input in this process. A script is stopped after two
/// seconds; one that cannot be stopped keeps the process.
Findings RunForms(DocumentKind kind);

/// The same for a document at hand, in a process of its own, which is ended when it does not end by itself, and whose
/// end by a fault is a finding as well.
Findings RunInProcess(const InputFile &input);

/// The word behind --run-here, by which the process of its own is told what it gets.
QString WordOf(DocumentKind kind);
DocumentKind KindOf(const QString &word);

} // namespace Orbel
