#include "loadinterface.h"

#include "createinstance.h"
#include "orbeltest.h"
#include "translationcenter.h"

namespace
{

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

} // namespace

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
