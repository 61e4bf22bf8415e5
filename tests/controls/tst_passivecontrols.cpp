// Label, headline, gaps and push button.

#include "liveform.h"
#include "orbelpushbutton.h"

namespace
{

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

} // namespace

class TestPassiveControls : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
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

    void marginsOutliveTitleFontAndStyle()
    {
        LiveForm live(Widget("first", "CheckBox")
            + Widget("h", "Headline", {"text=String:a title as wide as the window", "margin=Int:40"})
            + Widget("s", "Separator", {"margin=Int:41"}));
        live.form->GetSheet().SetFontSize(20);
        live.Find<QGroupBox>("h")->setTitle("another title as wide as the window");
        QCOMPARE(live.Find("h")->contentsMargins(), QMargins(0, 40, 0, 0));
        QCOMPARE(live.Find("s")->contentsMargins(), QMargins(0, 21, 0, 0));
        // Only in its own column: at the top of a new one the gap does not count.
        live.window->resize(200, 600);
        QTRY_VERIFY(live.Find("h")->y() >= 40);
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
};

ORBEL_TEST_MAIN(TestPassiveControls)
#include "tst_passivecontrols.moc"
