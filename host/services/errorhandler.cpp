#include "errorhandler.h"

#include "lxexception.h"

#include <cstdio>
#include <limits>
#include <utility>

/// Writes a reported exception as one line.
class ErrorHandler::LineHandler : public IErrorHandler
{
public:
    void TakeException(const LxException &) override { ++Instance().ExceptionCount; }
    void ReportException(const LxException &exception, int, unsigned int code, int, int) override
    {
        constexpr unsigned int none = std::numeric_limits<unsigned int>::max();
        const unsigned int told = code == none ? exception.GetCode() : code;
        QString line = QStringLiteral("Exception in %1::%2: %3 (%4:%5)")
                           .arg(exception.GetClassName(), exception.GetMethod(), exception.GetMessage(),
                               exception.GetSourceFile(), QString::number(exception.GetLine()));
        if (told != none)
            line += QStringLiteral(" code %1").arg(told);
        Instance().WriteLine(line);
    }
};

static void WriteToStandardError(const QString &line)
{
    std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
    // The next thing may be a crash.
    std::fflush(stderr);
}

ErrorHandler::ErrorHandler()
    : LineSink(WriteToStandardError), OwnHandler(std::make_unique<LineHandler>()), Handler(OwnHandler.get())
{
}

ErrorHandler::~ErrorHandler() = default;

ErrorHandler &ErrorHandler::Instance()
{
    // Never destroyed: what ends last may still have something to tell.
    static ErrorHandler *const instance = new ErrorHandler;
    return *instance;
}

IErrorHandler *ErrorHandler::Interface()
{
    return Instance().Handler;
}

ErrorHandler::Sink ErrorHandler::SetSink(Sink sink)
{
    return std::exchange(LineSink, sink ? std::move(sink) : Sink(WriteToStandardError));
}

void ErrorHandler::WriteLine(const QString &line)
{
    // A copy, since the sink may put another one in its place.
    const Sink sink = LineSink;
    sink(line);
}

void ErrorHandler::SetInterface(IErrorHandler *handler)
{
    Handler = handler ? handler : OwnHandler.get();
}
