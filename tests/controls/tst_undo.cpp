// What the operator changed, undone and redone, in the form that holds every class, and in small ones.

#include "changesbutton.h"
#include "fieldnote.h"
#include "formchanges.h"
#include "orbelspinbox.h"
#include "story.h"
#include "valuecommentedrangemap.h"
#include "vclineedit.h"
#include "vcnumericfloatspin.h"

namespace
{

/// A frequency, a text and two numbers; "gain" announces to the script's log.
QString Receiver()
{
    return Labelled("f", "FrequencyEdit", {"MainFreqEdit=Bool:true", "value=String:145500000", "maximum=String:1e9"})
        + Labelled("text", "LineEdit", {"text=String:one"})
        + Labelled("gain", "SpinBox", {"value=Int:5", "maximum=Int:60"})
        + Labelled("range", "FrequencyRangeEdit",
            {"startFrequency=String:1000000", "stopFrequency=String:2000000",
                "startFrequencyParameterXmlTag=String:Start", "stopFrequencyParameterXmlTag=String:Stop"});
}

/// The form of all classes, and the whole of what it holds and shows, as text.
struct Whole : AllControls {
    QString State() const
    {
        QStringList state(form->GetXmlString(false));
        for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i)
            for (const QVariant &value : form->GetSheet().GetWidgetAt(i)->GetDelegate()->GetEdits())
                state << value.toString();
        for (const QLineEdit *field : window->findChildren<QLineEdit *>())
            state << field->text();
        for (const QCheckBox *box : window->findChildren<QCheckBox *>())
            state << QString::number(box->isChecked());
        return state.join('|');
    }
};

struct HostsCommand : QUndoCommand {
    static HostsCommand *UndoneOn(QUndoStack *stack)
    {
        auto *command = new HostsCommand;
        stack->push(command);
        stack->undo();
        return command;
    }
    void redo() override { Act(); }
    std::function<void()> Act = [] {};
};

void RunEventLoop()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
}

void EnterExclusions(const Form &form, const QString &object)
{
    QTimer::singleShot(0, [] {
        QWidget *dialog = QApplication::activeModalWidget();
        auto *table = dialog->findChild<QTableWidget *>();
        table->item(0, 0)->setText("100");
        table->item(0, 1)->setText("200");
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    QMetaObject::invokeMethod(Delegate(form, object), "sl_editExclusionRanges");
}

} // namespace

class TestUndo : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyClassGoesBackAndForth()
    {
        Whole all;
        const auto typed
            = [&](const QString &name, const QString &text) { return [&all, name, text] { all.Enter(name, text); }; };
        const std::vector<std::function<void()>> edits{typed("lineEdit", "ANT 2"), typed("ipEdit", "10.0.0.2"),
            [&] { all.Check("checkBox", false); }, [&] { all.Choose("comboBox", "Upper sideband"); },
            typed("SpinBox", "13"), typed("doubleSpinBox", "2.5"), typed("baudRate", "4800"), typed("bandwidth", "15"),
            typed("frequency", "146 MHz"), typed("frequencyRangeEdit[0]", "147 MHz"),
            typed("frequencyRangeEdit[1]", "20 MHz"), typed("offset", "7"), typed("spinBoxList[2]", "4"),
            typed("doubleSpinBoxList[1]", "1.5"), typed("shiftList[1]", "170"), typed("tableWidget[0]", "a"),
            typed("tableWidget[1]", "b"), typed("spacings[1]", "20"), [&] { EnterExclusions(all.form, "dsc"); },
            [&] { EnterExclusions(all.form, "fhp"); }};

        QStringList states{all.State()}, texts;
        const QUndoStack *stack = all.form->GetUndoStack();
        for (const auto &edit : edits) {
            edit();
            states << all.State();
            QVERIFY2(states.last() != states.at(states.size() - 2), qPrintable(stack->undoText()));
        }
        QCOMPARE(stack->count(), int(edits.size()));
        for (int i = 0; i < stack->count(); ++i)
            texts << stack->text(i);
        QCOMPARE((texts.mid(0, 5) + texts.mid(7, 2) + texts.mid(17, 1)).join(" / ").replace("\u2192", "to"),
            QString(
                "Line edit: ANT 1 to ANT 2 / Address: 10.0.0.1 to 10.0.0.2 / Check box: on to off / Combo box: FM to "
                "Upper sideband / Spin box: 12 dB to 13 dB / Bandwidth: 2.700 kHz to 15.000 kHz / Frequency: 145.500 "
                "000 MHz to 146.000 000 MHz / Channel spacing 2: 12.50 to 20.00"));
        for (int round = 0; round < 2; ++round) {
            for (int i = int(edits.size()) - 1; i >= 0; --i) {
                all.form->GetSheet().GetChanges()->Undo();
                QVERIFY2(all.State() == states.at(i), qPrintable(texts.at(i)));
            }
            for (int i = 1; i < states.size(); ++i) {
                all.form->GetSheet().GetChanges()->Redo();
                QVERIFY2(all.State() == states.at(i), qPrintable(texts.at(i - 1)));
            }
        }
    }

    void stories_data()
    {
        const auto row = Stories();
        const QString spacings = Labelled("t", "ChannelSpacingTable", {"spacingsCount=Int:3", "decimals=Int:1"});
        // clang-format off
        row("a tuning session is one entry", Receiver(), {
            "focus frequency", "press Up Up Up Up Up",
            "stack => 1 f: 145.500 000 MHz \u2192 145.505 000 MHz",
            "focus text", "focus frequency", "press Down",
            "stack => 2 f: 145.505 000 MHz \u2192 145.504 000 MHz",
            "press Ctrl+Z", "hold f => 145505000", "press Ctrl+Z", "hold f => 145500000",
            "press Up Down", "stack => 0",
            "focus gain", "press Up Up Up", "stack => 1 gain: 5 \u2192 8",
            "press Ctrl+A", "type 20", "press Up", "stack => 2 gain: 8 \u2192 21",
            "focus text", "focus gain", "press Up", "stack => 3 gain: 21 \u2192 22",
            "press Ctrl+Z", "hold gain => 21", "press Ctrl+Z", "hold gain => 8", "press Ctrl+Z", "hold gain => 5"});
        row("a special text is told", Labelled("squelch", "SpinBox", {"value=Int:5", "minimum=Int:0", "specialValueText=String:off", "suffix=String: dB"}), {
            "focus squelch", "enter off", "stack => 1 squelch: 5 dB \u2192 off"});
        row("only the operator's own control is recorded", Receiver(), {
            "script gain['valueChanged(int)'].connect(function (v) { text.setText('g' + v); }); text.setText('script'); gain.setValue(9)",
            "node gain=11", "document <gain>12</gain>",
            "stack => 0",
            "focus gain", "press Up", "stack => 1 gain: 12 \u2192 13",
            "press Ctrl+Z", "hold text => g12"});
        row("an item that a script sets is not", Labelled("list", "SpinBoxList", {"itemCount=Int:3", "maximum=Int:99", "value=Int:1"}), {
            "script list['valueChanged(int,int)'].connect(function (i, v) { if (i == 0) list.setItemValue(1, 6 * v); })",
            "focus list_0", "enter 7", "stack => 1 list 1: 1 \u2192 7",
            "press Ctrl+Z", "hold list_0 list_1 => 1|6"});
        row("a cell that a script sets is not", spacings, {
            "script t.spacingValueChanged.connect(function (row, v) { if (row == 0) t.setSpacingValue(2, 13 + v); })",
            "cell t 0 0", "enter 20", "stack => 1 t 1: 0.0 \u2192 20.0",
            "press Ctrl+Z", "cells t => 0|0|13"});
        row("cells in a grid of another shape", Labelled("t", "TableWidget", {"rowCount=Int:2", "columnCount=Int:2"}), {
            "cell t 0 0", "enter a", "cell t 1 1", "enter b", "cells t => a|||b", "stack => 2 t 1/1: (empty) \u2192 b",
            "script t.setRowCount(3)", "cells t => |||b||",
            "press Ctrl+Z", "cells t => |||||",
            "script t.setColumnCount(3)",
            "press Ctrl+Z", "stack => 1"});
        row("a value that the limits keep out is dropped", Receiver(), {
            "focus text", "enter two", "focus gain", "press Up",
            "script gain.setMinimum(6)",
            "press Ctrl+Z", "hold gain text => 6|one", "stack => 1"});
        row("typing is taken back first", Receiver(), {
            "focus gain", "enter 7", "focus text", "enter two", "type x",
            "press Ctrl+Z", "see text.text => two", "hold text => two",
            "press Ctrl+Z", "see text.text => one", "hold text gain => one|7",
            "press Ctrl+Z", "hold gain => 5",
            "press Ctrl+Shift+Z", "focus gain", "type 42",
            "press Ctrl+Z", "hold gain => 7"});
        row("a cell in its editor reaches the form", Labelled("gain", "SpinBox", {"value=Int:5"}) + spacings, {
            "focus gain", "enter 7", "cell t 1 0",
            "press Ctrl+Z", "hold gain => 5", "press Esc"});
        row("a lock keeps the entry", Receiver() + Labelled("check", "CheckBox"), {
            "focus gain", "enter 7", "focus text",
            "script gain.setEnabled(false)",
            "press Ctrl+Z", "hold gain => 7", "note text => gain is locked",
            "script gain.setEnabled(true); gain.setReadOnly(true)",
            "press Ctrl+Z", "hold gain => 7",
            "script gain.setReadOnly(false); check.setReadOnly(true)",
            "press Ctrl+Z", "hold gain => 5",
            "click check", "press Ctrl+Z", "see check.checked => false"});
        // clang-format on
    }
    void stories() { PlayStory(); }

    /// What a host has set since stays, the other cells go back.
    void severalCellsAreOneEntry()
    {
        Story live(Labelled("t", "ChannelSpacingTable", {"spacingsCount=Int:3", "decimals=Int:1"}));
        QGuiApplication::clipboard()->setText("1\n2\n3");
        live.Play({"focus t", "press Ctrl+V", "stack => 1 t: 0.0, 0.0, 0.0 \u2192 1.0, 2.0, 3.0",
            "script t.setSpacingValue(1, 9)", "press Ctrl+Z", "cells t => 0|9|0"});
        live.form->GetXmlString(true);
        live.Play({"cell t 0 0", "enter 7", "script t.setSpacingsCount(4)"});
        live.form->GetSheet().GetChanges()->RevertAll();
        live.Play({"cells t => 0|9|0|0"});
    }

    void whatTheOperatorDoesInAHandlerComesAfterIt_data()
    {
        const auto row = Columns<QString, QString>({"field", "told"});
        row("another item of the list", "list_2", "list 3: 1 \u2192 2");
        row("another control", "gain", "gain: 5 \u2192 6");
    }

    /// A handler's event loop lets the operator go on.
    void whatTheOperatorDoesInAHandlerComesAfterIt()
    {
        LiveForm live(Labelled("list", "SpinBoxList", {"itemCount=Int:3", "maximum=Int:99", "value=Int:1"})
            + Labelled("gain", "SpinBox", {"value=Int:5"}));
        const auto [field] = Fetch<QString>({"field"});
        live.log.Watch("list", live.Get("list"));
        live.log.On("list.valueChanged(0", [&, field = field] { QTest::keyClick(live.Find(field), Qt::Key_Up); });
        live.Press("Up");
        QUndoStack *stack = live.form->GetUndoStack();
        QTRY_COMPARE(stack->text(0), QString("list 1: 1 \u2192 2"));
        QTEST(stack->undoText(), "told");
        live.form->GetSheet().GetChanges()->RevertAll();
        QCOMPARE(live.Get("list")->GetEdits(), QVariantList({"1", "1", "1"}));
        // Nor is it a part of an entry that moves.
        stack->setIndex(0);
        live.log.On("list.valueChanged(0", [&] { live.Enter("list[0]", "9"); });
        live.Redo();
        QCOMPARE(live.Get("list")->GetEdits(), QVariantList({"9", "1", "1"}));
        stack->setIndex(0);
        QCOMPARE(live.Get("list")->GetEdits(), QVariantList({"1", "1", "1"}));
    }

    void signalsAreTheOperators()
    {
        for (const char *name : {"gain", "text"}) {
            LiveForm live(Receiver());
            auto *field = live.Find(name);
            live.log.Watch(name, live.Get(name));
            for (const QString text : {"7", name == QString("text") ? "one" : "5"}) {
                live.form->GetXmlString(true);
                TypeOver(field, text);
                live.log.Take();
                live.Press("Return");
            }
            const QString own = live.log.Take().remove(
                QRegularExpression(" ?(text\\.returnPressed|sheet\\.si_parametersModified)\\(\\)"));
            live.form->GetUndoStack()->undo();
            live.log.Take();
            live.form->GetUndoStack()->redo();
            const QString redone = live.log.Take();
            QVERIFY2(redone.contains(own), qPrintable(own + " / " + redone));
            QVERIFY(live.Get(name)->isModified());
        }
    }

    /// What an undone or redone step of the history leaves, when it was interrupted in its handlers.
    void undoWithinACommit_data()
    {
        const auto row
            = Columns<QString, QString, QString, QString, QString>({"field", "first", "typed", "how", "history"});
        // clang-format off
        row("a number is undone", "gain", "7", "8", "undo", "5 7 8, at 1");
        row("a first step is undone", "gain", "", "", "undo", "5 6, at 0");
        row("a number is undone, and goes on from there", "gain", "7", "8", "step", "5 7 9, at 2");
        row("a number is undone by a host, too early", "gain", "7", "8", "host", "5 7 8, at 2");
        row("a number is reverted", "gain", "7", "8", "revert", "5 7 8 5, at 3");
        row("a range is reverted", "range_StopFrequency", "7 MHz", "500 kHz", "revert", "1000000/2000000 1000000/7000000 499999/500000 1000000/2000000, at 3");
        // clang-format on
    }

    void undoWithinACommit()
    {
        const auto [name, first, typed, how]
            = Fetch<QString, QString, QString, QString>({"field", "first", "typed", "how"});
        LiveForm live(Receiver());
        auto *field = live.Find(name);
        auto *control = live.Get(name.section('_', 0, 0));
        const QVariantList applied = control->GetEdits();
        if (!first.isEmpty())
            live.Enter(name, first);
        live.log.Watch("c", control);
        auto *changes = live.form->GetSheet().GetChanges();
        if (!typed.isEmpty())
            TypeOver(field, typed);
        const QString told = name == "gain" ? "c.valueChanged" : "c.rangeChanged";
        live.log.On(told, [&, how = how] {
            QEventLoop loop;
            QTimer::singleShot(0, &loop, [&] {
                if (how == "step")
                    live.log.On(told, [&] { QTest::keyClick(field, Qt::Key_Up); });
                if (how == "host")
                    live.form->GetUndoStack()->undo();
                else
                    how != "revert" ? changes->Undo() : changes->RevertAll();
                loop.quit();
            });
            loop.exec();
        });
        QTest::keyClick(field, typed.isEmpty() ? Qt::Key_Up : Qt::Key_Return);
        QUndoStack *stack = live.form->GetUndoStack();
        const int at = stack->index();
        QCOMPARE(control->IsChanged(), control->GetEdits() != applied);
        QStringList history;
        stack->setIndex(0);
        for (int i = 0; i <= stack->count(); ++i) {
            stack->setIndex(i);
            QStringList texts;
            for (const QVariant &value : control->GetEdits())
                texts << value.toString();
            history << texts.join('/');
        }
        QTEST(history.join(' ') + ", at " + QString::number(at), "history");
    }

    /// A list of ranges goes back with its keys, ids and comments, which its dialog does not know.
    void exclusionsKeepWhatTheirTextDoesNotTell()
    {
        LiveForm live(Labelled("fhp", "SpecialObject_FHP"));
        auto *ranges = dynamic_cast<ValueCommentedRangeMap *>(Tree::Instance()->GetNode("/Form/fhp"));
        CommentedRange range;
        range.SetComment("a  beacon");
        ranges->SetAt(7, range, nullptr);
        EnterExclusions(live.form, "fhp");
        QCOMPARE(ranges->GetStringValue() + ranges->data().at(0).GetComment(), QString("100000..200000"));
        live.Undo();
        QVERIFY2(ranges->data().at(7) == range, "as it was");
        live.Redo();
        QCOMPARE(ranges->GetStringValue(), QString("100000..200000"));
    }

    /// A host moves the stack over several entries, and what it tells of takes the focus from a field in which somebody
    /// types.
    void aCommitWithinARedoComesAfterIt()
    {
        LiveForm live(Receiver());
        QUndoStack *stack = live.form->GetUndoStack();
        for (const char *typed : {"7", "8"})
            live.Enter("gain", typed);
        live.form->GetSheet().GetChanges()->RevertAll();
        QTRY_COMPARE(stack->text(1), QString("gain: 7 \u2192 8"));
        stack->setIndex(0);
        live.Type("text", "two");
        connect(live.Get<OrbelSpinBox>("gain"), &OrbelSpinBox::valueChanged, live.Find("gain"), [&](int value) {
            if (value == 8)
                live.Find("gain")->setFocus();
        });
        stack->setIndex(2);
        QCOMPARE(stack->index(), 3);
        QTRY_COMPARE(stack->undoText(), QString("text: one \u2192 two"));
        stack->undo();
        QCOMPARE(live.Node("text"), QString("one"));
    }

    /// The same in a command of the host's own, which may have an event loop.
    void aCommitWithinAHostsCommandComesAfterIt_data()
    {
        const auto row = Columns<bool, bool>({"waits", "takesBack"});
        row("that takes the focus", false, false);
        row("that waits in an event loop", true, false);
        row("that waits while the operator takes it back", true, true);
    }

    void aCommitWithinAHostsCommandComesAfterIt()
    {
        const auto [waits, takesBack] = Fetch<bool, bool>({"waits", "takesBack"});
        LiveForm live(Receiver());
        QUndoStack *stack = live.form->GetUndoStack();
        HostsCommand *command = HostsCommand::UndoneOn(stack);
        QCoreApplication::processEvents();
        command->Act = [&live, waits = waits, takesBack = takesBack] {
            live.Find("gain")->setFocus();
            if (waits)
                RunEventLoop();
            if (takesBack)
                live.Undo();
        };
        live.Type("text", "two");
        QTimer::singleShot(0, stack, &QUndoStack::redo);
        QTRY_VERIFY(stack->index() > 0);
        QCOMPARE(live.Node("text"), QString(takesBack ? "one" : "two"));
        QTRY_COMPARE(stack->count(), takesBack ? 1 : 2);
        if (!takesBack)
            QTRY_COMPARE(stack->undoText(), QString("text: one \u2192 two"));
        stack->setIndex(0);
        QCOMPARE(live.Node("text"), QString("one"));
    }

    /// All in one handler, whose event loops are the only ones that the form has known.
    void aHostsCommandRunsInTheHandlerThatMadeTheForm()
    {
        int count = 0;
        QTimer::singleShot(0, this, [&count] {
            LiveForm live(Receiver());
            QUndoStack *stack = live.form->GetUndoStack();
            HostsCommand *command = HostsCommand::UndoneOn(stack);
            RunEventLoop();
            command->Act = [&] {
                live.Enter("gain", "7");
                RunEventLoop();
                count = stack->count();
            };
            stack->redo();
        });
        QTRY_COMPARE(count, 1);
    }

    void marks()
    {
        LiveForm live(Receiver());
        // Passing through a field marks it modified, and is no change to the eye.
        live.Find("range_StartFrequency")->setFocus();
        live.Type("gain", "7");
        QVERIFY(live.Get("range")->isModified() && !live.Get("range")->IsChanged());
        live.Press("Return");
        QTRY_COMPARE(live.Mark("gain"), RowLabel::Changed);
        QCOMPARE(live.Mark("range"), RowLabel::None);
        const std::pair<std::function<void()>, bool> steps[]{{[&] { live.Undo(); }, false},
            {[&] { live.Redo(); }, true}, {[&] { live.form->EvaluateScript("gain.setValue(5)"); }, false},
            {[&] { live.form->EvaluateScript("gain.setValue(8)"); }, true},
            {[&] { live.form->GetXmlString(true); }, false},
            {[&] { live.form->GetVTValue("gain")->SetStringValue("20", nullptr); }, true}};
        for (const auto &[step, marked] : steps) {
            step();
            QTRY_COMPARE(live.Mark("gain"), marked ? RowLabel::Changed : RowLabel::None);
        }
        live.Press("Up");
        live.form->GetXmlString(true);
        // What stood before an undo is what was applied; a control that is left out counts again once it is taken in.
        for (const bool back : {true, false}) {
            back ? live.Undo() : live.Redo();
            for (const bool in : {false, true}) {
                live.form->SelectWidgets({"gain"}, in);
                QTRY_COMPARE(live.Mark("gain"), back && in ? RowLabel::Changed : RowLabel::None);
                QCOMPARE(live.form->GetSheet().GetChanges()->GetChanged().size(), int(back && in));
            }
        }
    }

    void changesButton()
    {
        LiveForm live(Widget("head", "Headline", Usable + QStringList{"text=String:H"}) + Receiver());
        auto *button = live.Find<QToolButton>("changesButton");
        live.form->EvaluateScript("sheet.setAutoApplyEnabled(false)");
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()) && button->isHidden());
        const auto places = [&] {
            return QList<QRect>{live.Find("applyButton")->geometry(), live.Find("autoApply")->geometry()};
        };
        const QList<QRect> before = places();
        live.Type("gain", "7");
        live.Type("text", "two");
        live.Find("gain")->setFocus();
        QTRY_COMPARE(button->text(), QString("2"));
        QVERIFY(button->isVisible() && places() == before);
        QVERIFY(live.Find("applyButtonBox")->rect().contains(button->geometry()));

        // Opens the menu, chooses an action, and gives the texts of all.
        live.form->GetSheet().SetCollapsed({"head"});
        const auto choose = [&](const QString &text) {
            live.Click("changesButton");
            QMenu *menu = nullptr;
            [&] { QTRY_VERIFY(menu = live.Find<QMenu>("changesMenu")); }();
            QStringList texts;
            for (QAction *action : menu->actions()) {
                texts << action->text();
                if (action->text().startsWith(text))
                    action->trigger();
            }
            menu->close();
            PassTime(0);
            return texts.join(" / ").replace("\u2192", "to");
        };
        QCOMPARE(choose("gain"),
            QString("Undo text: one to two\tCtrl+Z / Redo\tCtrl+Shift+Z /  / gain: 5 to 7 / text: one to two /"
                    "  / Apply\tCtrl+Return / Revert all"));
        QVERIFY(live.Get("gain")->isGroupVisible());
        QCOMPARE(live.window->focusWidget()->objectName(), QString("gain"));
        choose("Revert all");
        QCOMPARE(live.Node("gain") + live.Node("text"), QString("5one"));
        QTRY_COMPARE(button->text(), QString("0"));
        QCOMPARE(live.form->GetUndoStack()->undoText(), QString("Revert all"));
        live.Undo();
        QCOMPARE(live.Node("text"), QString("two"));

        const QSignalSpy announced(live.form.data(), &OrbelFormular::si_parametersModified);
        for (int typed : {9, 10, 11}) {
            live.Type("gain", QString::number(typed));
            live.form->EnableInput(typed < 11);
            live.Apply();
            QCOMPARE(announced.size(), std::min(typed, 10) - 8);
        }
        QCOMPARE(live.Node("gain"), QString("10"));
    }

    void formsOfOneWindowKeepApart()
    {
        LiveForm one(Receiver(), false), two(Receiver(), false, "/Two");
        QWidget window;
        for (const LiveForm *form : {&one, &two})
            form->window->setParent(&window);
        window.show();
        QApplication::setActiveWindow(&window);
        QAction hosts;
        hosts.setShortcut(QKeySequence::Undo);
        window.addAction(&hosts);
        const QSignalSpy triggered(&hosts, &QAction::triggered);
        one.Type("gain", "7");
        two.Type("gain", "8");
        for (const auto &[key, modifiers] :
            {std::pair(Qt::Key_Return, Qt::NoModifier), {Qt::Key_Z, Qt::ControlModifier}})
            QTest::keyClick(two.Find("gain"), key, modifiers);
        QCOMPARE(one.Node("gain") + two.Node("gain"), QString("75"));
        QCOMPARE(triggered.size(), 0);
        for (const LiveForm *form : {&one, &two})
            form->window->setParent(nullptr);
    }
};

ORBEL_TEST_MAIN(TestUndo)
#include "tst_undo.moc"
