#pragma once

#include "checkexport.h"

#include <QString>
#include <QVector>

namespace Orbel
{

enum class Severity {
    Error, ///< Something of the form is lost, or does not do what stands there.
    Warning, ///< Very likely a mistake.
    Note, ///< Worth knowing; nothing is wrong with the form itself.
};

/// "error", "warning" or "note".
ORBEL_CHECK_EXPORT QString NameOf(Severity severity);

/// One thing that a form's author wants to know.
struct Finding {
    int Line; ///< In the file, from 1.
    int Column; ///< In characters, from 1.
    Severity Level; ///< How bad it is.
    QString Code; ///< Stable; docs/checks.md explains each.
    QString Text; ///< One sentence, without a full stop.
};

using Findings = QVector<Finding>;

} // namespace Orbel
