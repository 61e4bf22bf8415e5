// The library as a plug-in, found by name in its file.

#include "idllinstance.h"
#include "testcase.h"
#include "translationcenter.h"

namespace
{

const QStringList Contexts{"OrbelParser", "OrbelTranslationsZLN", "OrbelTranslationsYBC", "OrbelTranslations",
    "HQRTTranslations", "GeneralSettings", "ScanSettings", "TMR807AudioSettings", "TMR807DFSettings",
    "TMR807FFTSettings", "TMR807ScanSettings", "TMR807TunerSettings", "SignalDescriptionsComponent"};

using CreateFunction = IDllInstance *(*)(const wchar_t *);
using DestroyFunction = void (*)(IDllInstance *);

} // namespace

class TestPlugin : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void loadingAndUnloadingNamesTheContextsInOrder()
    {
        QStringList came;
        QStringList went;
        TranslationCenter::Instance().SetListener(
            [&](bool registered, const QString &name) { (registered ? came : went) << name; });
        for (int round = 0; round < 2; ++round) {
            QLibrary library(ORBEL_PLUGIN);
            QVERIFY2(library.load(), qPrintable(library.errorString()));
            QCOMPARE(came, Contexts);
            QVERIFY(went.isEmpty());
            const auto create = reinterpret_cast<CreateFunction>(library.resolve("LxCreate"));
            const auto destroy = reinterpret_cast<DestroyFunction>(library.resolve("LxDestroy"));
            QVERIFY(create && destroy);
            destroy(create(L"viewer"));
            qDeleteAll(QApplication::topLevelWidgets());
            QVERIFY(library.unload());
            QCOMPARE(went, Contexts);
            QVERIFY(TranslationCenter::Instance().GetRegistered().isEmpty());
            came.clear();
            went.clear();
        }
        TranslationCenter::Instance().SetListener({});
    }
};

ORBEL_TEST_MAIN(TestPlugin)

#include "tst_plugin.moc"
