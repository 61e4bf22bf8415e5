// Check box and line edit, label, headline, gaps, button and script row: what operator, script, node, document and host
// each cause.

#include "liveform.h"
#include "orbelpushbutton.h"

namespace
{

const QString Written("generateParameterXml=Bool:true");

void Click(QWidget *box)
{
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

/// A click on the indicator of a headline.
void Toggle(QGroupBox *headline)
{
    QStyleOptionGroupBox option;
    option.initFrom(headline);
    option.text = headline->title();
    option.subControls = QStyle::SC_GroupBoxCheckBox | QStyle::SC_GroupBoxLabel;
    option.textAlignment = headline->alignment();
    const QRect indicator
        = headline->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxCheckBox, headline);
    QTest::mouseClick(headline, Qt::LeftButton, {}, indicator.center());
}

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

    void boxChanges()
    {
        LiveForm live(Widget("c", "CheckBox", {Written}), false);
        ValueBase *node = live.form->GetVTValue("c");
        live.log.Watch("c", live.Get("c"));
        live.log.Watch("node", node);
        live.form->EvaluateScript("c.setChecked(true)");
        QCOMPARE(live.log.Take(), QString("node=true"));
        node->SetStringValue("false", nullptr);
        node->SetStringValue("false", nullptr);
        QCOMPARE(live.log.Take(), QString("c.toggled(false) sheet.si_parametersModified() node=false"));
        QVERIFY(!live.Find<QCheckBox>("c")->isChecked() && live.Get("c")->isModified());

        Click(live.Find("c"));
        QCOMPARE(live.log.Take(), QString("c.toggled(true) node=true"));
        QCOMPARE(live.Get("c")->property("checked"), QVariant(true));
        QTRY_COMPARE(live.log.Seen(), QString("sheet.si_parametersModified()"));
    }

    void editing()
    {
        LiveForm live(Widget("e", "LineEdit", {Written, "text=String:x", "maxLength=Int:4", "inputMask=String:nnnn"}));
        auto *edit = live.Find<QLineEdit>("e");
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        QCOMPARE(edit->inputMask(), QString("nnnn"));
        live.form->EvaluateScript("e.setInputMask(''); e.setMaxLength(3); e.setFocus()");
        QVERIFY(edit->hasFocus());
        live.log.Watch("e", live.Get("e"));
        live.log.Watch("node", live.form->GetVTValue("e"));

        QTest::keyClick(edit, Qt::Key_End);
        QTest::keyClicks(edit, "yzz");
        QCOMPARE(live.log.Take(), QString("e.textEdited(xy) e.textChanged(xy) e.textEdited(xyz) e.textChanged(xyz)"));
        QVERIFY(live.form->GetSheet().isModified());
        PassTimersBelow(200);
        QVERIFY2(live.log.Take().isEmpty(), "a keystroke starts no automatic apply");
        QVERIFY2(live.form->GetXmlString(false).contains("<e>x</e>"), "the document has the old text meanwhile");

        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(live.log.Take(),
            QString("node=xyz e.textEdited(xyz) e.editingFinished() e.returnPressed() sheet.si_parametersModified()"));
        QVERIFY(live.form->GetXmlString(true).contains("<e>xyz</e>"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(live.log.Take(), QString("e.returnPressed()"));

        QTest::keyClick(edit, Qt::Key_Backspace);
        live.log.Take();
        live.form->EvaluateScript("e.forceFinishEditing()");
        QCOMPARE(live.log.Take(), QString("node=xy e.textEdited(xy) e.editingFinished()"));
        PassTimersBelow(200);
        QCOMPARE(live.log.Take(), QString("sheet.si_parametersModified()"));
    }

    void labelIsFedByItsNodeAndNeverFeedsIt()
    {
        const ContextTranslator translator("l");
        LiveForm live(Widget("l", "Label", {"generateParameterXml=Bool:true", "text=String:a", "unit=String:m"}));
        auto *node = Tree::Instance()->GetNode("/Form/l");
        QVERIFY2(node && !live.form->GetVTValue("l"), "the form is not told of the node");
        QCOMPARE(live.Find<QLabel>("l")->text(), QString("l:a"));

        live.form->EvaluateScript("l.setText('b')");
        QCOMPARE(live.Find<QLabel>("l")->text() + node->GetStringValue(), QString("l:ba"));
        QVERIFY(live.form->GetXmlString(false).contains("<l>b</l>"));
        live.form->SetXmlString("<Parameters><l>c</l></Parameters>");
        QCOMPARE(live.Find<QLabel>("l")->text() + node->GetStringValue(), QString("l:ca"));
        node->SetStringValue("c", nullptr);
        QVERIFY2(!live.Get("l")->isModified(), "the text it shows already");
        node->SetStringValue("d", nullptr);
        QVERIFY(live.Get("l")->isModified());
        QCOMPARE(live.Find<QLabel>("l")->text(), QString("l:d"));

        LiveForm plain(Widget("l", "Label"), false, "/Plain");
        plain.form->SetXmlString("<Parameters><l>b</l></Parameters>");
        QCOMPARE(plain.Find<QLabel>("l")->text(), QString("l:b"));
        QVERIFY(!Tree::Instance()->GetNode("/Plain/l") && !plain.form->GetXmlString(false).contains("<l>"));
    }

    void headlineCollapsesItsGroup()
    {
        QObject configuration;
        const ContextTranslator translator("h");
        LiveForm live(Widget("before", "CheckBox") + Widget("h", "Headline", {"text=String:One", "enabled=Bool:false"})
            + Widget("a", "CheckBox", {"visible=Bool:true"}) + Widget("gap", "Separator", {"visible=Bool:true"})
            + Widget("b", "CheckBox", {"visible=Bool:true"}) + Widget("next", "Headline", {"text=String:Two"})
            + Widget("after", "CheckBox") + Widget("empty", "Headline"));
        live.form->SetConfigObject(&configuration, "f");
        auto *headline = live.Find<QGroupBox>("h");
        QVERIFY(!live.Find<QGroupBox>("empty") && headline->isEnabled() && headline->isChecked());
        QCOMPARE(headline->title(), QString("h:One"));
        QCOMPARE(headline->toolTip(), QString("h:Hide One"));
        live.form->EnableInput(false);
        live.form->EnableInput(true);
        QVERIFY2(headline->isEnabled(), "the lock of input does not touch it");
        live.form->EvaluateScript("h.setText('Uno'); h.setMargin(40); empty.setGroupVisible(false)");
        QCOMPARE(headline->title() + headline->toolTip(), QString("h:Oneh:Hide One"));

        Toggle(headline);
        const auto hidden = [&] {
            QStringList names;
            for (const char *name : {"before", "h", "a", "gap", "b", "next", "after"})
                names << (live.Find(name)->isHidden() ? name : "-");
            return names.join(' ');
        };
        QCOMPARE(hidden(), QString("- - a gap b - -"));
        QCOMPARE(headline->toolTip(), QString("h:Show Uno"));
        QCOMPARE(configuration.property("f-collapsed").toString(), QString("h,empty"));
        QVERIFY(!headline->isChecked() && !live.Get("h")->isGroupVisible());
        live.form->GetSheet().SetCollapsed({"next"});
        QVERIFY(headline->isChecked() && !live.Find<QGroupBox>("next")->isChecked());
        QCOMPARE(hidden() + headline->toolTip(), QString("- - - - - - afterh:Hide Uno"));
    }

    void gaps_data()
    {
        const auto row = Columns<QString, QStringList, int>({"className", "properties", "height"});
        row("gap", "FixedSpacer", {"height=Int:12", "margin=Int:30"}, 12);
        row("separator without a margin", "Separator", {}, 5);
        row("separator", "Separator", {"margin=Int:7", "height=Int:30"}, 8);
    }

    void gaps()
    {
        auto [className, properties] = Fetch<QString, QStringList>({"className", "properties"});
        LiveForm live(Widget("w", className, properties << "toolTip=String:tip") + Widget("c", "CheckBox"));
        live.form->EvaluateScript("w.setHeight(90); w.setMargin(90)");
        QTEST(live.Find("w")->maximumHeight(), "height");
        QCOMPARE(live.Find("w")->toolTip(), QString("tip"));
        const auto *headline = live.Find<QGroupBox>("w");
        QVERIFY(className == "Separator" ? headline && !headline->isCheckable() : !headline);
    }

    void buttonShowsTextAndIcon()
    {
        const ContextTranslator translator("p");
        LiveForm live(Widget("p", "PushButton",
            {"text=String:a", "toolTip=String:tip", "icon=String:none.png", "iconSize=String:9",
                "readOnly=Bool:true"}));
        auto *button = live.Find<QPushButton>("p");
        auto *p = live.Get<OrbelPushButton>("p");
        QCOMPARE(button->text() + button->toolTip(), QString("p:ap:a"));
        live.form->EvaluateScript("p.setText('b'); p.setIconSize(5, 6); p.setIcon(':/OrbelParser/HeadlineOpened.svg')");
        QCOMPARE(button->text() + button->toolTip(), QString("p:bp:a"));
        QCOMPARE(button->iconSize(), QSize(5, 6));
        QVERIFY(!button->icon().isNull());

        live.log.Watch("p", p);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(live.log.Take(), QString("p.pressed() p.released() p.clicked()"));
        QPixmap pixmap(8, 8);
        const QIcon icons[] = {QIcon(pixmap), QIcon(pixmap)};
        for (const QIcon &icon : icons) {
            p->setIcon(icon);
            QCOMPARE(button->icon().cacheKey(), icon.cacheKey());
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

    void whatComesBeforeTheScriptRowIsForgotten()
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
