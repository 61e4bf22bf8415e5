// The library as a plug-in, found by name in its file.

#include "idllinstance.h"
#include "testmain.h"
#include "translationcenter.h"

#include <QCheckBox>
#include <QLibrary>
#include <QMainWindow>
#include <QtTest>

namespace
{

const QStringList Contexts{"OrbelParser", "OrbelTranslationsZLN", "OrbelTranslationsYBC", "OrbelTranslations",
    "HQRTTranslations", "GeneralSettings", "ScanSettings", "TMR807AudioSettings", "TMR807DFSettings",
    "TMR807FFTSettings", "TMR807ScanSettings", "TMR807TunerSettings", "SignalDescriptionsComponent"};

using CreateFunction = IDllInstance *(*)(const wchar_t *);
using DestroyFunction = void (*)(IDllInstance *);

QMainWindow *FindWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *window = qobject_cast<QMainWindow *>(widget))
            return window;
    }
    return nullptr;
}

} // namespace

class TestPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// Comes first: after a form was shown, the library must stay.
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
            delete FindWindow();
            QVERIFY(library.unload());
            QCOMPARE(went, Contexts);
            QVERIFY(TranslationCenter::Instance().GetRegistered().isEmpty());
            came.clear();
            went.clear();
        }
        TranslationCenter::Instance().SetListener({});
    }

    void frameShowsAFormThroughThePluginAlone()
    {
        QLibrary library(ORBEL_PLUGIN);
        const auto create = reinterpret_cast<CreateFunction>(library.resolve("LxCreate"));
        const auto destroy = reinterpret_cast<DestroyFunction>(library.resolve("LxDestroy"));
        QVERIFY(create && destroy);
        IDllInstance *viewer = create(L"viewer");
        QVERIFY(viewer);
        const QByteArray path = ORBEL_EXAMPLES_DIR "/forms/receiver.orbel";
        const char *arguments[] = {"", "", "", "", path.constData()};
        QVERIFY(viewer->Init(5, arguments));
        QMainWindow *window = FindWindow();
        QVERIFY(window && window->isVisible());
        QVERIFY(window->findChild<QCheckBox *>("preamplifier"));
        destroy(viewer);
        QVERIFY2(window->isVisible(), "the window stays when the viewer goes");
        delete window;
    }
};

ORBEL_TEST_MAIN(TestPlugin)

#include "tst_plugin.moc"
