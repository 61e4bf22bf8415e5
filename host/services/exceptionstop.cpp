#include "exceptionstop.h"

#include "trace.h"

#include <exception>

static bool (*Question)() = nullptr;
static int Zones = 0;

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
    QString what = QStringLiteral("of an unknown kind");
    try {
        throw;
    } catch (const std::exception &exception) {
        what = QString::fromUtf8(exception.what());
    } catch (...) {
    }
    TraceFailure(QStringLiteral("Exception of an observer, which nobody can pass on: %1").arg(what), __FILE__, __LINE__);
    return true;
}
