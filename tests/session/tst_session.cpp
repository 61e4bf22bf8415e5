// A host's session: how it opens, what the device reports beside an operator, what he changes and what becomes of it.

#include "fieldnote.h"
#include "liveform.h"
#include "session.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QToolTip>
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

/// A session with its window on the screen. Automatic apply waits 100 ms.
struct Live {
    explicit Live(const QString &body = Body, const QString &script = QString(),
        const Orbel::SessionOptions &options = {}, const QString &lock = {})
    {
        const QString timeout = "<Properties><Property name='autoApplyTimeout'><Int>100</Int></Property></Properties>";
        const QString form = Definition(timeout + body, "<Script><![CDATA[" + script + "]]></Script>");
        Orbel::Opening opening = Session::OpenText(
            QString(form).replace("<Sheet", Enum("Modes", "AM=1 FM=2 SSB=3") + "<Sheet").toUtf8(), options);
        session = std::move(opening.Opened);
        window = session->GetWidget();
        window->resize(500, 500);
        session->Lock(lock);
        window->show();
        QApplication::setActiveWindow(window);
        QObject::connect(session.get(), &Session::applied, session.get(),
            [this](const QVector<Orbel::Change> &changes, const QString &document) {
                for (const Orbel::Change &change : changes)
                    applied << QString("%1 %2>%3").arg(change.Path, change.Old.toString(), change.New.toString());
                documents << document;
            });
    }
    Session *operator->() const { return session.get(); }
    template <class Widget = QWidget> Widget *Find(const QString &name) const
    {
        return window->findChild<Widget *>(name);
    }
    RowLabel *Label(const QString &name) const { return Find<RowLabel>("label" + name); }
    /// The mark of a control, when all is told.
    RowLabel::Mark Mark(const QString &name) const
    {
        QCoreApplication::processEvents();
        return Label(name)->GetMark();
    }
    QString ToolTip(const QString &name) const
    {
        QHelpEvent asked(QEvent::ToolTip, QPoint(), QPoint());
        QCoreApplication::sendEvent(Label(name), &asked);
        const QString text = asked.isAccepted() ? QToolTip::text().replace(QChar::Nbsp, ' ') : QString();
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->inherits("QTipLabel"))
                delete window;
        }
        return text;
    }
    /// Types over what a field holds; \r is Return, behind which it begins anew, and \x1b is Escape.
    void Type(const QString &name, const QString &keys) const
    {
        auto *field = Find(name);
        for (const QString &text : keys.split('\r', Qt::SkipEmptyParts)) {
            TypeOver(field, QString(text).remove('\x1b'));
            if (keys.contains('\r') || keys.contains('\x1b'))
                QTest::keyClick(field, keys.contains('\r') ? Qt::Key_Return : Qt::Key_Escape);
        }
    }
    void Enter(const QString &name, const QString &text) const { Type(name, text + '\r'); }
    QString Changes() const
    {
        QStringList texts;
        for (const Orbel::Change &change : session->Changes())
            texts << QString("%1 %2>%3").arg(change.Label, change.OldText, change.NewText);
        return texts.join(", ");
    }

    std::unique_ptr<Session> session;
    QPointer<QWidget> window;
    QStringList applied;
    QStringList documents;
};

using Step = void (*)(Live &);

} // namespace

Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(RowLabel::Mark)

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
        // clang-format on
    }
    void aWrongValueChangesNothing()
    {
        const auto [path, value, told] = Fetch<QString, QVariant, QString>({"path", "value", "told"});
        const Live live(Body + Control("Range", "FrequencyRangeEdit", {}));
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
        const Live live;
        const Live other; // on another node path
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

    /// What the operator has done, what the device then reports of the gain, which stood at 10, and what comes of both.
    void aReportBesideTheOperator_data()
    {
        const auto row
            = Columns<QString, int, QString, RowLabel::Mark, QString>({"keys", "reported", "shown", "mark", "changes"});
        // clang-format off
        row("nothing", "", 20, "20 dB", RowLabel::None, "");
        row("the same", "", 10, "10 dB", RowLabel::None, "");
        row("typing", "42", 20, "42 dB", RowLabel::Differs, "");
        row("changed", "42\r", 20, "42 dB", RowLabel::Differs, "Gain 20 dB>42 dB");
        row("changed to that", "42\r", 42, "42 dB", RowLabel::None, "");
        row("changed and put back", "42\r10\r", 20, "20 dB", RowLabel::None, "");
        row("typed and taken back", "42\x1b", 20, "20 dB", RowLabel::None, "");
        // clang-format on
    }
    void aReportBesideTheOperator()
    {
        const auto [keys, reported, shown, mark, changes]
            = Fetch<QString, int, QString, RowLabel::Mark, QString>({"keys", "reported", "shown", "mark", "changes"});
        Live live;
        live->GetForm()->GetSheet().setAutoApplyEnabled(false);
        live.Type("Gain", keys);
        const int undoable = live->UndoStack()->count();
        QVERIFY(live->Report("Gain", reported));
        QCOMPARE(live.Mark("Gain"), mark);
        QCOMPARE(live.Find<QDoubleSpinBox>("Gain")->text(), shown);
        QCOMPARE(live.Changes(), changes);
        QCOMPARE(live->UndoStack()->count(), undoable);
        QCOMPARE(live.ToolTip("Gain").contains("The device has 20 dB"), mark == RowLabel::Differs);
        QCOMPARE(live->TakeReported("Gain"), mark == RowLabel::Differs);
        QCOMPARE(live.Mark("Gain"), RowLabel::None);
        QCOMPARE(live->Value("Gain"), QVariant(reported));
        QVERIFY(live->Changes().isEmpty() && live.applied.isEmpty());
        Orbel::FieldNote::Hide(live.Find("Gain"));
    }

    void anEditTakenBackShowsWhatTheDeviceHas()
    {
        const Live live;
        TypeOver(live.Find("Gain"), "42");
        live->Report("Gain", 20);
        QCOMPARE(live.Mark("Gain"), RowLabel::Differs);
        QTest::keyClick(live.Find("Gain"), Qt::Key_Escape);
        QTRY_COMPARE(live.Label("Gain")->GetMark(), RowLabel::None);
        QCOMPARE(live.Find<QDoubleSpinBox>("Gain")->text(), QString("20 dB"));
    }

    void theMenuOffersWhatTheDeviceHas()
    {
        const Live live;
        live.Enter("Gain", "42");
        live->Report("Gain", 20);
        QTRY_VERIFY(live.Find("changesButton")->isVisible());
        live.Find<QToolButton>("changesButton")->click();
        QTRY_VERIFY(live.Find("changesMenu"));
        for (QAction *entry : live.Find("changesMenu")->actions()) {
            if (entry->text() == "Take from the device: Gain 20 dB")
                entry->trigger();
        }
        live.Find("changesMenu")->close();
        QTRY_COMPARE(live->Value("Gain"), QVariant(20));
        QTRY_VERIFY(live->Changes().isEmpty() && live.Mark("Gain") == RowLabel::None);
    }

    /// Real keys between the reports of a device that never rests.
    void aDeviceAt20HzBesideAnOperator()
    {
        QString many;
        for (int i = 0; i < 200; ++i)
            many += Control(QString("M%1").arg(i), "DoubleSpinBox", {"value=Double:0"});
        const Live live(Body + many);
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
        tuned->setFocus();
        tuned->selectAll();
        pass(4);
        QCOMPARE(tuned->selectedText(), tuned->text());
        QVERIFY(tuned->hasFocus());
        auto *gain = live.Find<QDoubleSpinBox>("Gain");
        gain->setFocus();
        QTest::keyClick(gain, Qt::Key_A, Qt::ControlModifier);
        for (const char key : {'4', '2'}) {
            QTest::keyClick(gain, key);
            pass(reports + 2);
        }
        QCOMPARE(gain->text(), QString("42 dB"));
        QCOMPARE(live->UndoStack()->count(), 0);
        QVERIFY(live.applied.isEmpty());
        QSignalSpy changed(live.session.get(), &Session::changed);
        QTest::keyClick(gain, Qt::Key_Return);
        QCOMPARE(changed.size(), 1);
        QTRY_COMPARE(live.applied.size(), 1);
        QVERIFY2(QRegularExpression("Gain 2[0-4]>42").match(live.applied.first()).hasMatch(),
            qPrintable(live.applied.first()));
        QVERIFY(live.documents.first().contains("<Gain>42</Gain>") && !live.documents.first().contains("Level"));
        QTRY_VERIFY(live->Value("Gain") != 42);
        QCOMPARE(live->UndoStack()->count(), 1);
        device.stop();
        QCOMPARE(live->Value("M199").toInt(), reports - 1 + 199);
    }

    void whatIsPutBackIsNoChange()
    {
        const Live live;
        live.Enter("Gain", "20");
        const QString document = live->Document();
        QCOMPARE(live.Changes(), QString("Gain 10 dB>20 dB"));
        QCOMPARE(live->Document(), document);
        QCOMPARE(live.Changes(), QString("Gain 10 dB>20 dB"));
        live.Enter("Gain", "10");
        QCOMPARE(live.Changes(), QString());
        live->Apply();
        QVERIFY(live.applied.isEmpty());
        QVERIFY(!live.Find("applyButton")->isEnabled());
        live.Enter("Gain", "20");
        live.Enter("Level", "3");
        live.Enter("Gain", "10");
        TypeOver(live.Find("Name"), "south");
        live->Apply();
        QCOMPARE(live.applied.join(", "), QString("Level 1.5>3, Name north>south"));
        QVERIFY(!live.documents.first().contains("Gain"));
    }

    void aPresetIsOneChange()
    {
        const Live live;
        const QString preset = live->Document();
        live.Enter("Gain", "20");
        live.Enter("Level", "3");
        live->Apply();
        live->SetDocument(preset);
        QCOMPARE(live.Changes(), QString("Gain 20 dB>10 dB, Level 3.00>1.50"));
        live->UndoStack()->undo();
        QCOMPARE(live.Changes(), QString());
        live->UndoStack()->redo();
        QTRY_COMPARE(live.applied.size(), 4);
        QVERIFY(live->Revert("Gain") == false);
    }

    void anAppliedChangeIsAnswered_data()
    {
        const auto row = Columns<Step, int, RowLabel::Mark, QString>({"answer", "value", "mark", "tooltip"});
        // clang-format off
        row("confirmed", Step([](Live &live) { live->Confirm("Gain"); }), 42, RowLabel::None, "");
        row("read back", Step([](Live &live) { live->Report("Gain", 42); }), 42, RowLabel::None, "");
        row("reported before it arrived", Step([](Live &live) { live->Report("Gain", 10); }), 42, RowLabel::None, "");
        row("refused", Step([](Live &live) { live->Refuse("Gain", "too loud"); }), 10, RowLabel::Refused, "too loud");
        row("refused, and reported before", Step([](Live &live) { live->Report("Gain", 11); live->Refuse("Gain", "no"); }), 11, RowLabel::Refused, "no");
        row("refused, and changed meanwhile", Step([](Live &live) { live.Enter("Gain", "50"); live->Refuse("Gain", "no"); }), 50, RowLabel::Refused, "no");
        row("refused, then changed", Step([](Live &live) { live->Refuse("Gain", "no"); live.Enter("Gain", "50"); }), 50, RowLabel::Changed, "");
        row("none", Step([](Live &live) { QTRY_COMPARE(live.Label("Gain")->GetMark(), RowLabel::Unconfirmed); }), 42, RowLabel::Unconfirmed, "not confirmed");
        row("none, then one", Step([](Live &live) { QTRY_COMPARE(live.Label("Gain")->GetMark(), RowLabel::Unconfirmed); live->Confirm("Gain"); }), 42, RowLabel::None, "");
        row("none, then a report, then refused", Step([](Live &live) { QTRY_COMPARE(live.Label("Gain")->GetMark(), RowLabel::Unconfirmed); live->Report("Gain", 11); live->Refuse("Gain", "no"); }), 11, RowLabel::Refused, "no");
        row("none, and an old report", Step([](Live &live) { live->Report("Gain", 10); QTRY_COMPARE(live->Value("Gain").toInt(), 10); }), 10, RowLabel::Unconfirmed, "not confirmed");
        // clang-format on
    }
    void anAppliedChangeIsAnswered()
    {
        const auto [answer, value, mark, tooltip]
            = Fetch<Step, int, RowLabel::Mark, QString>({"answer", "value", "mark", "tooltip"});
        Live live;
        live->GetForm()->GetSheet().setAutoApplyEnabled(false);
        live->SetAnswerTime(60000);
        live.Enter("Level", "3");
        live->Apply();
        live->SetAnswerTime(300);
        live.Enter("Gain", "42");
        live->Apply();
        answer(live);
        QCOMPARE(live->Value("Gain").toInt(), value);
        QCOMPARE(live.Mark("Gain"), mark);
        QVERIFY(tooltip.isEmpty() || live.ToolTip("Gain").contains(tooltip));
        if (mark != RowLabel::Refused || value != 10)
            return;
        // What is refused can be tried again, once or twice.
        live->Refuse("Gain", "still");
        live->UndoStack()->undo();
        QCOMPARE(live->Value("Gain").toInt(), 10);
        live->UndoStack()->redo();
        QCOMPARE(live->Value("Gain").toInt(), 42);
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
        const Live live(Body, QString(), options);
        live.window->resize(width, 500);
        QCoreApplication::processEvents();
        const auto places = [&] {
            QVector<QRect> all;
            for (const QWidget *widget : live.window->findChildren<QWidget *>(QRegularExpression("^(?!lockLine)")))
                all << widget->geometry();
            return all;
        };
        const auto before = places();
        live.Enter("Gain", "42");
        live->Lock("no connection to the receiver");
        auto *line = live.Find<QLabel>("lockLine");
        QVERIFY(line->isVisible() && line->text() == "no connection to the receiver");
        const QWidget *const row = live.Find("applyButtonBox");
        QCOMPARE(row && row->geometry().contains(line->geometry()), inRow);
        QVERIFY(line->parentWidget()->rect().contains(line->geometry()));
        QCOMPARE(places(), before);
        QVERIFY(!live.Find("Gain")->isEnabled());
        QVERIFY(live->Report("Level", 7));
        PassTime(200);
        QVERIFY(live.applied.isEmpty());
        live->Unlock();
        QTRY_COMPARE(live.applied.join(", "), QString("Gain 10>42"));
        QVERIFY(!line->isVisible() && live.Find("Gain")->isEnabled());
    }

    void theFirstControlHasTheFocusWhenItIsFree()
    {
        const Live live("<Widget name='Head' class='Headline'/>" + Body, QString(), {}, "not connected");
        QCOMPARE(live.window->focusWidget()->objectName(), QString("sheet"));
        live->Unlock();
        QCOMPARE(live.window->focusWidget()->objectName(), QString("Gain"));
    }

    void controlsOfOnePathAreToldEach()
    {
        const Live live(Widget("one", "LineEdit", Usable + QStringList("parameterXmlTag=String:a/"))
            + Widget("two", "LineEdit", Usable + QStringList("parameterXmlTag=String:a/")));
        for (QLineEdit *field : live.window->findChildren<QLineEdit *>())
            Enter(field, QString::number(live->Changes().size()));
        QCOMPARE(live.Changes(), QString("one (empty)>0, two (empty)>1"));
    }

    void aScriptThatFailsIsTold()
    {
        Orbel::SessionOptions options;
        options.ScriptLimit = 200;
        const Live live(Body,
            "\nGain.valueChanged.connect(function(v) { if (v == 30) missing(); while (v == 31) {} "
            "});\nnothing.there();",
            options);
        QSignalSpy failed(live.session.get(), &Session::scriptFailed);
        QTRY_COMPARE(failed.size(), 1);
        QCOMPARE(failed.first().at(1).toInt(), 3);
        QVERIFY(failed.first().at(2).toString().contains("nothing"));
        live->Report("Gain", 30);
        QTRY_COMPARE(failed.size(), 2);
        QCOMPARE(failed.last().at(1).toInt(), 2);
        live->Report("Gain", 31);
        QTRY_COMPARE(failed.size(), 3);
        QVERIFY(failed.last().at(2).toString().contains("200 ms"));
        QCOMPARE(live->Value("Gain"), QVariant(31));
    }

    void aSessionIsStored()
    {
        const QTemporaryDir folder;
        QSettings settings(folder.filePath("host.ini"), QSettings::IniFormat);
        QObject store;
        {
            const Live live("<Widget name='Head' class='Headline'/>" + Body);
            live.Enter("Gain", "42");
            live->GetForm()->GetSheet().SetCollapsed({"Head"});
            live->GetForm()->GetSheet().SetFontSize(20);
            live->Store(settings, "receiver");
            store.setProperty("input-disabled", false);
            live->Store(store, "rx");
            QCOMPARE(live->Changes().size(), 1);
            delete live.window;
            live->Store(settings, "receiver");
        }
        QCOMPARE(settings.value("receiver/fontsize").toInt(), 20);
        QCOMPARE(settings.value("receiver/collapsed").toString(), QString("Head"));
        for (const bool isObject : {false, true}) {
            const Live live("<Widget name='Head' class='Headline'/>" + Body, QString(), {}, "not connected");
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
        QWidget host;
        if (ended == "both")
            live.window->setParent(&host);
        bool isOver = false;
        EventLog log;
        log.Watch("session", live.session.get());
        log.On("session." + signal, [&] {
            isOver = true;
            if (ended != "session")
                delete live.window.data();
            if (ended != "window")
                live.session.reset();
        });
        live->SetAnswerTime(1);
        live.Enter("Gain", "42");
        if (live.window && live.session)
            live->Report("Level", 3);
        if (live.session)
            live->Reload("<ZkParamGui>");
        QTRY_VERIFY(isOver);
        if (live.session) {
            QVERIFY(live->Report("Level", 4));
            live->Apply();
            QCOMPARE(live->Value("Level"), QVariant(4.0));
        }
        QCOMPARE(live.window.isNull() || ended == "session", true);
    }
};

ORBEL_TEST_MAIN(TestSession)
#include "tst_session.moc"
