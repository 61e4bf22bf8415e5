#pragma once

#include "hostexport.h"

class LxException;

/// Takes exceptions at the edges where they are caught.
class ORBEL_HOST_EXPORT IErrorHandler
{
public:
    virtual ~IErrorHandler() = default;

    /// The exception was caught. Called first.
    virtual void TakeException(const LxException &exception) = 0;
    /// Tells somebody of it. `code` replaces the exception's code unless it has all bits set. Severity counts from 0,
    /// a note, over 1, an error, upwards; `context` and `flags` are for hosts that sort their reports.
    virtual void ReportException(const LxException &exception, int context, unsigned int code, int severity, int flags)
        = 0;
};
