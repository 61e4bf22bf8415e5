#include "loadinterface.h"

#include "errorhandler.h"
#include "lxexception.h"
#include "orbeltest.h"
#include "trace.h"
#include "translationcenter.h"

#include <limits>

namespace
{

constexpr unsigned int AllBits = std::numeric_limits<unsigned int>::max();

constexpr const char *Contexts[] = {
    "OrbelParser",
    "OrbelTranslationsZLN",
    "OrbelTranslationsYBC",
    "OrbelTranslations",
    "HQRTTranslations",
    "GeneralSettings",
    "ScanSettings",
    "TMR807AudioSettings",
    "TMR807DFSettings",
    "TMR807FFTSettings",
    "TMR807ScanSettings",
    "TMR807TunerSettings",
    "SignalDescriptionsComponent",
};

/// Registers the library's translation contexts while it is loaded. An object, and not a pair of functions that the
/// loader calls, because at the end of the process those run when the translation centre has gone already.
struct LoadHooks {
    LoadHooks()
    {
        for (const char *context : Contexts)
            TranslationCenter::Instance().Register(QLatin1String(context));
    }
    ~LoadHooks()
    {
        // Meant: in the order of registration, not in the reverse one.
        for (const char *context : Contexts)
            TranslationCenter::Instance().Unregister(QLatin1String(context));
    }
};

const LoadHooks Hooks;

void HandOver(const LxException &exception)
{
    IErrorHandler *handler = ErrorHandler::Interface();
    handler->TakeException(exception);
    handler->ReportException(exception, 0, AllBits, 1, 0);
}

} // namespace

namespace KV218
{

IDllInstance *CreateInstance(const std::function<IDllInstance *()> &construct)
{
    try {
        return construct();
    } catch (const LxException &exception) {
        TraceFailure(QStringLiteral("LxException caught in standard catch-block"), "loadinterface", __LINE__);
        HandOver(exception);
    } catch (const std::exception &exception) {
        TraceFailure(
            QStringLiteral("Standard C++ Exception caught in standard catch-block"), "loadinterface", __LINE__);
        HandOver(LxException(QString::fromUtf8(exception.what()), QStringLiteral("loadinterface"),
            QStringLiteral("class"), QStringLiteral("method"), __LINE__, AllBits));
    }
    return nullptr;
}

} // namespace KV218

IDllInstance *LxCreate(const wchar_t *instanceName)
{
    return KV218::CreateInstance([instanceName] {
        return new KV218::OrbelTest(instanceName ? QString::fromWCharArray(instanceName) : QString());
    });
}

void LxDestroy(IDllInstance *instance)
{
    delete instance;
}
