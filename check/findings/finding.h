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

/// A change of the file that mends what was found, and means nothing else.
struct FindingEdit {
    int Offset = -1; ///< In the text of the file, in units of UTF-16; a byte order mark does not count. -1 for no edit.
    int Length = 0; ///< Units that go.
    QString Replacement; ///< What comes in their place, as it is to stand in the file.

    /// Whether there is an edit.
    explicit operator bool() const { return Offset >= 0; }
};

/// One thing that a form's author wants to know.
struct Finding {
    int Line; ///< In the file, from 1.
    int Column; ///< In characters, from 1.
    Severity Level; ///< How bad it is.
    QString Code; ///< Stable; docs/checks.md explains each.
    QString Text; ///< One sentence, without a full stop.
    FindingEdit Edit = {}; ///< Where it is plain what was meant.
};

using Findings = QVector<Finding>;

} // namespace Orbel
