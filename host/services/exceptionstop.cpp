#include "exceptionstop.h"

#include "trace.h"

#include <exception>

static bool (*Question)() = nullptr;

void ExceptionStop::Ask(bool (*question)())
{
    Question = question;
}

bool ExceptionStop::EndsHere()
{
    if (!Question || !Question())
        return false;
    QString what = QStringLiteral("of an unknown kind");
    try {
        throw;
    } catch (const std::exception &exception) {
        what = QString::fromUtf8(exception.what());
    } catch (...) {
    }
    TraceFailure(QStringLiteral("Exception of an observer, which a script cannot pass on: %1").arg(what), __FILE__, __LINE__);
    return true;
}
