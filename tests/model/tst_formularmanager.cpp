// Many forms in one place: built on demand, one current, with shared settings.

#include "forms.h"
#include "orbelformularmanager.h"
#include "orbelsheetui.h"
#include "translationcenter.h"
#include "tree.h"

namespace
{

QString OneCheck(const QString &properties = QString())
{
    return Definition("<Properties>" + properties + "</Properties>"
        + Widget("a", "CheckBox", {"generateParameterXml=Bool:true", "visible=Bool:true", "enabled=Bool:true"}));
}

} // namespace

class TestFormularManager : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatIsAskedForIsBuilt()
    {
        const QStringList registered = TranslationCenter::Instance().GetRegistered();
        OrbelFormularManager manager;
        manager.SetVTPath("/Rx//");
        for (const char *name : {"Form 06", "Form 07/x", "Form 08"})
            manager.DefineFormular(name, OneCheck());
        manager.DefineFormular("broken", "<none/>");
        QVERIFY(manager.GetNames().size() == 4 && Tree::Instance()->GetPaths().isEmpty());

        auto form = manager.GetFormular("Form 07/x");
        QCOMPARE(manager.GetFormular("Form 07/x").data(), form.data());
        QCOMPARE(form->GetName(), QString("Form 07/x"));
        QCOMPARE(Tree::Instance()->GetPaths(), QStringList("/Rx//Form07x/a"));
        QVERIFY(form->GetGUI()->isHidden());
        manager.DefineFormular("Form 07/x", "other");
        QCOMPARE(manager.GetOrbel("Form 07/x"), OneCheck());
        QVERIFY(!manager.GetFormular("broken") && !manager.GetFormular("unknown"));
        manager.DefineFormular("broken", OneCheck());
        QVERIFY(manager.GetFormular("broken"));
        QVERIFY(TranslationCenter::Instance().GetRegistered().contains("broken"));

        form.reset();
        manager.Reset();
        QCOMPARE(LeftOver(), QString());
        QCOMPARE(TranslationCenter::Instance().GetRegistered(), registered);
        QVERIFY(manager.GetNames().isEmpty() && !manager.GetFormular("Form 08") && !manager.GetCurrentFormular());
    }

    void oneFormIsCurrent()
    {
        OrbelFormularManager manager;
        const QSignalSpy parameters(&manager, &OrbelFormularManager::si_parametersModified);
        manager.DefineFormular("one", OneCheck());
        manager.DefineFormular("two", OneCheck());
        QVERIFY2(!manager.ShowFormular("one"), "not built yet");
        const auto one = manager.GetFormular("one"), two = manager.GetFormular("two");
        QVERIFY(manager.ShowFormular("one") && manager.GetCurrentName() == "one" && manager.ShowFormular("two"));
        QVERIFY(one->GetGUI()->isHidden() && two->GetGUI()->isVisible());
        for (const auto &form : {one, two}) {
            QCOMPARE(parameters.size(), 0);
            form->GetGUI()->findChild<QCheckBox *>("a")->click();
            form->applyNow();
        }
        QCOMPARE(parameters.size(), 1);
        QVERIFY(manager.isWidgetModified());
        QVERIFY(manager.GetXmlString(true).contains("<a>true</a>"));
        QVERIFY(!manager.isWidgetModified());
        manager.SetXmlString("<Parameters><a>false</a></Parameters>");
        QVERIFY(manager.GetXmlString(false).contains("<a>false</a>"));
        QVERIFY(!manager.ShowFormular("none"));
        QVERIFY(two->GetGUI()->isHidden() && manager.GetCurrentName().isEmpty());
    }

    void automaticApplyGoesAlong()
    {
        OrbelFormularManager manager;
        const QString off = "<Property name='autoApplyEnabled'><Bool>false</Bool></Property>";
        manager.DefineFormular("on", OneCheck());
        manager.DefineFormular("off", OneCheck(off));
        const auto on = manager.GetFormular("on");
        const auto offForm = manager.GetFormular("off");
        manager.ShowFormular("off");
        QVERIFY2(!offForm->GetSheet().isAutoApplyEnabled(), "the first form keeps its own setting");
        manager.ShowFormular("on");
        QVERIFY(!on->GetSheet().isAutoApplyEnabled());
        on->GetGUI()->findChild<QCheckBox *>("autoApply")->click();
        manager.ShowFormular("off");
        QVERIFY(offForm->GetSheet().isAutoApplyEnabled());
    }

    void configurationIsShared()
    {
        QObject configuration;
        configuration.setProperty("c-fontsize", 19);
        OrbelFormularManager manager;
        manager.DefineFormular("one", OneCheck());
        manager.DefineFormular("two", OneCheck());
        const auto one = manager.GetFormular("one");
        manager.SetConfigObject(&configuration, "c");
        const auto two = manager.GetFormular("two");
        const auto sizes = [&] {
            return QList<int>{one->GetGUI()->font().pointSize(), two->GetGUI()->font().pointSize()};
        };
        QCOMPARE(sizes(), (QList<int>{19, QApplication::font().pointSize()}));
        manager.ShowFormular("two");
        QCOMPARE(sizes(), (QList<int>{19, 19}));
        configuration.setProperty("c-fontsize", 21);
        manager.RestoreConfiguration();
        QCOMPARE(sizes(), (QList<int>{19, 21}));
    }
};

ORBEL_TEST_MAIN(TestFormularManager)
#include "tst_formularmanager.moc"
