// The row of a script file: what its buttons tell, and what definition, script and host make of them.

#include "liveform.h"
#include "testmain.h"

#include <QtTest>

using namespace KV218;
using namespace forms;

namespace
{

const QStringList AllOn{"enabledClear=Bool:true", "enabledEdit=Bool:true", "enabledLoad=Bool:true",
    "visibleClear=Bool:true", "visibleEdit=Bool:true", "visibleLoad=Bool:true"};

/// What the operator finds: each button that shows, in brackets when it is disabled; a lamp that is lit begins with "*".
QString Row(const LiveForm &live)
{
    QStringList row;
    const auto *lamp = live.Find<QLabel>("sStatusLabel");
    if (lamp->isVisible())
        row << (lamp->toolTip() == "Script loaded" ? "*lamp" : "lamp");
    for (const char *name : {"s_LoadButton", "s_EditButton", "sClearButton"}) {
        const auto *button = live.Find<QPushButton>(name);
        if (button->isVisible())
            row << (button->isEnabled() ? name + 1 : QString("(%1)").arg(name + 1));
    }
    return row.join(' ');
}

} // namespace

class TestScriptControl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void states_data()
    {
        QTest::addColumn<QStringList>("properties");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("row");
        const QString all("lamp _LoadButton _EditButton ClearButton");
        const QStringList shown = AllOn.mid(3), clear{"enabledClear=Bool:true", "visibleClear=Bool:true"};
        QTest::newRow("all stated: Clear is usable without a script") << AllOn << "" << all;
        QTest::newRow("absent ones lock or hide") << clear << "" << "lamp ClearButton";
        QTest::newRow("absent ones lock") << shown << "" << "lamp (_LoadButton) (_EditButton) (ClearButton)";
        QTest::newRow("loaded") << shown << "s.setCustomProperty('scriptloaded', true)"
                                << "*lamp (_LoadButton) (_EditButton) ClearButton";
        QTest::newRow("loaded and forgotten: Clear locks")
            << AllOn << "s.setCustomProperty('scriptloaded', true); s.setCustomProperty('scriptloaded', false)"
            << "lamp _LoadButton _EditButton (ClearButton)";
        QTest::newRow("another custom property") << AllOn << "s.setCustomProperty('loaded', true)" << all;
        QTest::newRow("Clear is usable until the next refresh")
            << shown << "s.setEnabledClear(true)" << "lamp (_LoadButton) (_EditButton) ClearButton";
        QTest::newRow("the same state again refreshes nothing")
            << AllOn << "s.setCustomProperty('scriptloaded', true); s.setEnabledClear(false);"
                        "s.setCustomProperty('scriptloaded', true)"
            << "*lamp _LoadButton _EditButton (ClearButton)";
        QTest::newRow("slots act on the buttons alone")
            << AllOn << "s.setEnabledLoad(false); s.setVisibleEdit(false); s.setVisibleClear(false);"
                        "s.setCustomProperty('untouched', s.enabledLoad && s.visibleEdit)"
            << "lamp (_LoadButton)";
        QTest::newRow("properties act too") << AllOn << "s.enabledEdit = false; s.visibleLoad = false"
                                            << "lamp (_EditButton) ClearButton";
        QTest::newRow("a hidden row keeps its lamp") << AllOn << "s.setVisible(false)" << "lamp";
        QTest::newRow("shown again, all buttons show") << QStringList() << "s.setVisible(false); s.setVisible(true)"
                                                       << "lamp (_LoadButton) (_EditButton) (ClearButton)";
        QTest::newRow("locked as a whole") << AllOn << "s.setEnabled(false)"
                                           << "lamp (_LoadButton) (_EditButton) (ClearButton)";
    }

    void states()
    {
        QFETCH(QStringList, properties);
        QFETCH(QString, script);
        LiveForm live(Widget("s", "ScriptControl", properties));
        live.form->EvaluateScript(script);
        QTEST(Row(live), "row");
        if (live.Get("s")->customProperty("untouched").isValid())
            QVERIFY(live.Get("s")->customProperty("untouched").toBool());
    }

    void beforeTheRowExists()
    {
        const Form form = Bind(Definition(Widget("s", "ScriptControl", AllOn),
            "<Script>s.setEnabledLoad(false); s.setVisibleEdit(false); s.setCustomProperty('scriptloaded', true)</Script>"));
        form->CreateGUI(false);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        QVERIFY(window->findChild<QPushButton *>("s_LoadButton")->isEnabled());
        QVERIFY(!window->findChild<QPushButton *>("s_EditButton")->isHidden());
        QCOMPARE(window->findChild<QLabel *>("sStatusLabel")->toolTip(), QString("NO Script loaded"));
        QVERIFY2(Delegate(form, "s")->customProperty("scriptloaded").toBool(), "told before, kept here alone");
    }

    void textsAndPictures()
    {
        const ContextTranslator names("s"), texts("KV218::OrbelScriptControl");
        LiveForm live(Widget("s", "ScriptControl", AllOn + QStringList{"labelText=String:Demod", "visible=Bool:true"}));
        const auto *lamp = live.Find<QLabel>("sStatusLabel");
        QCOMPARE(lamp->toolTip(), QString("KV218::OrbelScriptControl:NO Script loaded"));
        const QImage off = lamp->pixmap(Qt::ReturnByValue).toImage();
        live.Get("s")->setCustomProperty("scriptloaded", true);
        QCOMPARE(lamp->toolTip(), QString("KV218::OrbelScriptControl:Script loaded"));
        const QImage on = lamp->pixmap(Qt::ReturnByValue).toImage();
        QVERIFY(!on.isNull() && on.size() == off.size() && on != off);

        QCOMPARE(live.Find<QPushButton>("s_LoadButton")->minimumWidth(), 80);
        const QMap<QString, QString> tips{
            {"s_LoadButton", "Load s:Demod"}, {"s_EditButton", "Edit s:Demod"}, {"sClearButton", "Clear s:Demod"}};
        for (auto tip = tips.cbegin(); tip != tips.cend(); ++tip) {
            const auto *button = live.Find<QPushButton>(tip.key());
            QCOMPARE(button->toolTip(), tip.value());
            QCOMPARE(button->icon().pixmap(64).width(), 64);
        }
        live.Get("s")->setProperty("toolTip", "own");
        for (const QString &name : tips.keys())
            QCOMPARE(live.Find(name)->toolTip(), QString("own"));
        for (const char *picture : {"ON", "OFF"}) {
            const QString path = QString(":/OrbelParser/Loaded_%1%2.png").arg(picture);
            QCOMPARE(QImage(path.arg("@2x")).size(), QImage(path.arg("")).size() * 2);
        }
    }

    void clicksAreTold()
    {
        LiveForm live(Widget("s", "ScriptControl", AllOn + QStringList{"generateParameterXml=Bool:true"}));
        live.log.Watch("s", live.Get("s"));
        for (const char *name : {"s_LoadButton", "s_EditButton", "sClearButton"})
            QTest::mouseClick(live.Find(name), Qt::LeftButton);
        QCOMPARE(live.log.Take(), QString("s.loadScriptClicked() s.editScriptClicked() s.clearScriptClicked()"));
        QVERIFY(!live.Get("s")->isModified());
        live.form.reset();
        QTest::mouseClick(live.Find("s_LoadButton"), Qt::LeftButton);
        QCOMPARE(live.log.Take(), QString());
    }
};

ORBEL_TEST_MAIN(TestScriptControl)
#include "tst_scriptcontrol.moc"
