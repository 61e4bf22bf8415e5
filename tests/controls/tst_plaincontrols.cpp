// Check box and line edit, label, headline, gaps, button and script row: what operator, script, node, document and host
// each cause.

#include "orbelpushbutton.h"
#include "story.h"

namespace
{

const QString Written("generateParameterXml=Bool:true");

const QStringList RowButtons{"s_LoadButton", "s_EditButton", "sClearButton"};
const QStringList RowShown{"visibleClear=Bool:true", "visibleEdit=Bool:true", "visibleLoad=Bool:true"};
const QStringList AllOn
    = RowShown + QStringList{"enabledClear=Bool:true", "enabledEdit=Bool:true", "enabledLoad=Bool:true"};

/// What the operator finds: a lit lamp as "*", then each button that shows, in brackets when it is disabled.
QString Row(const LiveForm &live)
{
    QStringList row;
    const auto *lamp = live.Find<QLabel>("sStatusLabel");
    row << (!lamp->isVisible() ? "none" : lamp->toolTip() == "Script loaded" ? "*" : "-");
    for (const QString &name : RowButtons) {
        const auto *button = live.Find<QPushButton>(name);
        if (button->isVisible())
            row << QString(button->isEnabled() ? "%1" : "(%1)").arg(name.mid(1).remove('_').remove("Button"));
    }
    return row.join(' ');
}

} // namespace

class TestPlainControls : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void stories_data()
    {
        const auto row = Stories();
        const QString group = Widget("a", "CheckBox", {"visible=Bool:true"})
            + Widget("gap", "Separator", {"visible=Bool:true"}) + Widget("b", "CheckBox", {"visible=Bool:true"});
        // clang-format off
        row("check box", Widget("c", "CheckBox", {Written}), {
            "script c.setChecked(true) => c=true",
            "node c=false => c.toggled(false) c=false",
            "wait => sheet.si_parametersModified()",
            "click c => c.toggled(true) c=true",
            "ask c.checked => true",
            "wait => sheet.si_parametersModified()"});
        row("line edit", Widget("e", "LineEdit", {Written, "text=String:x", "maxLength=Int:4", "inputMask=String:nnnn"}), {
            "see e.inputMask => nnnn",
            "script e.setInputMask(''); e.setMaxLength(3); e.setFocus()",
            "press End",
            "type yzz => e.textEdited(xy) e.textChanged(xy) e.textEdited(xyz) e.textChanged(xyz)",
            "modified e => yes",
            "wait =>",
            "written => <e>x</e>",
            "press Return => e=xyz e.textEdited(xyz) e.editingFinished() e.returnPressed() sheet.si_parametersModified()",
            "fetch",
            "press Return => e.returnPressed()",
            "press Backspace",
            "script e.forceFinishEditing() => e=xy e.textEdited(xy) e.editingFinished()",
            "wait => sheet.si_parametersModified()"});
        row("a label is fed by its node and never feeds it", Widget("l", "Label", {Written, "text=String:a"}), {
            "script l.setText('b')",
            "see l.text => b", "hold l => a", "written => <l>b</l>",
            "document <l>c</l>",
            "see l.text => c", "hold l => a",
            "node l=c",
            "modified l => no",
            "node l=d",
            "modified l => yes", "see l.text => d"});
        row("a label without parameter is read", Widget("l", "Label"), {"document <l>b</l>", "see l.text => b", "written =>"});
        row("a headline collapses its group",
            Widget("before", "CheckBox") + Widget("h", "Headline", {"text=String:One", "enabled=Bool:false"}) + group + Widget("next", "Headline", {"text=String:Two"}) + Widget("after", "CheckBox") + Widget("empty", "Headline"), {
            "see h.title h.toolTip h.enabled h.checked => One|Hide One|true|true",
            "script h.setText('Uno'); h.setMargin(40); empty.setGroupVisible(false)",
            "see h.title h.toolTip => One|Hide One",
            "click h",
            "shown before h a gap b next after => before|h|-|-|-|next|after",
            "see h.toolTip h.checked => Show Uno|false",
            "click h", "click next",
            "shown before h a gap b next after => before|h|a|gap|b|next|-",
            "see h.toolTip h.checked next.checked => Hide Uno|true|false"});
        const QStringList late{"script w.setHeight(90); w.setMargin(90)"};
        row("gap", Widget("w", "FixedSpacer", {"height=Int:12", "margin=Int:30", "toolTip=String:tip"}), late + QStringList("see w.maximumHeight w.toolTip => 12|tip"));
        row("separator without a margin", Widget("w", "Separator", {"toolTip=String:tip"}), late + QStringList("see w.maximumHeight w.toolTip w.checkable => 5|tip|false"));
        row("separator", Widget("w", "Separator", {"margin=Int:7", "height=Int:30"}), late + QStringList("see w.maximumHeight => 8"));
        row("button", Widget("p", "PushButton", {"text=String:a", "toolTip=String:tip", "icon=String:none.png", "readOnly=Bool:true"}), {
            "script p.setText('b')",
            "see p.text p.toolTip => b|a",
            "click p => p.pressed() p.released() p.clicked()"});
        // clang-format on
    }
    void stories() { PlayStory(); }

    void aButtonShowsItsIcon()
    {
        LiveForm live(Widget("p", "PushButton", {"iconSize=String:9"}));
        auto *button = live.Find<QPushButton>("p");
        auto *p = live.Get<OrbelPushButton>("p");
        live.form->EvaluateScript("p.setIconSize(5, 6); p.setIcon(':/OrbelParser/HeadlineOpened.svg')");
        QCOMPARE(button->iconSize(), QSize(5, 6));
        QVERIFY(!button->icon().isNull());
        QPixmap pixmap(8, 8);
        const QIcon icons[] = {QIcon(pixmap), QIcon(pixmap)};
        for (const QIcon &icon : icons) {
            p->setIcon(icon);
            p->clearIcon();
            QVERIFY(!p->property("icon").isValid());
            QCOMPARE(button->icon().cacheKey(), icon.cacheKey());
        }
    }

    void scriptRow_data()
    {
        const auto row = Columns<QStringList, QString, QString>({"properties", "script", "row"});
        const QString load("s.setCustomProperty('scriptloaded', true);");
        const QString drop("s.setCustomProperty('scriptloaded', false);");
        // clang-format off
        row("all stated: Clear is usable without a script", AllOn, "", "- Load Edit Clear");
        row("absent ones hide", AllOn.mid(3), "", "-");
        row("absent ones lock", RowShown, "", "- (Load) (Edit) (Clear)");
        row("loaded", RowShown, load, "* (Load) (Edit) Clear");
        row("loaded and forgotten: Clear locks", AllOn, load + drop, "- Load Edit (Clear)");
        row("until the next refresh", RowShown, drop + "s.setEnabledClear(true)", "- (Load) (Edit) Clear");
        row("slots act on the buttons alone", AllOn, "s.setEnabledLoad(false); s.setVisibleEdit(false); s.setVisibleClear(!s.visibleEdit)", "- (Load)");
        row("a hidden row keeps its lamp", AllOn, "s.setVisible(false)", "-");
        row("shown again, all buttons show", AllOn.mid(3), "s.setVisible(false); s.setVisible(true)", "- Load Edit Clear");
        row("locked as a whole", AllOn, "s.setEnabled(false)", "- (Load) (Edit) (Clear)");
        // clang-format on
    }

    void scriptRow()
    {
        const auto [properties, script] = Fetch<QStringList, QString>({"properties", "script"});
        LiveForm live(Widget("s", "ScriptControl", properties));
        live.form->EvaluateScript(script);
        QTEST(Row(live), "row");
    }

    void scriptRowTextsAndPictures()
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
        for (const QString &name : RowButtons) {
            QCOMPARE(live.Find(name)->toolTip(), name.mid(1).remove('_').replace("Button", " s:Demod"));
            const auto *button = live.Find<QPushButton>(name);
            const QPixmap picture = button->icon().pixmap(live.window->windowHandle(), QSize(64, 64));
            QCOMPARE(picture.width(), 64 * button->devicePixelRatio());
        }
        live.log.Watch("s", live.Get("s"));
        for (const QString &name : RowButtons)
            live.Find<QPushButton>(name)->click();
        QCOMPARE(live.log.Take(), QString("s.loadScriptClicked() s.editScriptClicked() s.clearScriptClicked()"));
        live.Get("s")->setProperty("toolTip", "own");
        for (const QString &name : RowButtons)
            QCOMPARE(live.Find(name)->toolTip(), QString("own"));
    }
};

ORBEL_TEST_MAIN(TestPlainControls)
#include "tst_plaincontrols.moc"
