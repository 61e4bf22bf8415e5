// A host's session: how it opens, what the device reports beside an operator, what he changes and what becomes of it.

#include "fieldnote.h"
#include "formtest.h"
#include "liveform.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QUndoStack>

namespace
{

using Orbel::Session;

/// A widget with a label that takes part in parameter documents under its own name.
QString Control(const QString &name, const QString &className, const QStringList &properties)
{
    return Widget(name, className,
        QStringList{"labelText=String:" + name + ":", "visible=Bool:true", "enabled=Bool:true",
            "generateParameterXml=Bool:true"}
            + properties);
}

const QString Body
    = Control("Gain", "SpinBox", {"value=Int:10", "minimum=Int:0", "maximum=Int:60", "suffix=String: dB"})
    + Control("Level", "DoubleSpinBox", {"value=Double:1.5", "decimals=Int:2"})
    + Control("Tuned", "FrequencyEdit", {"value=Int:145500000", "minimum=Int:0", "maximum=Double:3e9"})
    + Control("Name", "LineEdit", {"text=String:north"}) + Control("On", "CheckBox", {"checked=Bool:false"})
    + Control("Mode", "ComboBox", {"enumName=String:Modes", "currentValue=String:1"});

/// Automatic apply waits 100 ms.
struct Live : Orbel::FormTest {
    explicit Live(const QString &body = Body, const QString &script = QString(),
        const Orbel::SessionOptions &options = {}, const QString &lock = {})
        : FormTest(Open(body, script, options, lock))
    {
        SetAutoApply(100);
    }
    static Orbel::Opening Open(
        const QString &body, const QString &script, const Orbel::SessionOptions &options, const QString &lock)
    {
        const QString form = Definition(body, "<Script><![CDATA[" + script + "]]></Script>");
        Orbel::Opening opening = Session::OpenText(
            QString(form).replace("<Sheet", Enum("Modes", "AM=1 FM=2 SSB=3") + "<Sheet").toUtf8(), options);
        opening.Opened->Lock(lock);
        return opening;
    }
    /// What the device says behind what the control says itself.
    QString DeviceText(const QString &name) const { return ToolTip(name).section('\n', -1); }
    /// What is to be seen of the gain, when all is told; whether there is something to apply; what is changed, and what
    /// was applied since this was asked: "20 dB refused (too loud) * Gain 42 dB>20 dB [Gain 10>42]".
    QString State()
    {
        QCoreApplication::processEvents();
        const RowLabel::Mark mark = Mark("Gain");
        QStringList parts{Shown("Gain"), QStringList{"", "changed", "unconfirmed", "differs", "refused"}.at(mark)};
        if (mark > RowLabel::Changed)
            parts << '(' + DeviceText("Gain") + ')';
        parts << (CanEdit("applyButton") ? "*" : "");
        QStringList changed, applied;
        for (const Orbel::Change &change : (*this)->Changes())
            changed << QString("%1 %2>%3").arg(change.Label, change.OldText, change.NewText);
        for (const Orbel::Applied &each : TakeApplied()) {
            for (const Orbel::Change &change : each.Changes)
                applied << QString("%1 %2>%3").arg(change.Path, change.Old.toString(), change.New.toString());
        }
        parts << changed.join(", ") << (applied.isEmpty() ? "" : '[' + applied.join(", ") + ']');
        return parts.filter(QRegularExpression(".")).join(' ');
    }
    /// Steps of operator, host and device, parted by "; ": "enter Gain 42; apply; = 42 dB [Gain 10>42]". A step that
    /// begins with = tells State().
    void Do(const QString &steps)
    {
        QString preset;
        for (const QString &step : steps.split("; ")) {
            const QString act = step.section(' ', 0, 0), name = step.section(' ', 1, 1), text = step.section(' ', 2);
            Session *const session = GetSession();
            if (act == "=")
                QCOMPARE(State(), step.mid(2));
            else if (act == "enter")
                Enter(name, text);
            else if (act == "type")
                Type(name, text);
            else if (act == "escape")
                Press("Escape");
            else if (act == "report")
                Report(name, text);
            else if (act == "take")
                session->TakeReported(name);
            else if (act == "refuse")
                session->Refuse(name, text);
            else if (act == "confirm")
                session->Confirm(name);
            else if (act == "revert")
                session->Revert(name);
            else if (act == "time")
                session->SetAnswerTime(name.toInt());
            else if (act == "late")
                QTRY_COMPARE(Mark("Gain"), RowLabel::Unconfirmed);
            else if (act == "keep")
                preset = session->Document();
            else if (act == "preset")
                session->SetDocument(preset);
            else if (act == "apply")
                session->Apply();
            else
                session->UndoStack()->setIndex(session->UndoStack()->index() + (act == "undo" ? -1 : 1));
        }
    }
};

} // namespace

class TestSession : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void openingTellsWhy_data()
    {
        const auto row = Columns<QString, QString, bool, QString>({"way", "given", "opens", "told"});
        // clang-format off
        row("a file that is not there", "file", "/nowhere.orbel", false, "The file cannot be read");
        row("no form", "text", "<Other/>", false, "There is no form");
        row("nothing", "text", "", false, "");
        row("a broken end", "text", "<ZkParamGui version='1'><Sheet name='s'>", true, "");
        row("a component", "list", "ScanSettings", true, "");
        row("a component that is not there", "list", "ScanSetings", false, "did you mean \"ScanSettings\"?");
        // clang-format on
    }
    void openingTellsWhy()
    {
        const auto [way, given, opens, told]
            = Fetch<QString, QString, bool, QString>({"way", "given", "opens", "told"});
        const QByteArray list = "<L><Component name='ScanSettings'><ValueString id='ORBEL' value='"
            + Definition(Body).toHtmlEscaped().toUtf8() + "'/></Component></L>";
        const Orbel::Opening opening = way == "file" ? Session::OpenFile(given)
            : way == "text"                          ? Session::OpenText(given.toUtf8())
                                                     : Session::OpenComponent(list, given);
        QCOMPARE(bool(opening), opens);
        QString errors;
        for (const Orbel::Finding &finding : opening.Told)
            errors += finding.Level == Orbel::Severity::Error ? finding.Text + '\n' : QString();
        QVERIFY2(opens || !errors.isEmpty(), "no reason");
        QVERIFY2(errors.contains(told), qPrintable(errors));
    }

    void valuesAreTyped_data()
    {
        const auto row = Columns<QString, QVariant, QVariant>({"path", "value", "other"});
        // clang-format off
        row("check box", "All/CheckBox", true, false);
        row("whole number", "All/SpinBox", 12, 13);
        row("number", "All/DoubleSpinBox", 2.5, 7.25);
        row("text", "All/LineEdit", "ANT 1", "ANT 2");
        row("choice", "All/ComboBox", "2", "4");
        row("frequency", "All/FrequencyEdit", qint64(145500000), qint64(430000001));
        row("bandwidth", "All/BandwidthEdit", qint64(12500), qint64(25000));
        row("offset", "All/FrequencyOffsetEdit", qint64(-1500), qint64(1000));
        row("list of whole numbers", "All/SpinBoxList", QVariantList{5, 5, 5}, QVariantList{1, 2, 3});
        row("table", "All/TableWidget", QVariantList{{}, {}, {}, {}, {}, {}}, QVariantList{"a", "b", "c", "d", "e", "f"});
        // clang-format on
    }
    void valuesAreTyped()
    {
        const auto [path, value, other] = Fetch<QString, QVariant, QVariant>({"path", "value", "other"});
        Orbel::Opening opening = Session::OpenFile(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel");
        Session &session = *opening.Opened;
        QString error;
        QVERIFY2(session.Report(path, other, &error), qPrintable(error));
        QCOMPARE(session.Value(path, &error), other);
        QCOMPARE(session.Value(path).userType(), other.userType());
        QCOMPARE(session.Changes().size(), 0);
        QVERIFY2(session.SetValue(path, value, &error), qPrintable(error));
        const QVector<Orbel::Change> changes = session.Changes();
        QCOMPARE(changes.size(), 1);
        QCOMPARE(changes.first().Old, other);
        QCOMPARE(changes.first().New, value);
        session.UndoStack()->undo();
        QCOMPARE(session.Value(path), other);
        QCOMPARE(session.Changes().size(), 0);
    }

    void aWrongValueChangesNothing_data()
    {
        const auto row = Columns<QString, QVariant, QString>({"path", "value", "told"});
        // clang-format off
        row("path", "Gainn", 3, "There is no parameter \"Gainn\"; did you mean \"Gain\"?");
        row("limit", "Gain", 61, "Parameter \"Gain\": 61 is above 60, the highest value");
        row("type", "Gain", "loud", "Parameter \"Gain\": \"loud\" is no number");
        row("fraction", "Gain", 1.5, "Parameter \"Gain\": 1.5 is no whole number");
        row("NaN", "Level", qQNaN(), "Parameter \"Level\": \"nan\" is no number");
        row("choice", "Mode", "FMN", "Parameter \"Mode\": \"FMN\" is none of the choices");
        row("bool", "On", "perhaps", "Parameter \"On\": \"perhaps\" is neither true nor false");
        row("half a range", "Range", 2e6, "Parameter \"Range\": A list of 2 values is wanted");
        row("range", "Range", QVariantList{2e6, 2e6}, "Parameter \"Range\": The start is not below the stop");
        row("range within one Hz", "Range", QVariantList{2000000.2, 2000000.8}, "Parameter \"Range\": The start is not below the stop");
        // clang-format on
    }
    void aWrongValueChangesNothing()
    {
        const auto [path, value, told] = Fetch<QString, QVariant, QString>({"path", "value", "told"});
        Live live(Body + Control("Range", "FrequencyRangeEdit", {}));
        const QString before = live->Document();
        QString error;
        QVERIFY(!live->Report(path, value, &error));
        QCOMPARE(error, told);
        error.clear();
        QVERIFY(!live->SetValue(path, value, &error));
        QCOMPARE(error, told);
        QCOMPARE(live->Document(), before);
        QVERIFY(live->Changes().isEmpty());
    }

    void controlsAreTold()
    {
        Live live;
        Live other; // on another node path
        QVERIFY(other->Report("Gain", 33) && live->Value("Gain") == 10);
        const QVector<Orbel::ControlInfo> controls = live->Controls();
        QCOMPARE(controls.size(), 6);
        const Orbel::ControlInfo &gain = controls.at(0);
        QCOMPARE(gain.Label, QString("Gain"));
        QCOMPARE(gain.What, Orbel::ControlInfo::Whole);
        QVERIFY(gain.Minimum == 0 && gain.Maximum == 60 && gain.Step == 1);
        QVERIFY(!controls.at(1).Minimum.isValid());
        QCOMPARE(controls.at(2).Unit, QString("Hz"));
        QCOMPARE(controls.at(5).What, Orbel::ControlInfo::OneOf);
        QCOMPARE(controls.at(5).Choices.at(1).Value + controls.at(5).Choices.at(1).Text, QString("2FM"));
    }

    /// The gain stands at 10. Nothing is applied by itself.
    void whatBecomesOfAValue_data()
    {
        QTest::addColumn<QString>("steps");
        const auto row = AddRow<QString>;
        const QString sent
            = "time 60000; enter Level 3; apply; time 300; enter Gain 42; apply; = 42 dB [Level 1.5>3, Gain 10>42]; ";
        // clang-format off
        row("reported", "report Gain 20; = 20 dB; take Gain; = 20 dB; undo; = 20 dB");
        row("reported again", "report Gain 10; = 10 dB");
        row("reported while he types", "type Gain 42; report Gain 20; = 42 dB differs (The device has 20 dB) *; take Gain; = 20 dB *; apply; = 20 dB");
        row("reported while he types, who takes it back", "type Gain 42; report Gain 20; escape Gain; = 20 dB *; apply; = 20 dB");
        row("reported beside a change", "enter Gain 42; report Gain 20; = 42 dB differs (The device has 20 dB) * Gain 20 dB>42 dB; take Gain; = 20 dB *; apply; = 20 dB");
        row("reported as changed", "enter Gain 42; report Gain 42; = 42 dB");
        row("reported after a change was put back", "enter Gain 42; enter Gain 10; report Gain 20; = 20 dB");
        row("reported after an edit was taken back", "type Gain 42; escape Gain; = 10 dB *; report Gain 20; = 20 dB");
        row("put back", "enter Gain 20; = 20 dB changed * Gain 10 dB>20 dB; = 20 dB changed * Gain 10 dB>20 dB; enter Gain 10; apply; = 10 dB");
        row("put back beside others", "enter Gain 20; enter Level 3; enter Gain 10; type Name south; apply; = 10 dB [Level 1.5>3, Name north>south]");
        row("of a preset", "keep; enter Gain 20; enter Level 3; apply; = 20 dB [Gain 10>20, Level 1.5>3]; preset; = 10 dB changed * Gain 20 dB>10 dB, Level 3.00>1.50; undo; = 20 dB *; redo; apply; = 10 dB [Gain 20>10, Level 3>1.5]; revert Gain; = 10 dB");
        row("confirmed", sent + "confirm Gain; = 42 dB");
        row("read back", sent + "report Gain 42; = 42 dB");
        row("reported before it arrived", sent + "report Gain 10; = 42 dB");
        row("refused, twice, and tried again", sent + "refuse Gain too loud; = 10 dB refused (too loud); refuse Gain no; = 10 dB refused (no); undo; undo; redo; redo; = 42 dB changed * Gain 10 dB>42 dB");
        row("refused, and reported before", sent + "report Gain 11; refuse Gain no; = 11 dB refused (no)");
        row("refused, and changed meanwhile", sent + "enter Gain 50; refuse Gain no; = 50 dB refused (The device has 10 dB) * Gain 10 dB>50 dB");
        row("refused, then changed", sent + "refuse Gain no; enter Gain 50; = 50 dB changed * Gain 10 dB>50 dB");
        row("unanswered", sent + "late; = 42 dB unconfirmed (The device has not confirmed the value)");
        row("unanswered, then confirmed", sent + "late; confirm Gain; = 42 dB");
        row("unanswered, reported, then refused", sent + "late; report Gain 11; refuse Gain no; = 11 dB refused (no)");
        row("unanswered, and an old report", sent + "report Gain 12; late; = 12 dB unconfirmed (The device has not confirmed the value)");
        row("refused, though nothing was applied", "refuse Gain no; = 10 dB refused (no); confirm Gain; = 10 dB");
        // clang-format on
    }
    void whatBecomesOfAValue()
    {
        QFETCH(QString, steps);
        Live live;
        live.SetAutoApply(-1);
        live.Do(steps);
        Orbel::FieldNote::Hide(live.Find("Gain"));
    }

    void theMenuOffersWhatTheDeviceHas()
    {
        Live live;
        live.Enter("Gain", "42");
        live->Report("Gain", 20);
        QTRY_VERIFY(live.IsShown("changesButton"));
        live.Click("changesButton");
        live.ChooseEntry("Take from the device: Gain 20 dB");
        QCOMPARE(live->Value("Gain"), QVariant(20));
        QVERIFY(live->Changes().isEmpty() && live.Mark("Gain") == RowLabel::None);
    }

    /// Real keys between the reports of a device that never rests.
    void aDeviceAt20HzBesideAnOperator()
    {
        QString many;
        for (int i = 0; i < 200; ++i)
            many += Control(QString("M%1").arg(i), "DoubleSpinBox", {"value=Double:0"});
        Live live(Body + many);
        int reports = 0;
        QTimer device;
        QObject::connect(&device, &QTimer::timeout, [&] {
            QVariantMap values{
                {"Gain", 20 + reports % 5}, {"Tuned", 100e6 + reports}, {"Mode", QString::number(1 + reports % 3)}};
            for (int i = 0; i < 200; ++i)
                values.insert(QString("M%1").arg(i), reports + i);
            QVERIFY(live->Report(values));
            ++reports;
        });
        device.start(50);
        const auto pass = [&](int count) { QTRY_VERIFY(reports >= count); };
        pass(2);
        auto *tuned = live.Find<QLineEdit>("Tuned");
        live.Focus("Tuned");
        tuned->selectAll();
        pass(4);
        QCOMPARE(tuned->selectedText(), tuned->text());
        QVERIFY(tuned->hasFocus());
        live.Focus("Gain");
        for (const char *key : {"Ctrl+A", "4", "2"}) {
            live.Press(key);
            pass(reports + 2);
        }
        QCOMPARE(live.Shown("Gain"), QString("42 dB"));
        QCOMPARE(live->UndoStack()->count(), 0);
        QVERIFY(live.TakeApplied().isEmpty());
        QSignalSpy changed(live.GetSession(), &Session::changed);
        live.Press("Return");
        QCOMPARE(changed.size(), 1);
        const Orbel::Applied sent = live.WaitForApplied();
        QVERIFY2(
            QRegularExpression("^Gain: 2[0-4] dB -> 42 dB$").match(sent.Text()).hasMatch(), qPrintable(sent.Text()));
        QVERIFY(sent.Document.contains("<Gain>42</Gain>") && !sent.Document.contains("Level"));
        QTRY_VERIFY(live->Value("Gain") != 42);
        QCOMPARE(live->UndoStack()->count(), 1);
        device.stop();
        QCOMPARE(live->Value("M199").toInt(), reports - 1 + 199);
    }

    void aLockTellsWhyAndWaits_data()
    {
        const auto row = Columns<bool, int, bool>({"hasRow", "width", "inRow"});
        row("in the apply row", true, 500, true);
        row("in a row without room", true, 200, false);
        row("without a row", false, 500, false);
    }
    void aLockTellsWhyAndWaits()
    {
        const auto [hasRow, width, inRow] = Fetch<bool, int, bool>({"hasRow", "width", "inRow"});
        Orbel::SessionOptions options;
        options.ApplyRow = hasRow;
        Live live(Body, QString(), options);
        live->GetWidget()->resize(width, 500);
        QCoreApplication::processEvents();
        const auto places = [&] {
            QVector<QRect> all;
            for (const QWidget *widget :
                live->GetWidget()->findChildren<QWidget *>(QRegularExpression("^(?!lockLine)")))
                all << widget->geometry();
            return all;
        };
        const auto before = places();
        live.Type("Gain", "42");
        // Without a row a change is on its way at once.
        QTest::keyClick(live.Find("Gain"), Qt::Key_Return);
        live->Lock("no connection to <A> & B");
        auto *line = live.Find<QLabel>("lockLine");
        QVERIFY(line->isVisible() && line->text() == "no connection to <A> & B");
        QCOMPARE(live.ToolTip("lockLine"), line->text());
        const auto *const row = live->GetWidget()->findChild<QWidget *>("applyButtonBox");
        QCOMPARE(row && row->geometry().contains(line->geometry()), inRow);
        QVERIFY(line->parentWidget()->rect().contains(line->geometry()));
        QCOMPARE(places(), before);
        QVERIFY(!live.CanEdit("Gain"));
        QVERIFY(live->Report("Level", 7));
        PassTime(200);
        QVERIFY(live.TakeApplied().isEmpty());
        live->Unlock();
        QCOMPARE(live.WaitForApplied().Text(), QString("Gain: 10 dB -> 42 dB"));
        QVERIFY(!line->isVisible() && live.CanEdit("Gain"));
    }

    void theFirstControlHasTheFocusWhenItIsFree()
    {
        Live live("<Widget name='Head' class='Headline'/>" + Body, QString(), {}, "not connected");
        QCOMPARE(live.Focused(), QString("sheet"));
        live->Unlock();
        QCOMPARE(live.Focused(), QString("Gain"));
    }

    void controlsOfOnePathAreToldEach()
    {
        Live live(Widget("one", "LineEdit", Usable + QStringList("parameterXmlTag=String:a/"))
            + Widget("two", "LineEdit", Usable + QStringList("parameterXmlTag=String:a/")));
        live.SetAutoApply(-1);
        for (const char *name : {"one", "two"}) {
            live.Type(name, name);
            live.Press("Tab");
        }
        QCOMPARE(live.Changes(), QString("a/: (empty) -> one; a/: (empty) -> two"));
    }

    void aScriptThatFailsIsTold()
    {
        Orbel::SessionOptions options;
        options.ScriptLimit = 200;
        Live live(Body,
            "\nGain.valueChanged.connect(function(v) { if (v == 30) missing(); while (v == 31) {} "
            "});\nnothing.there();",
            options);
        QVERIFY(QRegularExpression("^3: .*nothing").match(live.WaitForScriptError()).hasMatch());
        live->Report("Gain", 30);
        QVERIFY(QRegularExpression("^2: .*missing").match(live.WaitForScriptError()).hasMatch());
        live->Report("Gain", 31);
        QVERIFY(live.WaitForScriptError().contains("200 ms"));
        QCOMPARE(live->Value("Gain"), QVariant(31));
    }

    void aSessionIsStored()
    {
        const QTemporaryDir folder;
        QSettings settings(folder.filePath("host.ini"), QSettings::IniFormat);
        QObject store;
        {
            Live live("<Widget name='Head' class='Headline'/>" + Body);
            live.Enter("Gain", "42");
            live->GetForm()->GetSheet().SetCollapsed({"Head"});
            live->GetForm()->GetSheet().SetFontSize(20);
            live->Store(settings, "receiver");
            store.setProperty("input-disabled", false);
            live->Store(store, "rx");
            QCOMPARE(live->Changes().size(), 1);
            delete live->GetWidget();
            live->Store(settings, "receiver");
        }
        QCOMPARE(settings.value("receiver/fontsize").toInt(), 20);
        QCOMPARE(settings.value("receiver/collapsed").toString(), QString("Head"));
        for (const bool isObject : {false, true}) {
            Live live("<Widget name='Head' class='Headline'/>" + Body, QString(), {}, "not connected");
            isObject ? live->Restore(store, "rx") : live->Restore(settings, "receiver");
            QCOMPARE(live->Value("Gain"), QVariant(42));
            QCOMPARE(live->GetForm()->GetSheet().GetCollapsed(), QStringList("Head"));
            QVERIFY(live->Changes().isEmpty() && !live->GetForm()->IsInputEnabled());
        }
    }

    void anySlotMayEndIt_data()
    {
        QTest::addColumn<QString>("signal");
        QTest::addColumn<QString>("ended");
        for (const char *signal : {"changed", "changesChanged", "applied", "unanswered", "reloaded", "scriptFailed"}) {
            for (const char *ended : {"session", "window", "both", "window, then session"})
                QTest::addRow("%s ends %s", signal, ended) << signal << ended;
        }
    }
    void anySlotMayEndIt()
    {
        QFETCH(QString, signal);
        QFETCH(QString, ended);
        Live live(Body, "Gain.valueChanged.connect(function() { missing(); });");
        const QPointer<QWidget> window = live->GetWidget();
        QWidget host;
        if (ended == "both")
            window->setParent(&host);
        host.show();
        bool isOver = false;
        EventLog log;
        log.Watch("session", live.GetSession());
        log.On("session." + signal, [&] {
            isOver = true;
            if (ended != "session")
                delete window.data();
            if (ended != "window")
                live.EndSession();
        });
        live->SetAnswerTime(1);
        live.Enter("Gain", "42");
        if (window && live.GetSession())
            live->Report("Level", 3);
        if (live.GetSession())
            live->Reload("<ZkParamGui>");
        QTRY_VERIFY(isOver);
        if (live.GetSession()) {
            QVERIFY(live->Report("Level", 4));
            live->Apply();
            QCOMPARE(live->Value("Level"), QVariant(4.0));
        }
        QCOMPARE(window.isNull() || ended == "session", true);
        live.TakeScriptErrors();
    }
};

ORBEL_TEST_MAIN(TestSession)
#include "tst_session.moc"
