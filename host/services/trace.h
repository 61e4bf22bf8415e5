#pragma once

#include "errorhandler.h"

#include <QString>

/// Writes one trace line with its place in the source. The caller tests the trace mask.
ORBEL_HOST_EXPORT void _Q_Trace(const QString &text, const QString &file, unsigned short line);

/// Writes the trace if the mask of ErrorHandler has the bit.
ORBEL_HOST_EXPORT void TraceIf(unsigned int bit, const QString &text, const char *file, int line);

/// A failure that the library survives, traced with the place of this line.
#define ORBEL_TRACE_FAILURE(text) TraceIf(ekTraceFailure, text, __FILE__, __LINE__)

inline void TraceFailure(const QString &text, const char *file, int line)
{
    TraceIf(ekTraceFailure, text, file, line);
}
