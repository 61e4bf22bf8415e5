#include "createinstance.h"

#include "errorhandler.h"
#include "lxexception.h"
#include "trace.h"

#include <limits>

namespace KV218
{

namespace
{

constexpr const char *SourceName = "loadinterface";
constexpr unsigned int AllBits = std::numeric_limits<unsigned int>::max();

void HandOver(const LxException &exception)
{
    IErrorHandler *handler = ErrorHandler::Interface();
    handler->TakeException(exception);
    handler->ReportException(exception, 0, AllBits, 1, 0);
}

} // namespace

IDllInstance *CreateInstance(const std::function<IDllInstance *()> &construct)
{
    try {
        return construct();
    } catch (const LxException &exception) {
        TraceFailure(QStringLiteral("LxException caught in standard catch-block"), SourceName, __LINE__);
        HandOver(exception);
    } catch (const std::exception &exception) {
        TraceFailure(QStringLiteral("Standard C++ Exception caught in standard catch-block"), SourceName, __LINE__);
        HandOver(LxException(QString::fromUtf8(exception.what()), QLatin1String(SourceName), QStringLiteral("class"),
            QStringLiteral("method"), __LINE__, AllBits));
    }
    return nullptr;
}

} // namespace KV218
