// The full frequency control with keys, mouse and wheel, and what a form makes of it and of ranges.

#include "frequencyfield.h"
#include "orbelfrequencyedit.h"
#include "orbelfrequencyrangeedit.h"
#include "story.h"
#include "tree.h"
#include "valuenumeric.h"
#include "vcbutton.h"
#include "vcfrequency.h"
#include "vcminifrequency.h"

namespace
{

ValueDouble *NewNode(const QString &name, double hertz)
{
    auto *node = new ValueDouble(name);
    node->SetValue(hertz, nullptr);
    Tree::Instance()->AddNode("/F", node);
    return node;
}

/// A window with the control on a node of 145.5 MHz between 9 kHz and 26.5 GHz, and another field.
struct Window : QWidget {
    Window()
    {
        node = NewNode("frequency", 145.5e6);
        node->SetMinMax(9000, 26.5e9, 1, nullptr);
        control = new VCFrequency(this, "control", false, nullptr, true);
        other = new QLineEdit(this);
        auto *box = new QVBoxLayout(this);
        box->addWidget(control);
        box->addWidget(other);
        control->SetFrequency_ValuePath("/F/frequency");
        control->SetBandwidth_ValuePath("/F/Bandwidth");
        field = control->findChild<Orbel::FrequencyField *>();
        resize(700, 100);
        show();
        activateWindow();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("The window does not become active");
        field->setFocus(Qt::TabFocusReason);
    }
    ~Window() override { Tree::Instance()->RemoveNode("/F/frequency"); }

    /// "U", "D", "L", "R" arrows, "^" Page Up, "v" Page Down, "[" Home, "]" End, "\n" Return, "!" Escape, "+" F2; all
    /// else is typed.
    void Operate(const QString &keys)
    {
        static const QMap<QChar, Qt::Key> special{{'U', Qt::Key_Up}, {'D', Qt::Key_Down}, {'L', Qt::Key_Left},
            {'R', Qt::Key_Right}, {'^', Qt::Key_PageUp}, {'v', Qt::Key_PageDown}, {'[', Qt::Key_Home},
            {']', Qt::Key_End}, {'\n', Qt::Key_Return}, {'!', Qt::Key_Escape}, {'+', Qt::Key_F2},
            {'<', Qt::Key_Backspace}};
        for (const QChar key : keys) {
            if (special.contains(key))
                QTest::keyClick(field, special.value(key));
            else
                QTest::keyClick(field, key.toLatin1());
        }
    }
    /// Where a digit of the shown text stands.
    QPoint Digit(int position) const
    {
        const int digit = field->fontMetrics().horizontalAdvance("0");
        for (int x = 0; x < field->width(); ++x) {
            if (field->cursorPositionAt({x, field->height() / 2}) == position + 1)
                return {x - digit / 4, field->height() / 2};
        }
        return {};
    }
    void Wheel(const QPoint &point, int notches)
    {
        QWheelEvent event(point, field->mapToGlobal(point), {}, {0, 120 * notches}, {}, {}, {}, false);
        QApplication::sendEvent(field, &event);
    }

    ValueDouble *node;
    VCFrequency *control;
    QLineEdit *other;
    Orbel::FrequencyField *field;
};

QString Frequency(const QStringList &more = {"parameterXmlTag=String:Frequency"})
{
    return Labelled("f", "FrequencyEdit", QStringList{"value=String:145500000"} + more);
}

QString Range(const QStringList &more = {})
{
    return Labelled("r", "FrequencyRangeEdit",
        QStringList{"startFrequency=String:10000", "stopFrequency=String:20000",
            "startFrequencyParameterXmlTag=String:From", "stopFrequencyParameterXmlTag=String:To"}
            + more);
}

} // namespace

class TestFrequency : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keys_data()
    {
        const auto row = Columns<QString, double, QString>({"keys", "hertz", "shown"});
        row("up on the digit of 1 kHz", "U", 145.501e6, "145.501 000 MHz");
        row("carry", "LLUUUUUU", 146.1e6, "146.100 000 MHz");
        row("down and up beyond the first digit", "[DDU", 100009000.0, "100.009 000 MHz");
        row("a digit that only zeros lead to", "[LU", 1145.5e6, "1.145 500 000 GHz");
        row("ten steps up and down, and one on the digit to the right", "^^vRU", 145.5101e6, "145.510 100 MHz");
        row("clamped above", "[LLUUUUU", 26.5e9, "26.500 000 000 GHz");
        row("typed beyond the limit", "90g\n", 145.5e6, "90g");
        row("taken back", "7.05M!", 145.5e6, "145.500 000 MHz");
        row("wrong text stays and is not taken", "7.0.5\n", 145.5e6, "7.0.5");
        row("nothing typed", "7<\n", 145.5e6, "");
        row("still edited in place where the text is the old one", "+<z<<<<<k\n", 145500.0, "145.500 kHz");
        row("an edit in place taken back", "+!U", 145.501e6, "145.501 000 MHz");
        row("a letter is no number and goes", "x M!", 145.5e6, "145.500 000 MHz");
        row("tuning waits for the typed text", "7U", 145.5e6, "7");
    }
    void keys()
    {
        const auto [keys, hertz, shown] = Fetch<QString, double, QString>({"keys", "hertz", "shown"});
        Window window;
        window.Operate(keys);
        QCOMPARE(window.node->GetValue(), hertz);
        QCOMPARE(window.field->text(), shown);
        window.other->setFocus();
        QVERIFY(window.field->selectedText().isEmpty());
    }

    /// A text that comes at once, and none, while the field shows its number and while somebody types.
    void whatIsInsertedReplacesTheShownNumber_data()
    {
        const auto row = Columns<QString, QString, QString, QString>({"road", "typed", "text", "shown"});
        row("composed", "compose", "", "7.05M", "7.05M");
        row("nothing composed", "compose", "", "", "145.500 000 MHz");
        row("dropped", "drop", "", "7.05M", "7.05M");
        row("nothing dropped", "drop", "", "", "145.500 000 MHz");
        row("dropped behind what is typed", "drop", "8", "7.05M", "87.05M");
        row("pasted from the menu", "menu", "", "7.05M", "7.05M");
    }
    void whatIsInsertedReplacesTheShownNumber()
    {
        const auto [road, typed, text] = Fetch<QString, QString, QString>({"road", "typed", "text"});
        Window window;
        window.Operate(typed);
        if (road == "compose") {
            QInputMethodEvent event;
            event.setCommitString(text);
            QApplication::sendEvent(window.field, &event);
        } else if (road == "drop") {
            QMimeData data;
            data.setText(text);
            QDragEnterEvent enter({500, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window.field, &enter);
            QDropEvent event({500, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window.field, &event);
        } else {
            QContextMenuEvent event(QContextMenuEvent::Keyboard, {10, 10});
            QApplication::sendEvent(window.field, &event);
            QApplication::activePopupWidget()->close();
            window.field->insert(text);
        }
        QTEST(window.field->text(), "shown");
        QCOMPARE(window.node->GetValue(), 145.5e6);
    }

    void theWheelTunesTheDigitUnderTheMouse()
    {
        Window window;
        window.Wheel(window.Digit(2), 1);
        QCOMPARE(window.node->GetValue(), 146.5e6);
        window.Wheel(window.Digit(4), -2);
        QCOMPARE(window.node->GetValue(), 146.3e6);
        window.Operate("]");
        window.Wheel({5, 10}, 1);
        QCOMPARE(window.node->GetValue(), 146300001.0);
        window.other->setFocus();
        window.Wheel(window.Digit(2), 1);
        QCOMPARE(window.node->GetValue(), 146300001.0);
    }

    void theDigitUnderTheMouseIsLitAndMayBeTunedWithoutTheFocus()
    {
        Window window;
        window.other->setFocus();
        const QImage before = window.field->grab().toImage();
        const QPoint digit = window.Digit(2);
        QTest::mouseMove(window.field, digit);
        const auto isLit = [&](int x) {
            const QImage now = window.field->grab().toImage();
            return now.pixel(x, 4) != before.pixel(x, 4);
        };
        QTRY_VERIFY(isLit(digit.x()));
        QVERIFY(!isLit(window.Digit(1).x()));
        QVERIFY(!isLit(window.Digit(4).x()));
        window.control->TuneByHovering(true);
        window.Wheel({5, 10}, 1);
        QCOMPARE(window.node->GetValue(), 145.5e6);
        window.Wheel(digit, 1);
        window.Wheel(digit, 1);
        QCOMPARE(window.node->GetValue(), 147.5e6);
        QVERIFY(window.other->hasFocus());
        QVERIFY(window.control->GetHistory().isEmpty());
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(window.field, &leave);
        QCOMPARE(window.control->GetHistory(), QVector<double>({147.5e6, 145.5e6}));
        QVERIFY(!isLit(digit.x()));
    }

    void aClickMarksItsDigitAndTheButtonsStepIt()
    {
        Window window;
        window.other->setFocus();
        QTest::mouseClick(window.field, Qt::LeftButton, {}, window.Digit(1));
        QCOMPARE(window.field->selectionStart(), 1);
        QTest::mouseClick(window.control->findChild<QWidget *>("decrement"), Qt::LeftButton);
        QTRY_COMPARE(window.node->GetValue(), 135.5e6);
        window.other->setFocus();
        QTest::mouseClick(window.control->findChild<QWidget *>("increment"), Qt::LeftButton);
        QTRY_COMPARE(window.node->GetValue(), 145.5e6);
        QSignalSpy tuned(window.control, &VCFrequency::signalTune);
        QTest::mouseClick(window.control->GetTuneButton(), Qt::LeftButton);
        QCOMPARE(tuned, QList<QVariantList>({{145.5e6}}));
    }

    void thePartsStandBesideTheField()
    {
        Window window;
        NewNode("Bandwidth", 12500);
        QCoreApplication::processEvents();
        const auto at = [&](const char *name) { return window.control->findChild<QWidget *>(name)->geometry(); };
        const QRect field = at("frequency"), up = at("increment"), down = at("decrement"), entry = at("entry");
        QVERIFY(field.right() < up.left() && field.top() == up.top() && field.bottom() == down.bottom());
        QVERIFY(up.bottom() < down.top() && up.right() < entry.left() && entry.bottom() < at("history").top());
        QVERIFY(entry.right() < at("tune").left() && field.bottom() < at("bandwidth").top());
        QStringList names;
        for (const QToolButton *button : window.control->findChildren<QToolButton *>())
            names << button->accessibleName();
        QCOMPARE(names.join(", "),
            QString("Step up the marked digit, Step down the marked digit, Type a frequency, Last frequencies"));
        auto *held = window.control->findChild<QWidget *>("increment");
        QTest::mousePress(held, Qt::LeftButton);
        QTRY_VERIFY2(window.node->GetValue() > 145.502e6, "one step after another");
        QTest::mouseRelease(held, Qt::LeftButton);
        Tree::Instance()->RemoveNode("/F/Bandwidth");
    }

    void theHistoryHasWhatTheOperatorSet()
    {
        Window window;
        window.Operate("7M\nUUU8M\n");
        QCOMPARE(window.control->GetHistory(), QVector<double>({8e6, 7003000, 7e6, 145.5e6}));
        window.node->SetValue(50e6, nullptr);
        window.Operate("7M\n");
        QCOMPARE(window.control->GetHistory(), QVector<double>({7e6, 50e6, 8e6, 7003000, 145.5e6}));
        for (int i = 1; i < 20; ++i)
            window.control->slotAddToHistory(i);
        QCOMPARE(window.control->GetHistory().size(), 12);
        window.control->slotAddToHistory(15);
        QCOMPARE(window.control->GetHistory().mid(0, 3), QVector<double>({15, 19, 18}));
        window.control->slotSetFrequencyValue(9e6);
        window.Operate("U");
        window.other->setFocus();
        QCOMPARE(window.control->GetHistory().mid(0, 3), QVector<double>({9001000, 9e6, 7e6}));

        window.field->setFocus();
        QTest::keyClick(window.field, Qt::Key_F4);
        auto *menu = window.control->findChild<QMenu *>("frequencyHistory");
        QTRY_VERIFY(menu && menu->isVisible());
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QTRY_COMPARE(window.node->GetValue(), 9e6);
    }

    void typingIsToldAndCommittedOnRequest()
    {
        Window window;
        const QSignalSpy typed(window.control, &VCFrequency::signalTextEdited);
        window.Operate("U7M");
        window.node->SetValue(50e6, nullptr);
        QCOMPARE(typed, QList<QVariantList>({{"7"}, {"7M"}}));
        window.control->endEdit();
        QCOMPARE(window.node->GetValue(), 7e6);
        connect(window.control, &VCFrequency::signalTextEdited, [&] { delete window.control; });
        window.Operate("U8");
    }

    void theBandwidthFollowsItsNode()
    {
        Window window;
        auto *label = window.control->findChild<QLabel *>("bandwidth");
        QVERIFY(!label->isVisible());
        for (int round = 0; round < 2; ++round) {
            ValueDouble *bandwidth = NewNode("Bandwidth", 12500);
            QVERIFY(label->isVisible());
            QCOMPARE(label->text(), QString("Bandwidth 12.500 kHz"));
            bandwidth->SetValue(25000, nullptr);
            QCOMPARE(label->text(), QString("Bandwidth 25.000 kHz"));
            Tree::Instance()->RemoveNode("/F/Bandwidth");
            QVERIFY(!label->isVisible());
        }
        const std::unique_ptr<ValueDouble> node(NewNode("Bandwidth", 12500));
        QVERIFY(label->isVisible() && !window.control->SetBandwidth_ValuePath("/F/none"));
        QVERIFY(!label->isVisible());
    }

    void lockedInputChangesNothing_data()
    {
        const auto row = Columns<QString, QByteArray>({"lock", "free"});
        row("locked, then enabled", "EnableInput", "enabled");
        row("locked, then no longer read-only", "EnableInput", "readOnly");
        row("read-only", "readOnly", "readOnly");
        row("no node", "no node", "");
        row("node lost", "node lost", "");
    }
    void lockedInputChangesNothing()
    {
        const auto [lock, free] = Fetch<QString, QByteArray>({"lock", "free"});
        Window window;
        if (lock == "EnableInput")
            window.control->EnableInput(false);
        else if (lock == "readOnly")
            window.control->setProperty("readOnly", true);
        else if (lock == "no node")
            QVERIFY(!window.control->SetFrequency_ValuePath("/F"));
        else
            Tree::Instance()->RemoveNode("/F/frequency");
        QVERIFY(!window.control->GetHistoryButtonCtrl()->isEnabled());
        QVERIFY(window.field->palette().color(QPalette::Base) == window.palette().color(QPalette::Window));
        window.Operate("U7M\n");
        window.Wheel(window.Digit(1), 1);
        window.control->slotIncrement();
        if (free.isEmpty())
            return;
        QCOMPARE(window.node->GetValue(), 145.5e6);
        window.control->setProperty(free, free == "enabled");
        window.Operate("U");
        QCOMPARE(window.node->GetValue(), 145.501e6);
        QVERIFY(window.control->GetHistoryButtonCtrl()->isEnabled());
    }

    /// In the large form and in the plain one, as tag and property say.
    void anEditReachesNodePropertyAndSignals_data()
    {
        const auto row = Columns<QString, QStringList, bool>({"tag", "more", "large"});
        row("called Frequency", "Frequency", {}, true);
        row("another spelling", "frequency", {}, false);
        row("large form wanted", "Step", {"MainFreqEdit=Bool:true"}, true);
        row("large form refused", "Frequency", {"MainFreqEdit=Bool:false"}, false);
    }
    void anEditReachesNodePropertyAndSignals()
    {
        const auto [tag, more, large] = Fetch<QString, QStringList, bool>({"tag", "more", "large"});
        LiveForm live(Frequency(more + QStringList{"parameterXmlTag=String:" + tag}));
        QCOMPARE(live.Find("FrequencyControl") != nullptr, large);
        auto *field = live.Find<QLineEdit>(large ? "frequency" : "f");
        QCOMPARE(field->text(), QString("145.500 000 MHz"));
        auto *f = live.Get<OrbelFrequencyEdit>("f");
        live.log.Watch("f", f);
        auto *node = dynamic_cast<ValueDouble *>(f->GetVTValue());
        node->SetValue(1000000.9, nullptr);
        QCOMPARE(live.log.Take(), QString("f.valueChanged(1000000) f.editingFinished()"));
        QCOMPARE(f->property("value"), QVariant(qint64(1000000)));
        QVERIFY(f->isModified() && QMetaObject::invokeMethod(f, "SlotReturnPressed"));
        QCOMPARE(live.log.Take(), QString("f.returnPressed() sheet.si_parametersModified()"));
        node->SetValue(1000000.2, nullptr);
        live.form->SetXmlString("<Parameters><" + tag + ">abc</" + tag + "></Parameters>");
        QCOMPARE(live.log.Take(), QString("f.valueChanged(0)"));
        QVERIFY(live.form->GetXmlString(false).contains("<" + tag + ">abc</" + tag + ">"));
        live.form->GetXmlString(true);
        field->setFocus();
        QTest::keyClicks(field, "1");
        QVERIFY2(live.form->GetSheet().isModified() != large, "typing marks the plain form at once");
    }

    void stories_data()
    {
        const auto row = Stories();
        // clang-format off
        row("a range repairs itself", Range(), {
            "node r_1=15000 => r.rangeChanged(15000, 20000) r.editingFinished() r=15000",
            "node r_1=30000 => r.rangeChanged(30000, 30001) r.editingFinished() r=30000", "written => <From>30000</From> <To>30001</To>",
            "node r_2=9000 => r=8999 r.rangeChanged(8999, 9000) r.editingFinished()",
            "node r_2=8999 => r=8998 r.rangeChanged(8998, 8999) r.editingFinished()",
            "node r_1=8999 => r.rangeChanged(8999, 9000) r.editingFinished() r=8999", "written => <From>8999</From> <To>9000</To>",
            "node r_1=1e12 => r.rangeChanged(26499999999, 26500000000) r.editingFinished() r=26499999999",
            "node r_2=0 => r=8000 r.rangeChanged(8000, 8001) r.editingFinished()"});
        row("a range beyond all integers", Range({"maximum=String:1e308"}), {
            "node r_1=1e30 => r=9223372036854776000 r.rangeChanged(9223372036854775807, 9223372036854775807) r.editingFinished() r=9223372036854776000"});
        row("a range is set as it is", Range(), {
            "script r.setRange(50000, 40000) => r=50000",
            "hold r_1 r_2 => 50000|40000",
            "document <To>9000</To><Other>1</Other><From>60000</From> => r=60000",
            "hold r_1 r_2 => 60000|9000",
            "script r.setStartFrequencyParameterXmlTag('Begin')",
            "document <From>1</From><To>9500</To> =>",
            "written => <Begin>60000</Begin> <To>9000</To>",
            "see r_StartFrequency.toolTip r_StopFrequency.startFrequencyParameterXmlTag => Start Frequency|Begin"});
        // clang-format on
    }
    void stories() { PlayStory(); }

    void theLockWaitsForTheScript()
    {
        Story live(Frequency());
        live.Play({"shown LockFrequency => -"});
        live.Get("f")->setProperty("FrequencyLock", false);
        live.Play({"see LockFrequency.visible LockFrequency.toolTip => true|Lock frequency range",
            "click LockFrequency => f.si_lockButtonToggled(true)",
            "see LockFrequency.toolTip => Lock frequency range"});
        live.Get("f")->setProperty("FrequencyLock", true);
        live.Play({"see LockFrequency.toolTip => Unlock frequency range", "script f.setVisible(false) =>",
            "shown LockFrequency => -"});
    }
};

ORBEL_TEST_MAIN(TestFrequency)
#include "tst_frequency.moc"
