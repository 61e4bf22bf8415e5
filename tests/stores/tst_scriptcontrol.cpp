// The row of a script file: what its buttons tell, and what definition, script and host make of them.

#include "liveform.h"

namespace
{

const QStringList Buttons{"s_LoadButton", "s_EditButton", "sClearButton"};
const QStringList Shown{"visibleClear=Bool:true", "visibleEdit=Bool:true", "visibleLoad=Bool:true"};
const QStringList AllOn
    = Shown + QStringList{"enabledClear=Bool:true", "enabledEdit=Bool:true", "enabledLoad=Bool:true"};

/// What the operator finds: a lit lamp as "*", then each button that shows, in brackets when it is disabled.
QString Row(const LiveForm &live)
{
    QStringList row;
    const auto *lamp = live.Find<QLabel>("sStatusLabel");
    row << (!lamp->isVisible() ? "none" : lamp->toolTip() == "Script loaded" ? "*" : "-");
    for (const QString &name : Buttons) {
        const auto *button = live.Find<QPushButton>(name);
        if (button->isVisible())
            row << QString(button->isEnabled() ? "%1" : "(%1)").arg(name.mid(1).remove('_').remove("Button"));
    }
    return row.join(' ');
}

} // namespace

class TestScriptControl : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void states_data()
    {
        const auto row = Columns<QStringList, QString, QString>({"properties", "script", "row"});
        const QString load("s.setCustomProperty('scriptloaded', true);");
        const QString drop("s.setCustomProperty('scriptloaded', false);");
        // clang-format off
        row("all stated: Clear is usable without a script", AllOn, "", "- Load Edit Clear");
        row("absent ones hide", AllOn.mid(3), "", "-");
        row("absent ones lock", Shown, "", "- (Load) (Edit) (Clear)");
        row("loaded", Shown, load, "* (Load) (Edit) Clear");
        row("loaded and forgotten: Clear locks", AllOn, load + drop, "- Load Edit (Clear)");
        row("until the next refresh", Shown, drop + "s.setEnabledClear(true)", "- (Load) (Edit) Clear");
        row("slots act on the buttons alone", AllOn, "s.setEnabledLoad(false); s.setVisibleEdit(false); s.setVisibleClear(!s.visibleEdit)", "- (Load)");
        row("a hidden row keeps its lamp", AllOn, "s.setVisible(false)", "-");
        row("shown again, all buttons show", AllOn.mid(3), "s.setVisible(false); s.setVisible(true)", "- Load Edit Clear");
        row("locked as a whole", AllOn, "s.setEnabled(false)", "- (Load) (Edit) (Clear)");
        // clang-format on
    }

    void states()
    {
        const auto [properties, script] = Fetch<QStringList, QString>({"properties", "script"});
        LiveForm live(Widget("s", "ScriptControl", properties));
        live.form->EvaluateScript(script);
        QTEST(Row(live), "row");
    }

    void whatComesBeforeTheRowIsForgotten()
    {
        const Form form = Bind(Definition(Widget("s", "ScriptControl", AllOn),
            "<Script>s.setEnabledLoad(false); s.setVisibleEdit(false);"
            "s.setCustomProperty('scriptloaded', true)</Script>"));
        form->CreateGUI(false);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        QVERIFY(window->findChild<QPushButton *>("s_LoadButton")->isEnabled());
        QVERIFY(!window->findChild<QPushButton *>("s_EditButton")->isHidden());
        QCOMPARE(window->findChild<QLabel *>("sStatusLabel")->toolTip(), QString("NO Script loaded"));
    }

    void textsAndPictures()
    {
        const ContextTranslator names("s"), texts("KV218::OrbelScriptControl");
        LiveForm live(Widget("s", "ScriptControl", AllOn + QStringList{"labelText=String:Demod"}));
        const auto *lamp = live.Find<QLabel>("sStatusLabel");
        QCOMPARE(lamp->toolTip(), QString("KV218::OrbelScriptControl:NO Script loaded"));
        const QImage off = lamp->pixmap(Qt::ReturnByValue).toImage();
        live.Get("s")->setCustomProperty("scriptloaded", true);
        QCOMPARE(lamp->toolTip(), QString("KV218::OrbelScriptControl:Script loaded"));
        const QImage on = lamp->pixmap(Qt::ReturnByValue).toImage();
        QVERIFY(!on.isNull() && on.size() == off.size() && on != off);
        QCOMPARE(on.devicePixelRatio(), lamp->devicePixelRatioF());
        QCOMPARE(live.Find("s_LoadButton")->minimumWidth(), 80);
        for (const QString &name : Buttons) {
            QCOMPARE(live.Find(name)->toolTip(), name.mid(1).remove('_').replace("Button", " s:Demod"));
            const auto *button = live.Find<QPushButton>(name);
            const QPixmap picture = button->icon().pixmap(live.window->windowHandle(), QSize(64, 64));
            QCOMPARE(picture.width(), 64 * button->devicePixelRatio());
        }
        live.log.Watch("s", live.Get("s"));
        for (const QString &name : Buttons)
            live.Find<QPushButton>(name)->click();
        QCOMPARE(live.log.Take(), QString("s.loadScriptClicked() s.editScriptClicked() s.clearScriptClicked()"));
        live.Get("s")->setProperty("toolTip", "own");
        for (const QString &name : Buttons)
            QCOMPARE(live.Find(name)->toolTip(), QString("own"));
    }
};

ORBEL_TEST_MAIN(TestScriptControl)
#include "tst_scriptcontrol.moc"
