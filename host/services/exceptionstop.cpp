#include "exceptionstop.h"

#include "trace.h"

#include <exception>

namespace Orbel
{

static bool (*Question)() = nullptr;
static int Zones = 0;

/// The text of the exception that is being handled.
static QString TextOfException()
{
    try {
        throw;
    } catch (const std::exception &exception) {
        return QString::fromUtf8(exception.what());
    } catch (...) {
        return QStringLiteral("of an unknown kind");
    }
}

void ExceptionStop::Ask(bool (*question)())
{
    Question = question;
}

ExceptionStop::Zone::Zone(bool there) : There(there)
{
    Zones += There;
}

ExceptionStop::Zone::~Zone()
{
    Zones -= There;
}

bool ExceptionStop::EndsHere()
{
    if (Zones == 0 && !(Question && Question()))
        return false;
    if (ErrorHandler::Instance().GetTraceMask() & ekTraceFailure)
        _Q_Trace(QStringLiteral("Exception of an observer, which nobody can pass on: ") + TextOfException(),
            QString::fromLocal8Bit(__FILE__), __LINE__);
    return true;
}

} // namespace Orbel
