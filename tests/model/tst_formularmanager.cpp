// Many forms in one place: built on demand, one current, with shared settings.

#include "forms.h"
#include "orbelformularmanager.h"
#include "orbelsheetui.h"
#include "rows.h"
#include "testmain.h"
#include "translationcenter.h"
#include "tree.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QtTest>

using namespace KV218;
using namespace forms;

namespace
{

QString OneCheck(const QString &properties = QString())
{
    return Definition("<Properties>" + properties + "</Properties>"
        + Widget("a", "CheckBox", {"generateParameterXml=Bool:true", "visible=Bool:true", "enabled=Bool:true"}));
}

} // namespace

class TestFormularManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void onlyWhatIsAskedForIsBuilt()
    {
        const QStringList registered = TranslationCenter::Instance().GetRegistered();
        OrbelFormularManager manager;
        manager.SetVTPath("/Rx//");
        for (int i = 0; i < 50; ++i)
            manager.DefineFormular(QString("Form %1/x").arg(i, 2, 10, QChar('0')), OneCheck());
        manager.DefineFormular("broken", "<none/>");
        QCOMPARE(manager.GetNames().size(), 51);
        QVERIFY(Tree::Instance()->GetPaths().isEmpty());

        auto form = manager.GetFormular("Form 07/x");
        QCOMPARE(manager.GetFormular("Form 07/x").data(), form.data());
        QCOMPARE(form->GetName(), QString("Form 07/x"));
        QCOMPARE(Tree::Instance()->GetPaths(), QStringList("/Rx//Form07x/a"));
        QVERIFY(form->GetGUI()->isHidden());
        manager.DefineFormular("Form 07/x", "other");
        QCOMPARE(manager.GetOrbel("Form 07/x"), OneCheck());
        QVERIFY(!manager.GetFormular("broken"));
        manager.DefineFormular("broken", OneCheck());
        QVERIFY(manager.GetFormular("broken"));
        QVERIFY(!manager.GetFormular("unknown"));
        QVERIFY(TranslationCenter::Instance().GetRegistered().contains("broken"));

        for (const QString &name : manager.GetNames())
            QVERIFY(manager.GetFormular(name));
        QCOMPARE(Tree::Instance()->GetPaths().size(), 51);
        form.reset();
        manager.Reset();
        QCOMPARE(LeftOver(), QString());
        QCOMPARE(TranslationCenter::Instance().GetRegistered(), registered);
        QVERIFY(manager.GetNames().isEmpty() && !manager.GetFormular("Form 08/x") && !manager.GetCurrentFormular());
    }

    void oneFormIsCurrent()
    {
        OrbelFormularManager manager;
        QSignalSpy parameters(&manager, &OrbelFormularManager::si_parametersModified);
        manager.DefineFormular("one", OneCheck());
        manager.DefineFormular("two", OneCheck());
        QVERIFY2(!manager.ShowFormular("one"), "not built yet");
        const auto one = manager.GetFormular("one");
        const auto two = manager.GetFormular("two");
        QVERIFY(manager.ShowFormular("one"));
        QCOMPARE(manager.GetCurrentName(), QString("one"));
        QVERIFY(manager.ShowFormular("two"));
        QVERIFY(one->GetGUI()->isHidden() && two->GetGUI()->isVisible());

        one->GetGUI()->findChild<QCheckBox *>("a")->click();
        one->applyNow();
        QCOMPARE(parameters.size(), 0);
        two->GetGUI()->findChild<QCheckBox *>("a")->click();
        two->applyNow();
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
        const auto one = manager.GetFormular("one");
        manager.SetConfigObject(&configuration, "c");
        QCOMPARE(one->GetGUI()->font().pointSize(), 19);
        manager.DefineFormular("two", OneCheck());
        const auto two = manager.GetFormular("two");
        QVERIFY(two->GetGUI()->font().pointSize() != 19);
        manager.ShowFormular("two");
        QCOMPARE(two->GetGUI()->font().pointSize(), 19);
        configuration.setProperty("c-fontsize", 21);
        manager.RestoreConfiguration();
        QCOMPARE(two->GetGUI()->font().pointSize(), 21);
        QCOMPARE(one->GetGUI()->font().pointSize(), 19);
    }
};

ORBEL_TEST_MAIN(TestFormularManager)
#include "tst_formularmanager.moc"
