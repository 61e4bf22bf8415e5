#pragma once

#include "ierrorhandler.h"

#include <QString>

#include <functional>
#include <memory>

/// Bits of the trace mask.
constexpr unsigned int ekTraceFailure = 32; ///< Failures that the library survives.
constexpr unsigned int ekTraceResync = 64; ///< Controls that cannot follow a changed definition.

/// Where traces and exceptions of the whole process end up. For the GUI thread only.
class ORBEL_HOST_EXPORT ErrorHandler
{
public:
    /// Takes one finished line, without a line end.
    using Sink = std::function<void(const QString &line)>;

    /// The one handler of the process.
    static ErrorHandler &Instance();
    /// What exceptions are handed to; never null.
    static IErrorHandler *Interface();

    ErrorHandler(const ErrorHandler &) = delete;
    ErrorHandler &operator=(const ErrorHandler &) = delete;

    /// The bits of the traces that are wanted; none at the start.
    unsigned int GetTraceMask() const { return TraceMask; }
    void SetTraceMask(unsigned int mask) { TraceMask = mask; }

    /// Writes the lines from now on; an empty function means standard error, as at the start. Gives the former one.
    Sink SetSink(Sink sink);
    void WriteLine(const QString &line);

    /// Handles the exceptions from now on, in place of writing them as a line; not owned. Null means the own handler.
    void SetInterface(IErrorHandler *handler);
    /// How many exceptions the own handler has taken.
    int GetExceptionCount() const { return ExceptionCount; }

private:
    class LineHandler;

    ErrorHandler();
    ~ErrorHandler();

    unsigned int TraceMask = 0;
    int ExceptionCount = 0;
    Sink LineSink;
    std::unique_ptr<IErrorHandler> OwnHandler;
    IErrorHandler *Handler;
};
