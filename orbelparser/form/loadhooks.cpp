#include "loadhooks.h"

#include "translationcenter.h"

#include <QtGlobal>

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
        // Meant: the first context registered is translated first, so a later one of the same name never shows.
        for (const char *context : Contexts)
            TranslationCenter::Instance().Unregister(QLatin1String(context));
    }
};

const LoadHooks Hooks;

} // namespace

void KeepLoadHooks()
{
#ifdef ORBEL_STATIC
    Q_INIT_RESOURCE(orbelparser);
#ifdef ORBEL_HAS_CATALOGUES
    Q_INIT_RESOURCE(orbelcatalogues);
#endif
#endif
}
