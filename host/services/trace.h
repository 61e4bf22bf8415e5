#pragma once

#include "errorhandler.h"

#include <QString>

/// Writes one trace line with its place in the source, of which only the file's own name is kept. The caller tests the
/// trace mask.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is fixed.
ORBEL_HOST_EXPORT void _Q_Trace(const QString &text, const QString &file, unsigned short line);

/// Writes the trace if the mask of ErrorHandler has the bit ekTraceFailure. `file` and `line` are __FILE__ and
/// __LINE__.
ORBEL_HOST_EXPORT void TraceFailure(const QString &text, const char *file, int line);
