// What a host's test can do with a form, and what it is told when that cannot be done.

#include "formtest.h"
#include "liveform.h"

namespace
{

using Orbel::FormTest;
using Orbel::Session;
using Act = void (*)(FormTest &);

/// What failed while it lives.
struct Failures {
    Failures()
    {
        Orbel::SetFailureHandler([this](const QString &text, const Orbel::CallSite &at) {
            Texts << text;
            IsHere &= QString(at.File).endsWith("tst_testsupport.cpp") && at.Line > 0;
        });
    }
    ~Failures() { Orbel::SetFailureHandler(nullptr); }

    QStringList Texts;
    bool IsHere = true;
};

Orbel::Opening AllClasses()
{
    return Session::OpenFile(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel");
}

Orbel::Opening Small(const QString &script = {})
{
    return Session::OpenText(Definition(Labelled("gain", "SpinBox", {"value=Int:5", "maximum=Int:60"})
            + Labelled("mode", "ComboBox", {"enumName=String:Modes"})
            + Labelled("off", "CheckBox", {"enabled=Bool:false"})
            + Labelled("fixed", "LineEdit", {"readOnly=Bool:true"})
            + Labelled("t", "ChannelSpacingTable", {"spacingsCount=Int:2"}) + Labelled("box", "CheckBox")
            + Labelled("head", "Headline", {"text=String:Group"}) + Labelled("inside", "LineEdit"),
        "<Script>" + script + "</Script>")
                                 .replace("<Sheet", Enum("Modes", "AM=1 FM=2") + "<Sheet")
                                 .toUtf8());
}

} // namespace

Q_DECLARE_METATYPE(Act)

class TestTestSupport : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void anOperatorActs_data()
    {
        const auto row = Columns<Act, QString>({"act", "changes"});
        // clang-format off
        row("a text", [](FormTest &form) { form.Enter("All/LineEdit", "north"); }, "All/LineEdit: ANT 1 -> north");
        row("by the widget's name", [](FormTest &form) { form.Enter("lineEdit", "north"); }, "All/LineEdit: ANT 1 -> north");
        row("by the name of the element", [](FormTest &form) { form.Enter("LineEdit", "north"); }, "All/LineEdit: ANT 1 -> north");
        row("typed and left", [](FormTest &form) { form.Type("LineEdit", "north"); form.Press("Tab"); }, "All/LineEdit: ANT 1 -> north");
        row("typed and taken back", [](FormTest &form) { form.Type("LineEdit", "north"); form.Press("Escape"); }, "");
        row("typed on", [](FormTest &form) { form.Focus("LineEdit"); form.Press("End"); form.TypeOn("23"); form.Press("Return"); }, "All/LineEdit: ANT 1 -> ANT 123");
        row("a check box", [](FormTest &form) { form.Check("CheckBox", false); form.Check("CheckBox", false); }, "All/CheckBox: on -> off");
        row("a choice", [](FormTest &form) { form.Choose("ComboBox", form.Choices("ComboBox").last()); }, "All/ComboBox: FM -> Lower sideband");
        row("the wheel", [](FormTest &form) { form.Wheel("SpinBox", 2); }, "All/SpinBox: 12 dB -> 14 dB");
        row("the large frequency", [](FormTest &form) { form.Enter("FrequencyEdit", "7 MHz"); }, "All/FrequencyEdit: 145.500 000 MHz -> 7.000 000 MHz");
        row("an end of a range", [](FormTest &form) { form.Enter("frequencyRangeEdit[1]", "20 MHz"); }, "All/FrequencyRangeEdit: 144.000 000 MHz, 146.000 000 MHz -> 19.999 999 MHz, 20.000 000 MHz");
        row("an item of a list", [](FormTest &form) { form.Enter("SpinBoxList[2]", "4"); }, "All/SpinBoxList: 1 -> 4");
        row("a cell", [](FormTest &form) { form.Enter("TableWidget[0,0]", "x"); }, "All/TableWidget: (empty) -> x");
        row("a cell of a row", [](FormTest &form) { form.Enter("spacings[1]", "20"); }, "All/ChannelSpacingTable: 12.50 -> 20.00");
        row("undone", [](FormTest &form) { form.Enter("LineEdit", "north"); form.Undo(); }, "All/LineEdit: ANT 1 -> north; All/LineEdit: north -> ANT 1");
        row("redone", [](FormTest &form) { form.Enter("LineEdit", "north"); form.Undo(); form.Redo(); }, "All/LineEdit: ANT 1 -> north");
        // clang-format on
    }
    void anOperatorActs()
    {
        const auto [act] = Fetch<Act>({"act"});
        FormTest form(AllClasses());
        form.SetAutoApply(-1);
        act(form);
        // Return in a line edit applies.
        QStringList changes;
        for (const Orbel::Applied &applied : form.TakeApplied())
            changes << applied.Text();
        QTEST((changes << form.Changes()).join("; ").remove(QRegularExpression("; $")), "changes");
    }

    /// Each act fails once, with a text that begins so, at a line of this file, and nothing is changed.
    void whatCannotBeDoneIsTold_data()
    {
        const auto row = Columns<Act, QString>({"act", "told"});
        // clang-format off
        row("unknown", [](FormTest &form) { form.Enter("gainn", "7"); }, "There is no control \"gainn\"; did you mean \"gain\"?");
        row("no such part", [](FormTest &form) { form.Enter("gain[1]", "7"); }, "Control \"gain[1]\" has no such part");
        row("no such cell", [](FormTest &form) { form.Enter("t[2]", "7"); }, "Control \"t[2]\" has no such part");
        row("a part beyond all", [](FormTest &form) { form.Enter("gain[99999999999]", "7"); }, "Control \"gain[99999999999]\" has no such part");
        row("a part of a button", [](FormTest &form) { form.Shown("applyButton[1]"); }, "There is no control \"applyButton[1]\"");
        row("no name", [](FormTest &form) { form.Click(""); }, "There is no control \"\"");
        row("neither on nor off", [](FormTest &form) { form.Check("gain", false); }, "Control \"gain\" is neither on nor off");
        row("no choices", [](FormTest &form) { form.Choices("gain"); }, "Control \"gain\" is no combo box");
        row("no text to read", [](FormTest &form) { form.Shown("t"); }, "Control \"t\" has no text of its own");
        row("no text to type over", [](FormTest &form) { form.Type("t", "7"); }, "Control \"t\" has no text of its own; name a cell of it");
        row("no field", [](FormTest &form) { form.Type("head", " "); }, "Control \"head\" takes no text");
        row("behind a menu", [](FormTest &form) { QMenu menu; menu.addAction("one"); menu.popup({}); form.Enter("gain", "7"); }, "Control \"gain\" cannot be reached: a menu is open before it");
        row("a dialog that is waited for", [](FormTest &form) { QDialog dialog; QObject::connect(form.Find<QGroupBox>("head"), &QGroupBox::clicked, &dialog, &QDialog::exec); form.Click("head"); }, "The act has opened QDialog \"\" and waits for it; make a ModalVisitor before");
        row("keys to nobody", [](FormTest &form) { form->GetWidget()->hide(); form.Press("Tab"); }, "No key can be pressed: the window of the form is not shown");
        row("no keys", [](FormTest &form) { form.Press(""); }, "\"\" is no key");
        row("a host's session", [](FormTest &form) { FormTest(*form.GetSession()).EndSession(); }, "The session is the host's to end");
        row("disabled", [](FormTest &form) { form.Check("off"); }, "Control \"off\" cannot be reached: it is disabled or locked");
        row("read-only", [](FormTest &form) { form.Type("fixed", "x"); }, "Control \"fixed\" cannot be reached: it is read-only");
        row("locked", [](FormTest &form) { form->Lock("why"); form.Enter("gain", "7"); }, "Control \"gain\" cannot be reached: ");
        row("hidden", [](FormTest &form) { form->GetForm()->EvaluateScript("gain.setVisible(false)"); form.Click("gain"); }, "Control \"gain\" cannot be reached: it is hidden");
        row("collapsed", [](FormTest &form) { form.Click("head"); form.Enter("inside", "x"); }, "Control \"inside\" cannot be reached: its group is collapsed");
        row("not shown", [](FormTest &form) { form->GetWidget()->hide(); form.Enter("gain", "7"); }, "Control \"gain\" cannot be reached: its window is not shown");
        row("behind a dialog", [](FormTest &form) { QDialog dialog; dialog.setModal(true); dialog.show(); form.Enter("gain", "7"); }, "Control \"gain\" cannot be reached: a dialog stands before it: QDialog");
        row("no such item", [](FormTest &form) { form.Choose("mode", "SSB"); }, "Control \"mode\" has no item \"SSB\", but \"AM\", \"FM\"");
        row("no list of items", [](FormTest &form) { form.Choose("gain", "5"); }, "Control \"gain\" is no combo box");
        row("no key", [](FormTest &form) { form.Press("Retrun"); }, "\"Retrun\" is no key");
        row("another class", [](FormTest &form) { form.Find<QLineEdit>("mode")->text(); }, "Control \"mode\" is a VCComboBoxClassic and no QLineEdit");
        row("nothing of any class", [](FormTest &form) { form.Find<QLineEdit>("mod")->text(); }, "There is no control \"mod\"; did you mean \"mode\"?");
        row("a value beyond the limit", [](FormTest &form) { form.Report("gain", 61); }, "Parameter \"gain\": 61 is above 60, the highest value");
        row("an unknown value", [](FormTest &form) { form.Value("gainn"); }, "There is no parameter \"gainn\"; did you mean \"gain\"?");
        row("nothing applied", [](FormTest &form) { form.WaitForApplied(1); }, "Nothing was applied within 1 ms. Nothing is changed.");
        row("nobody changes", [](FormTest &form) { form.WaitForChange("gain", 1); }, "Control \"gain\" is not changed within 1 ms; no control is");
        row("no window", [](FormTest &form) { delete form->GetWidget(); form.Enter("gain", "7"); }, "Control \"gain\": the form has ended or has no window");
        row("no session", [](FormTest &form) { form.EndSession(); form->Lock("why"); }, "The session has ended");
        // clang-format on
    }
    void whatCannotBeDoneIsTold()
    {
        const auto [act, told] = Fetch<Act, QString>({"act", "told"});
        Failures failures;
        FormTest form(Small());
        act(form);
        QCOMPARE(failures.Texts.join('\n').left(told.size()), told);
        QCOMPARE(failures.Texts.size(), 1);
        QVERIFY(failures.IsHere && form.Changes().isEmpty());
    }

    /// Where the end of an edit ends the window, the act is left out.
    void anActEndsTheForm_data()
    {
        QTest::addColumn<Act>("act");
        const auto row = AddRow<Act>;
        row("type", [](FormTest &form) { form.Type("inside", "7"); });
        row("type a cell", [](FormTest &form) { form.Type("t[0]", "7"); });
        row("choose", [](FormTest &form) { form.Choose("mode", "FM"); });
        row("wheel", [](FormTest &form) { form.Wheel("mode", 2); });
        row("check", [](FormTest &form) { form.Click("box"); });
    }
    void anActEndsTheForm()
    {
        QFETCH(Act, act);
        Failures failures;
        FormTest form(Small());
        form.Type("gain", "7");
        QWidget *const window = form->GetWidget();
        // At once would be within QWidget::setFocus(), which goes on with the widget.
        connect(form.GetSession(), &Session::changed, window, &QObject::deleteLater);
        act(form);
        QTRY_VERIFY(!form->GetWidget());
        QVERIFY2(failures.Texts.size() <= 1 && failures.IsHere, qPrintable(failures.Texts.join('\n')));
    }

    void twoFormsAreOperatedInTurn()
    {
        FormTest one(Small()), other(Small());
        one.Type("gain", "42");
        one.Report("gain", 20);
        QCOMPARE(one.Mark("gain"), RowLabel::Differs);
        other.Enter("inside", QString::fromUtf8("M\u00fcnchen \u6771\u4eac"));
        other.WaitForChange("inside");
        QCOMPARE(other.Shown("inside"), QString::fromUtf8("M\u00fcnchen \u6771\u4eac"));
    }

    void whatIsToBeSeenIsTold()
    {
        FormTest form(Small());
        form.SetAutoApply(-1);
        form.Type("gain", "42");
        form.Report("gain", 20);
        QCOMPARE(form.Shown("gain") + form.Label("gain") + form.Focused(), QString("42gaingain"));
        QCOMPARE(form.Mark("gain"), RowLabel::Differs);
        QVERIFY(form.ToolTip("gain").contains("The device has 20"));
        QVERIFY(form.CanEdit("gain") && !form.CanEdit("fixed") && !form.CanEdit("off") && form.IsShown("off"));
        form.Type("gain", "4x");
        QVERIFY2(!form.Note("gain").isEmpty(), "why it is refused");
        form.Press("Escape");
        form.Enter("t[1]", "8");
        QCOMPARE(form.Shown("t[1]") + form.Focused(), QString("8t"));
        form.Click("t[0]");
        QCOMPARE(form.Find<QTableWidget>("t")->currentRow(), 0);
        QCOMPARE(form.Shown("mode") + form.Choices("mode").join('/'), QString("AMAM/FM"));
        QCOMPARE(form.Shown("applyButton"), QString("Apply"));
    }

    void whatIsAppliedComesInOrder()
    {
        FormTest form(Small());
        form.SetAutoApply(1);
        form.Enter("gain", "7");
        form.WaitForChange("gain");
        const Orbel::Applied first = form.WaitForApplied();
        QCOMPARE(first.Text(), QString("gain: 5 -> 7"));
        QVERIFY(first.Document.contains("<gain>7</gain>"));
        form.SetAutoApply(-1);
        form.Enter("gain", "8");
        Orbel::PassTime(20);
        QVERIFY(form.TakeApplied().isEmpty());
        form.Apply();
        QCOMPARE(form.WaitForApplied().Text(), QString("gain: 7 -> 8"));
    }

    void aScriptThatFailsIsNotPassedOver()
    {
        Failures failures;
        {
            FormTest form(Small("gain.valueChanged.connect(function() { missing(); })"));
            form.Report("gain", 7);
            QVERIFY(form.TakeScriptErrors().join(' ').contains("missing"));
            form.Report("gain", 8);
        }
        QCOMPARE(failures.Texts.size(), 1);
        QVERIFY(failures.Texts.first().startsWith("A script of the form failed at line 1: "));
    }

    void whatDoesNotOpenIsTold()
    {
        Failures failures;
        FormTest form(Session::OpenText("<Other/>"));
        QVERIFY(failures.Texts.join(' ').startsWith("The form does not open:\n"));
        QVERIFY(failures.Texts.join(' ').contains("error") && failures.IsHere);
        QVERIFY(form->Controls().isEmpty());
    }

    /// A session that a host has opened, and a form of the bare classes.
    void aHostsOwnFormIsOperated()
    {
        QMainWindow host;
        const Orbel::Opening opened = Small();
        host.setCentralWidget(opened.Opened->GetWidget());
        host.show();
        FormTest form(*opened.Opened);
        form.Enter("gain", "7");
        form.Apply();
        QCOMPARE(form.WaitForApplied().Text(), QString("gain: 5 -> 7"));

        const Form bare = Bind(Definition(Labelled("level", "SpinBox", {"maximum=Int:9"})));
        const auto window = Build(bare);
        window->show();
        Orbel::FormOperator(bare.data()).Enter("level", "7");
        QCOMPARE(bare->GetVTValue("level")->GetStringValue(), QString("7"));
    }

    void dialogsAndMenusAreVisited()
    {
        QDialog dialog;
        QString title;
        const Orbel::ModalVisitor visitor([&title](QWidget *open) { title += open->windowTitle(); });
        dialog.setWindowTitle("one");
        dialog.exec();
        QCOMPARE(title, QString("one"));
        QCOMPARE(visitor.GetCount(), 1);
    }
};

ORBEL_TEST_MAIN(TestTestSupport)
#include "tst_testsupport.moc"
