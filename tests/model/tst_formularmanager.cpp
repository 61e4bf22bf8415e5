// Many forms in one place: built on demand, one current, with shared settings.

#include "forms.h"
#include "orbelformularmanager.h"
#include "orbelsheetui.h"
#include "rows.h"
#include "testmain.h"
#include "translationcenter.h"
#include "tree.h"

#include <QCheckBox>
#include <QLineEdit>
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
        QVERIFY(manager.ShowFormular("Form 03/x"));
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
        manager.SetCurrentModified(false);
        QVERIFY(two->GetSheet().isModified());
        QVERIFY(!manager.isWidgetModified());
        QVERIFY2(!two->GetSheet().isModified(), "a mark with nothing behind it is cleared");
        manager.SetXmlString("<Parameters><a>false</a></Parameters>");
        QVERIFY(manager.GetXmlString(false).contains("<a>false</a>"));

        QVERIFY(!manager.ShowFormular("none"));
        QVERIFY(two->GetGUI()->isHidden() && manager.GetCurrentName().isEmpty());
    }

    void aHandlerMayResetOrShowAnother_data()
    {
        QTest::addColumn<bool>("reset");
        AddRow("reset", true);
        AddRow("show another", false);
    }

    void aHandlerMayResetOrShowAnother()
    {
        QFETCH(bool, reset);
        OrbelFormularManager manager;
        manager.EnableApplyUi(false);
        for (const char *name : {"one", "two", "three"}) {
            manager.DefineFormular(
                name, Definition(Widget("t", "LineEdit", {"generateParameterXml=Bool:true", "visible=Bool:true"})));
            manager.GetFormular(name);
        }
        manager.ShowFormular("one");
        QWidget *window = manager.GetCurrentFormular()->GetGUI();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        auto *edit = window->findChild<QLineEdit *>("t");
        edit->setFocus();
        QTest::keyClicks(edit, "typed");
        manager.GetXmlString(false);
        bool first = true;
        connect(&manager, &OrbelFormularManager::si_parametersModified, [&] {
            if (!first)
                return;
            first = false;
            reset ? manager.Reset() : void(manager.ShowFormular("two"));
        });
        // Hiding the form takes the focus from the field, which then commits.
        QCOMPARE(manager.ShowFormular("three"), !reset);
        QVERIFY2(!first, "the commit was announced");
        QCOMPARE(manager.GetCurrentName(), reset ? QString() : QString("three"));
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

    void addedFormsAreKeptAsTheyAre()
    {
        OrbelFormularManager manager;
        Form form = Parse(OneCheck());
        form->SetName("added");
        manager.AddFormular(form.data());
        QVERIFY(manager.GetNames().isEmpty() && Tree::Instance()->GetPaths().isEmpty());
        QCOMPARE(manager.GetFormular("added").data(), form.data());
        QVERIFY2(manager.ShowFormular("added"), "a form without controls is current all the same");
    }

    void valuesWithoutACurrentForm()
    {
        OrbelFormularManager manager;
        ValueString a("a", ekStateUsable);
        a.SetValue("x", nullptr);
        manager.GetVTValues({&a}, nullptr, false);
        QCOMPARE(a.GetValue(), QString("x"));
        manager.GetVTValues({&a}, nullptr, true);
        QCOMPARE(a.GetValue(), QString());
        QVERIFY(!manager.SetVTValue(&a, nullptr));
        QCOMPARE(manager.GetXmlString(false) + manager.GetEmptyXmlElement(), QString());
        manager.DefineFormular("one", OneCheck());
        manager.GetFormular("one");
        manager.ShowFormular("one");
        ValueBoolean local("a", ekStateUsable);
        local.SetValue(true, nullptr);
        QVERIFY(manager.SetVTValue(&local, nullptr));
        QVERIFY(!manager.SetVTValue(&local, nullptr));
    }
};

ORBEL_TEST_MAIN(TestFormularManager)
#include "tst_formularmanager.moc"
