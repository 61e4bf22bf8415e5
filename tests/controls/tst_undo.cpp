// What the operator changed, undone and redone, in the form that holds every class, and in small ones.

#include "changesbutton.h"
#include "fieldnote.h"
#include "formchanges.h"
#include "liveform.h"
#include "orbelspinbox.h"
#include "valuecommentedrangemap.h"
#include "vclineedit.h"
#include "vcnumericfloatspin.h"

namespace
{

const QStringList Usable{"visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true"};

QString Control(const QString &name, const QString &className, const QStringList &properties = {})
{
    return Widget(name, className, Usable + QStringList{"labelText=String:" + name.toUpper()} + properties);
}

/// A frequency, a text and two numbers; "gain" announces to the script's log.
QString Receiver()
{
    return Control("f", "FrequencyEdit", {"MainFreqEdit=Bool:true", "value=String:145500000", "maximum=String:1e9"})
        + Control("text", "LineEdit", {"text=String:one"})
        + Control("gain", "SpinBox", {"value=Int:5", "maximum=Int:60"})
        + Control("range", "FrequencyRangeEdit",
            {"startFrequency=String:1000000", "stopFrequency=String:2000000",
                "startFrequencyParameterXmlTag=String:Start", "stopFrequencyParameterXmlTag=String:Stop"});
}

/// Active, so that a field hears when the focus leaves it.
struct Live : LiveForm {
    explicit Live(const QString &body, bool applyUi = true, const QString &path = "/Form")
        : LiveForm(body, applyUi, path)
    {
        QApplication::setActiveWindow(window.get());
    }
};

/// A key for whatever has the focus.
void Key(const LiveForm &live, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
{
    QWidget *focus = live.window->focusWidget();
    QTest::keyClick(focus ? focus : live.window.get(), key, modifiers);
}

void Undo(const LiveForm &live)
{
    Key(live, Qt::Key_Z);
}

void Redo(const LiveForm &live)
{
    Key(live, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
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
        QWidget *window = all.window.get();
        const auto typed = [&](const QString &name, const QString &text) {
            return [=] {
                TypeOver(window->findChild<QWidget *>(name), text);
                QTest::keyClick(window->findChild<QWidget *>(name), Qt::Key_Return);
            };
        };
        const auto pressed = [&](const char *name, Qt::Key key) {
            return [=] { QTest::keyClick(window->findChild<QWidget *>(name), key); };
        };
        const auto cell = [&](const char *name, int row, const char *text) {
            return [=] { EnterCell(window->findChild<QTableWidget *>(name), row, text); };
        };
        const std::vector<std::function<void()>> edits{typed("lineEdit", "ANT 2"), typed("ipEdit", "10.0.0.2"),
            pressed("checkBox", Qt::Key_Space), pressed("comboBox", Qt::Key_Down), typed("SpinBox", "13"),
            typed("doubleSpinBox", "2.5"), typed("baudRate", "4800"), typed("bandwidth", "15"),
            typed("frequency", "146 MHz"), typed("frequencyRangeEdit_StartFrequency", "147 MHz"),
            typed("frequencyRangeEdit_StopFrequency", "20 MHz"), typed("offset", "7"), typed("spinBoxList_2", "4"),
            typed("doubleSpinBoxList_1", "1.5"), typed("shiftList_1", "170"), cell("tableWidget", 0, "a"),
            cell("tableWidget", 1, "b"), cell("spacings", 1, "20"), [&] { EnterExclusions(all.form, "dsc"); },
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

    void signalsAreTheOperators()
    {
        for (const char *name : {"gain", "text"}) {
            Live live(Receiver());
            auto *field = live.Find(name);
            live.log.Watch(name, live.Get(name));
            for (const QString text : {"7", name == QString("text") ? "one" : "5"}) {
                live.form->GetXmlString(true);
                TypeOver(field, text);
                live.log.Take();
                QTest::keyClick(field, Qt::Key_Return);
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
        const auto row = Columns<QString, QString, QString, QString>({"field", "typed", "how", "history"});
        // clang-format off
        row("a number is undone", "gain", "8", "undo", "5 7 8, at 1");
        row("a number is reverted", "gain", "8", "revert", "5 7 8 5, at 3");
        row("a range is reverted", "range_StopFrequency", "500 kHz", "revert", "1000000/2000000 1000000/7000000 499999/500000 1000000/2000000, at 3");
        // clang-format on
    }

    void undoWithinACommit()
    {
        const auto [name, typed, how] = Fetch<QString, QString, QString>({"field", "typed", "how"});
        Live live(Receiver());
        auto *field = live.Find(name);
        auto *control = live.Get(name.section('_', 0, 0));
        TypeOver(field, name.contains('_') ? "7 MHz" : "7");
        QTest::keyClick(field, Qt::Key_Return);
        live.log.Watch("c", control);
        auto *changes = live.form->GetSheet().GetChanges();
        TypeOver(field, typed);
        live.log.On(name == "gain" ? "c.valueChanged" : "c.rangeChanged", [&, how = how] {
            QEventLoop loop;
            QTimer::singleShot(0, &loop, [&] {
                how == "undo" ? changes->Undo() : changes->RevertAll();
                loop.quit();
            });
            loop.exec();
        });
        QTest::keyClick(field, Qt::Key_Return);
        QUndoStack *stack = live.form->GetUndoStack();
        const int at = stack->index();
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

    /// A list of ranges goes back with its keys and comments, which its dialog does not know.
    void exclusionsKeepWhatTheirTextDoesNotTell()
    {
        Live live(Control("fhp", "SpecialObject_FHP"));
        auto *ranges = dynamic_cast<ValueCommentedRangeMap *>(Tree::Instance()->GetNode("/Form/fhp"));
        CommentedRange range;
        range.SetComment("a beacon");
        ranges->SetAt(7, range, nullptr);
        EnterExclusions(live.form, "fhp");
        QCOMPARE(ranges->GetStringValue() + ranges->data().at(0).GetComment(), QString("100000..200000"));
        Undo(live);
        QCOMPARE(ranges->data().at(7).GetComment(), QString("a beacon"));
        Redo(live);
        QCOMPARE(ranges->GetStringValue(), QString("100000..200000"));
    }

    void aSpecialTextIsTold()
    {
        Live live(Control("squelch", "SpinBox",
            {"value=Int:5", "minimum=Int:0", "specialValueText=String:off", "suffix=String: dB"}));
        TypeOver(live.Find("squelch"), "off");
        QTest::keyClick(live.Find("squelch"), Qt::Key_Return);
        QTRY_COMPARE(live.form->GetUndoStack()->undoText(), QString("SQUELCH: 5 dB \u2192 off"));
    }

    void aTuningSessionIsOneEntry()
    {
        Live live(Receiver());
        auto *field = live.Find("frequency");
        QUndoStack *stack = live.form->GetUndoStack();
        field->setFocus();
        for (int i = 0; i < 5; ++i)
            QTest::keyClick(field, Qt::Key_Up);
        QCOMPARE(stack->count(), 1);
        QTRY_COMPARE(stack->undoText(), QString("F: 145.500 000 MHz \u2192 145.505 000 MHz"));
        live.Find("text")->setFocus();
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Down);
        QCOMPARE(stack->count(), 2);
        Undo(live);
        QCOMPARE(live.Node("f"), QString("145505000"));
        Undo(live);
        QCOMPARE(live.Node("f"), QString("145500000"));
        // One back to the start is no change.
        QTest::keyClick(field, Qt::Key_Up);
        QTest::keyClick(field, Qt::Key_Down);
        QVERIFY(!stack->canUndo());
        auto *gain = live.Find("gain");
        gain->setFocus();
        for (int key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up})
            QTest::keyClick(gain, Qt::Key(key));
        QTRY_COMPARE(stack->undoText(), QString("GAIN: 5 \u2192 8"));
        TypeOver(gain, "20");
        QTest::keyClick(gain, Qt::Key_Up);
        QTRY_COMPARE(stack->undoText(), QString("GAIN: 8 \u2192 21"));
        live.Find("text")->setFocus();
        gain->setFocus();
        QTest::keyClick(gain, Qt::Key_Up);
        QTRY_COMPARE(stack->undoText(), QString("GAIN: 21 \u2192 22"));
        for (const char *former : {"21", "8", "5"}) {
            Undo(live);
            QCOMPARE(live.Node("gain"), QString(former));
        }
        QVERIFY(!stack->canUndo());
    }

    void onlyTheOperatorsOwnControlIsRecorded()
    {
        Live live(Receiver());
        live.form->EvaluateScript("gain['valueChanged(int)'].connect(function (v) { text.setText('g' + v); });"
                                  "text.setText('script'); gain.setValue(9);");
        live.form->GetVTValue("gain")->SetStringValue("11", nullptr);
        live.form->SetXmlString("<Parameters><gain>12</gain></Parameters>");
        const QUndoStack *stack = live.form->GetUndoStack();
        QCOMPARE(stack->count(), 0);
        QTest::keyClick(live.Find("gain"), Qt::Key_Up);
        QCOMPARE(stack->count(), 1);
        Undo(live);
        QCOMPARE(live.Get("text")->property("text").toString(), QString("g12"));
    }

    void anItemThatAScriptSetsIsNotRecorded()
    {
        Live live(Control("list", "SpinBoxList", {"itemCount=Int:3", "maximum=Int:99", "value=Int:1"}));
        live.form->EvaluateScript("list['valueChanged(int,int)'].connect(function (i, v) {"
                                  "if (i == 0) list.setItemValue(1, 6 * v); });");
        const auto items = live.Find("list")->findChildren<VCNumericFloatSpin *>();
        // A handler's event loop lets the operator go on.
        live.log.Watch("list", live.Get("list"));
        live.log.On("list.valueChanged(0", [&] {
            TypeOver(items.at(2), "8");
            QTest::keyClick(items.at(2), Qt::Key_Return);
        });
        TypeOver(items.at(0), "7");
        QTest::keyClick(items.at(0), Qt::Key_Return);
        QTRY_COMPARE(live.form->GetUndoStack()->undoText(), QString::fromUtf8("LIST 1: 1 \u2192 7"));
        Undo(live);
        QVERIFY2(live.Get("list")->GetEdits() == QVariantList({"1", "6", "8"}), "the script follows back");
    }

    void cellsInAGridOfAnotherShape()
    {
        Live live(Control("t", "TableWidget", {"rowCount=Int:2", "columnCount=Int:2"}));
        auto *table = live.Find<QTableWidget>("t");
        EnterCell(table, 0, "a", 0);
        EnterCell(table, 1, "b", 1);
        live.form->EvaluateScript("t.setRowCount(3)");
        Undo(live);
        QVERIFY2(!table->item(1, 1), "more rows leave the places");
        live.form->EvaluateScript("t.setColumnCount(3)");
        Undo(live);
        QVERIFY2(table->item(0, 0) && !live.form->GetUndoStack()->canUndo(), "more columns do not");
    }

    void aCellThatAScriptSetsIsNotRecorded()
    {
        Live live(Control("t", "ChannelSpacingTable", {"spacingsCount=Int:3"}));
        live.form->EvaluateScript(
            "t.spacingValueChanged.connect(function (row, v) { if (row == 0) t.setSpacingValue(2, 13 + v); });");
        EnterCell(live.Find<QTableWidget>("t"), 0, "20");
        QTRY_COMPARE(live.form->GetUndoStack()->count(), 1);
        QVERIFY(!live.form->GetUndoStack()->undoText().contains("33"));
        Undo(live);
        QCOMPARE(live.Get("t")->GetEdits(), (QVariantList{0.0, 0.0, 13.0}));
    }

    void aValueThatTheLimitsKeepOutIsDropped()
    {
        Live live(Receiver());
        TypeOver(live.Find("text"), "two");
        QTest::keyClick(live.Find("gain"), Qt::Key_Up);
        live.form->EvaluateScript("gain.setMinimum(6)");
        Undo(live);
        QCOMPARE(live.Node("gain") + live.Node("text"), QString("6one"));
        QCOMPARE(live.form->GetUndoStack()->count(), 1);
    }

    /// A host moves the stack over several entries, and what it tells of takes the focus from a field in which somebody
    /// types.
    void aCommitWithinARedoComesAfterIt()
    {
        Live live(Receiver());
        QUndoStack *stack = live.form->GetUndoStack();
        for (const char *typed : {"7", "8"}) {
            TypeOver(live.Find("gain"), typed);
            QTest::keyClick(live.Find("gain"), Qt::Key_Return);
        }
        live.form->GetSheet().GetChanges()->RevertAll();
        QTRY_COMPARE(stack->text(1), QString("GAIN: 7 \u2192 8"));
        stack->setIndex(0);
        TypeOver(live.Find("text"), "two");
        connect(live.Get<OrbelSpinBox>("gain"), &OrbelSpinBox::valueChanged, live.Find("gain"), [&](int value) {
            if (value == 8)
                live.Find("gain")->setFocus();
        });
        stack->setIndex(2);
        QCOMPARE(stack->index(), 3);
        QTRY_COMPARE(stack->undoText(), QString("TEXT: one \u2192 two"));
        stack->undo();
        QCOMPARE(live.Node("text"), QString("one"));
    }

    /// The same in a command of the host's own.
    void aCommitWithinAHostsCommandComesAfterIt()
    {
        Live live(Receiver());
        QUndoStack *stack = live.form->GetUndoStack();
        struct FocusesGain : QUndoCommand {
            explicit FocusesGain(QWidget *gain) : Gain(gain) { }
            void redo() override { Gain->setFocus(); }
            QWidget *Gain;
        };
        stack->push(new FocusesGain(live.Find("gain")));
        stack->undo();
        TypeOver(live.Find("text"), "two");
        stack->redo();
        QCOMPARE(live.Node("text"), QString("two"));
        QTRY_COMPARE(stack->count(), 2);
        QTRY_COMPARE(stack->undoText(), QString("TEXT: one \u2192 two"));
        stack->setIndex(0);
        QCOMPARE(live.Node("text"), QString("one"));
    }

    void typingIsTakenBackFirst()
    {
        Live live(Receiver());
        auto *text = live.Find<QLineEdit>("text");
        auto *gain = live.Find<VCNumericFloatSpin>("gain");
        TypeOver(gain, "7");
        TypeOver(text, "two");
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, "x");
        for (const char *left : {"two", "one"}) {
            Undo(live);
            QCOMPARE(text->text() + live.Node("text"), QString(left).repeated(2));
        }
        Undo(live);
        QCOMPARE(gain->value(), 5.0);
        Redo(live);
        TypeOver(gain, "42");
        Undo(live);
        QVERIFY(gain->text() != "42");
        QCOMPARE(live.Node("gain"), QString("7"));
    }

    void aCellInItsEditorReachesTheForm()
    {
        Live live(Control("gain", "SpinBox", {"value=Int:5"})
            + Control("table", "ChannelSpacingTable", {"spacingsCount=Int:3", "decimals=Int:1"}));
        auto *table = live.Find<QTableWidget>("table");
        TypeOver(live.Find("gain"), "7");
        OpenCell(table, 1);
        Undo(live);
        QCOMPARE(live.Node("gain"), QString("5"));
        QTest::keyClick(live.window->focusWidget(), Qt::Key_Escape);

        QGuiApplication::clipboard()->setText("1\n2\n3");
        table->setCurrentCell(0, 0);
        QTest::keyClick(table, Qt::Key_V, Qt::ControlModifier);
        QTRY_COMPARE(live.form->GetUndoStack()->undoText(), QString("TABLE: 0.0, 0.0, 0.0 \u2192 1.0, 2.0, 3.0"));
        // What a host has set since stays, the other cells go back.
        live.form->EvaluateScript("table.setSpacingValue(1, 9)");
        Undo(live);
        QCOMPARE(live.Get("table")->GetEdits(), (QVariantList{0.0, 9.0, 0.0}));
    }

    void aLockKeepsTheEntry()
    {
        Live live(Receiver() + Control("check", "CheckBox"));
        TypeOver(live.Find("gain"), "7");
        live.Find("text")->setFocus();
        live.form->EvaluateScript("gain.setEnabled(false)");
        Undo(live);
        QCOMPARE(live.Node("gain"), QString("7"));
        QCOMPARE(FieldNote::TextOf(live.Find("text")), QString("GAIN is locked"));
        live.form->GetUndoStack()->undo();
        QCOMPARE(live.form->GetUndoStack()->count(), 1);
        live.form->GetUndoStack()->redo();
        live.form->EvaluateScript("gain.setEnabled(true); gain.setReadOnly(true)");
        Undo(live);
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("7"));
        live.form->EvaluateScript("gain.setReadOnly(false); check.setReadOnly(true)");
        Undo(live);
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("5"));
        // A check box takes no notice of it, and goes back, too.
        QTest::keyClick(live.Find("check"), Qt::Key_Space);
        Undo(live);
        QVERIFY(!live.Find<QCheckBox>("check")->isChecked());
    }

    void marks()
    {
        Live live(Receiver());
        const auto isMarked = [&](const char *label) { return static_cast<RowLabel *>(live.Find(label))->IsMarked(); };
        // Passing through a field marks it modified, and is no change to the eye.
        live.Find("range_StartFrequency")->setFocus();
        TypeOver(live.Find("gain"), "7");
        QVERIFY(live.Get("range")->isModified() && !live.Get("range")->IsChanged());
        QTest::keyClick(live.Find("gain"), Qt::Key_Return);
        QTRY_VERIFY(isMarked("labelgain"));
        QVERIFY(!isMarked("labelrange"));
        const std::pair<std::function<void()>, bool> steps[]{{[&] { Undo(live); }, false}, {[&] { Redo(live); }, true},
            {[&] { live.form->EvaluateScript("gain.setValue(5)"); }, false},
            {[&] { live.form->EvaluateScript("gain.setValue(8)"); }, true},
            {[&] { live.form->GetXmlString(true); }, false},
            {[&] { live.form->GetVTValue("gain")->SetStringValue("20", nullptr); }, true}};
        for (const auto &[step, marked] : steps) {
            step();
            QTRY_COMPARE(isMarked("labelgain"), marked);
        }
        QTest::keyClick(live.Find("gain"), Qt::Key_Up);
        live.form->GetXmlString(true);
        // What stood before an undo is what was applied; a control that is left out counts again once it is taken in.
        for (const bool back : {true, false}) {
            back ? Undo(live) : Redo(live);
            for (const bool in : {false, true}) {
                live.form->SelectWidgets({"gain"}, in);
                QTRY_COMPARE(isMarked("labelgain"), back && in);
                QCOMPARE(live.form->GetSheet().GetChanges()->GetChanged().size(), int(back && in));
            }
        }
    }

    void changesButton()
    {
        Live live(Widget("head", "Headline", Usable + QStringList{"text=String:H"}) + Receiver());
        auto *button = live.Find<QToolButton>("changesButton");
        live.form->EvaluateScript("sheet.setAutoApplyEnabled(false)");
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()) && button->isHidden());
        const auto places = [&] {
            return QList<QRect>{live.Find("applyButton")->geometry(), live.Find("autoApply")->geometry()};
        };
        const QList<QRect> before = places();
        TypeOver(live.Find("gain"), "7");
        TypeOver(live.Find("text"), "two");
        live.Find("gain")->setFocus();
        QTRY_COMPARE(button->text(), QString("2"));
        QVERIFY(button->isVisible() && places() == before);
        QVERIFY(live.Find("applyButtonBox")->rect().contains(button->geometry()));

        // Opens the menu, chooses an action, and gives the texts of all.
        live.form->GetSheet().SetCollapsed({"head"});
        const auto choose = [&](const QString &text) {
            QTest::mouseClick(button, Qt::LeftButton);
            QMenu *menu = nullptr;
            [&] { QTRY_VERIFY(menu = live.Find<QMenu>("changesMenu")); }();
            QStringList texts;
            for (QAction *action : menu->actions()) {
                texts << action->text();
                if (action->text().startsWith(text))
                    action->trigger();
            }
            menu->close();
            PassEvents();
            return texts.join(" / ").replace("\u2192", "to");
        };
        QCOMPARE(choose("GAIN"),
            QString("Undo TEXT: one to two\tCtrl+Z / Redo\tCtrl+Shift+Z /  / GAIN: 5 to 7 / TEXT: one to two /"
                    "  / Apply\tCtrl+Return / Revert all"));
        QVERIFY(live.Get("gain")->isGroupVisible());
        QCOMPARE(live.window->focusWidget()->objectName(), QString("gain"));
        choose("Revert all");
        QCOMPARE(live.Node("gain") + live.Node("text"), QString("5one"));
        QTRY_COMPARE(button->text(), QString("0"));
        QCOMPARE(live.form->GetUndoStack()->undoText(), QString("Revert all"));
        Undo(live);
        QCOMPARE(live.Node("text"), QString("two"));

        const QSignalSpy announced(live.form.data(), &OrbelFormular::si_parametersModified);
        for (int typed : {9, 10, 11}) {
            TypeOver(live.Find("gain"), QString::number(typed));
            live.form->EnableInput(typed < 11);
            Key(live, Qt::Key_Return);
            QCOMPARE(announced.size(), std::min(typed, 10) - 8);
        }
        QCOMPARE(live.Node("gain"), QString("10"));
    }

    void formsOfOneWindowKeepApart()
    {
        Live one(Receiver(), false), two(Receiver(), false, "/Two");
        QWidget window;
        for (const Live *form : {&one, &two})
            form->window->setParent(&window);
        window.show();
        QApplication::setActiveWindow(&window);
        QAction hosts;
        hosts.setShortcut(QKeySequence::Undo);
        window.addAction(&hosts);
        const QSignalSpy triggered(&hosts, &QAction::triggered);
        TypeOver(one.Find("gain"), "7");
        TypeOver(two.Find("gain"), "8");
        for (const auto &[key, modifiers] :
            {std::pair(Qt::Key_Return, Qt::NoModifier), {Qt::Key_Z, Qt::ControlModifier}})
            QTest::keyClick(two.Find("gain"), key, modifiers);
        QCOMPARE(one.Node("gain") + two.Node("gain"), QString("75"));
        QCOMPARE(triggered.size(), 0);
        for (const Live *form : {&one, &two})
            form->window->setParent(nullptr);
    }

    void aHandlerEndsTheForm_data()
    {
        const auto row = Columns<QString>({"how"});
        for (const char *how : {"keys", "stack", "its signal", "revert", "record"})
            row(how, how);
    }

    void aHandlerEndsTheForm()
    {
        const auto [how] = Fetch<QString>({"how"});
        Live live(Receiver());
        QObject context;
        const auto end = [&] {
            live.window.reset();
            live.form.reset();
        };
        QUndoStack *stack = live.form->GetUndoStack();
        TypeOver(live.Find("gain"), "7");
        if (how == "record")
            connect(stack, &QUndoStack::indexChanged, &context, end);
        QTest::keyClick(live.Find("gain"), Qt::Key_Return);
        if (how == "its signal")
            connect(stack, &QUndoStack::indexChanged, &context, end);
        else if (live.form)
            connect(live.Get<OrbelSpinBox>("gain"), &OrbelSpinBox::valueChanged, &context, end);
        if (how == "keys")
            Undo(live);
        else if (how == "revert")
            live.form->GetSheet().GetChanges()->RevertAll();
        else if (live.form)
            stack->undo();
        QVERIFY(!live.form && !live.window);
    }

    /// Any sequence of edits, undo, redo, documents and host's values, against a list of what should stand.
    void aWalkOfEdits()
    {
        Live live(Control("a", "SpinBox", {"value=Int:0", "maximum=Int:9"})
            + Control("b", "SpinBox", {"value=Int:0", "maximum=Int:9"}));
        struct Entry {
            int Which, Before, After;
        };
        QVector<Entry> entries;
        int index = 0;
        int values[2] = {0, 0};
        QRandomGenerator random(7);
        const auto pass = [&](bool back) {
            while (back ? index > 0 : index < entries.size()) {
                const int at = back ? index - 1 : index;
                const Entry entry = entries.at(at);
                const bool stands = values[entry.Which] == (back ? entry.After : entry.Before);
                const bool isThere = values[entry.Which] == (back ? entry.Before : entry.After);
                if (stands || isThere) {
                    values[entry.Which] = back ? entry.Before : entry.After;
                    index += back ? -1 : 1;
                }
                if (stands)
                    return;
                if (!isThere) {
                    entries.removeAt(at);
                    index -= back;
                }
            }
        };
        for (int i = 0; i < 600; ++i) {
            const int which = random.bounded(2);
            const int number = random.bounded(10);
            const QString name = which ? "b" : "a";
            switch (random.bounded(7)) {
            case 0:
            case 1: {
                auto *box = live.Find<VCNumericFloatSpin>(name);
                TypeOver(box, QString::number(number));
                QTest::keyClick(box, Qt::Key_Return);
                if (number != values[which]) {
                    entries.erase(entries.begin() + index, entries.end());
                    entries.append({which, std::exchange(values[which], number), number});
                    ++index;
                }
                break;
            }
            case 2:
            case 3:
                Undo(live);
                pass(true);
                break;
            case 4:
                Redo(live);
                pass(false);
                break;
            case 5:
                live.form->GetVTValue(name)->SetStringValue(QString::number(values[which] = number), nullptr);
                break;
            case 6:
                live.form->GetXmlString(i % 2);
                break;
            }
            QCOMPARE(live.Node("a"), QString::number(values[0]));
            QCOMPARE(live.Node("b"), QString::number(values[1]));
            QCOMPARE(live.form->GetUndoStack()->index(), index);
            QCOMPARE(live.form->GetUndoStack()->count(), entries.size());
        }
    }
};

ORBEL_TEST_MAIN(TestUndo)
#include "tst_undo.moc"
