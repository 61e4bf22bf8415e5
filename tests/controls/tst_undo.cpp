// What the operator changed, undone and redone, in the form that holds every class, and in small ones.

#include "changesbutton.h"
#include "fieldnote.h"
#include "formchanges.h"
#include "liveform.h"
#include "orbelspinbox.h"
#include "rows.h"
#include "testmain.h"
#include "vclineedit.h"
#include "vcnumericfloatspin.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMenu>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTableWidget>
#include <QtTest>
#include <QUndoStack>

using namespace KV218;
using namespace forms;

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

void Type(QWidget *field, const QString &text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
}

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

void TypeIntoCell(QTableWidget *table, int row, int column, const QString &text)
{
    table->setFocus();
    table->setCurrentCell(row, column);
    QTest::keyClick(table, Qt::Key_F2);
    QWidget *editor = table->window()->focusWidget();
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The form of all classes, and the whole of what it holds and shows, as text.
struct AllControls {
    AllControls()
    {
        QFile file(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel");
        file.open(QIODevice::ReadOnly);
        form = Parse(QString::fromUtf8(file.readAll()));
        form->CreateValueTree("/All");
        form->CreateGUI(true);
        window.reset(form->GetGUI());
        window->resize(900, 900);
        window->show();
        QApplication::setActiveWindow(window.get());
    }
    QString State() const
    {
        QStringList state;
        const OrbelSheet &sheet = form->GetSheet();
        for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
            const OrbelDelegate *delegate = sheet.GetWidgetAt(i)->GetDelegate();
            for (const char *name : {"text", "checked", "currentValue", "value", "startFrequency", "stopFrequency"})
                state << delegate->property(name).toString();
            for (const QVariant &value : delegate->GetEdits())
                state << value.toString();
        }
        for (const QLineEdit *field : window->findChildren<QLineEdit *>())
            state << field->text();
        for (const QComboBox *box : window->findChildren<QComboBox *>())
            state << box->currentText();
        for (const QCheckBox *box : window->findChildren<QCheckBox *>())
            state << QString::number(box->isChecked());
        for (const QTableWidget *table : window->findChildren<QTableWidget *>()) {
            for (int row = 0; row < table->rowCount(); ++row)
                for (int column = 0; column < table->columnCount(); ++column)
                    state << (table->item(row, column) ? table->item(row, column)->text() : QString());
        }
        return state.join('|') + form->GetXmlString(false);
    }

    Form form;
    std::unique_ptr<QWidget> window;
};

/// Types ranges into the exclusion list, which waits for it, and closes it by Ok.
void EnterExclusions(const Form &form, const QString &object, const char *open)
{
    QTimer::singleShot(0, [] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        auto *table = dialog->findChild<QTableWidget *>();
        table->item(0, 0)->setText("100");
        table->item(0, 1)->setText("200");
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    QMetaObject::invokeMethod(Delegate(form, object), open);
}

} // namespace

class TestUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void everyClassGoesBackAndForth()
    {
        AllControls all;
        QWidget *window = all.window.get();
        const auto find = [&](const QString &name) { return window->findChild<QWidget *>(name); };
        const auto typed = [&](const QString &name, const QString &text) {
            return [=] {
                Type(find(name), text);
                QTest::keyClick(find(name), Qt::Key_Return);
            };
        };
        const auto spin = [&](const char *list, const QString &text) {
            auto *box = find(list)->findChildren<VCNumericFloatSpin *>().last();
            return [=] {
                Type(box, text);
                QTest::keyClick(box, Qt::Key_Return);
            };
        };
        const auto cell = [&](const char *name, int row, const char *text) {
            return [=] { TypeIntoCell(window->findChild<QTableWidget *>(name), row, 0, text); };
        };
        const std::vector<std::function<void()>> edits{typed("lineEdit", "ANT 2"), typed("ipEdit", "10.0.0.2"),
            [&] { QTest::keyClick(find("checkBox"), Qt::Key_Space); },
            [&] { QTest::keyClick(find("comboBox"), Qt::Key_Down); }, typed("SpinBox", "13"),
            typed("doubleSpinBox", "2.5"), typed("baudRate", "4800"), typed("bandwidth", "15"),
            typed("frequency", "146 MHz"), typed("frequencyRangeEdit_StartFrequency", "147 MHz"),
            typed("frequencyRangeEdit_StopFrequency", "20 MHz"), typed("offset", "7"), spin("spinBoxList", "4"),
            spin("doubleSpinBoxList", "1.5"), spin("shiftList", "170"), cell("tableWidget", 0, "a"),
            cell("tableWidget", 1, "b"), cell("spacings", 1, "20"),
            [&] { EnterExclusions(all.form, "dsc", "sl_editExclusionRanges"); },
            [&] { EnterExclusions(all.form, "fhp", "sl_editExclusionRanges"); }};

        QStringList states{all.State()};
        for (const auto &edit : edits) {
            edit();
            states << all.State();
            QVERIFY2(states.last() != states.at(states.size() - 2), qPrintable(QString::number(states.size())));
        }
        QUndoStack *stack = all.form->GetUndoStack();
        QStringList texts;
        for (int i = 0; i < stack->count(); ++i)
            texts << stack->text(i);
        QVERIFY2(stack->count() == int(edits.size()), qPrintable(texts.join('\n')));
        QCOMPARE(texts.mid(0, 5),
            (QStringList{"Line edit: ANT 1 \u2192 ANT 2", "Address: 10.0.0.1 \u2192 10.0.0.2",
                "Check box: on \u2192 off", "Combo box: FM \u2192 Upper sideband", "Spin box: 12 dB \u2192 13 dB"}));
        QCOMPARE(texts.at(7), QString("Bandwidth: 2.700 kHz \u2192 15.000 kHz"));
        QCOMPARE(texts.at(8), QString("Frequency: 145.500 000 MHz \u2192 146.000 000 MHz"));
        QCOMPARE(texts.at(17), QString("Channel spacing 2: 12.50 \u2192 20.00"));
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

    /// Undo raises what the operator's own way back raises.
    void signalsAreTheOperators()
    {
        for (const char *name : {"gain", "text"}) {
            Live live(Receiver());
            auto *field = live.Find(name);
            live.log.Watch(name, live.Get(name));
            Type(field, "7");
            QTest::keyClick(field, Qt::Key_Return);
            live.form->GetXmlString(true);
            live.log.Take();
            Type(field, name == QString("text") ? "one" : "5");
            live.log.Take();
            QTest::keyClick(field, Qt::Key_Return);
            QString own = live.log.Take();
            Redo(live);
            live.form->GetUndoStack()->undo();
            live.form->GetUndoStack()->redo();
            own.remove(QRegularExpression(" ?(text\\.returnPressed|sheet\\.si_parametersModified)\\(\\)"));
            live.log.Take();
            live.form->GetUndoStack()->undo();
            live.log.Take();
            live.form->GetUndoStack()->redo();
            const QString redone = live.log.Take();
            QVERIFY2(redone.contains(own), qPrintable(own + " / " + redone));
            QVERIFY(live.Get(name)->isModified());
        }
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
        QCOMPARE(live.form->GetVTValue("f")->GetStringValue(), QString("145505000"));
        Undo(live);
        QCOMPARE(live.form->GetVTValue("f")->GetStringValue(), QString("145500000"));
        // One back to the start is no change.
        QTest::keyClick(field, Qt::Key_Up);
        QTest::keyClick(field, Qt::Key_Down);
        QVERIFY(!stack->canUndo());
        auto *gain = live.Find("gain");
        gain->setFocus();
        for (int key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up})
            QTest::keyClick(gain, Qt::Key(key));
        QTRY_COMPARE(stack->undoText(), QString("GAIN: 5 \u2192 8"));
        Undo(live);
        QVERIFY(!stack->canUndo());
    }

    void onlyTheOperatorsOwnControlIsRecorded()
    {
        Live live(Receiver());
        live.form->EvaluateScript("gain['valueChanged(int)'].connect(function (v) { text.setText('g' + v); });"
                                  "text.setText('script'); gain.setValue(9)");
        live.form->GetVTValue("gain")->SetStringValue("11", nullptr);
        live.form->SetXmlString("<Parameters><gain>12</gain></Parameters>");
        QCOMPARE(live.form->GetUndoStack()->count(), 0);
        auto *gain = live.Find("gain");
        gain->setFocus();
        QTest::keyClick(gain, Qt::Key_Up);
        QCOMPARE(live.form->GetUndoStack()->count(), 1);
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
            Type(items.at(2), "8");
            QTest::keyClick(items.at(2), Qt::Key_Return);
        });
        Type(items.at(0), "7");
        QTest::keyClick(items.at(0), Qt::Key_Return);
        QTRY_COMPARE(live.form->GetUndoStack()->undoText(), QString::fromUtf8("LIST 1: 1 \u2192 7"));
        Undo(live);
        QVERIFY2(live.Get("list")->GetEdits() == QVariantList({"1", "6", "8"}), "the script follows back");
    }

    void cellsInAGridOfAnotherShape()
    {
        Live live(Control("t", "TableWidget", {"rowCount=Int:2", "columnCount=Int:2"}));
        auto *table = live.Find<QTableWidget>("t");
        TypeIntoCell(table, 0, 0, "a");
        TypeIntoCell(table, 1, 1, "b");
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
        auto *table = qobject_cast<QTableWidget *>(live.Find("t"));
        table->setCurrentCell(0, 0);
        table->setFocus();
        QTest::keyClick(table, Qt::Key_F2);
        QWidget *editor = table->viewport()->findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        QTest::keyClicks(editor, "20");
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(live.form->GetUndoStack()->count(), 1);
        QVERIFY(!live.form->GetUndoStack()->undoText().contains("33"));
        Undo(live);
        QCOMPARE(live.Get("t")->GetEdits(), (QVariantList{0.0, 0.0, 13.0}));
    }

    void whatOthersSetSinceStays()
    {
        Live live(Receiver());
        auto *gain = live.Find("gain");
        Type(gain, "7");
        Type(live.Find("text"), "two");
        Type(gain, "8");
        QTest::keyClick(gain, Qt::Key_Return);
        QUndoStack *stack = live.form->GetUndoStack();
        QCOMPARE(stack->count(), 3);
        live.form->GetVTValue("gain")->SetStringValue("20", nullptr);
        // The entry of 8 is dropped, and the next one goes back.
        Undo(live);
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("20"));
        QCOMPARE(live.form->GetVTValue("text")->GetStringValue(), QString("one"));
        QCOMPARE(stack->count(), 2);
        Undo(live);
        QCOMPARE(stack->index(), 0);
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("20"));
        Redo(live);
        QCOMPARE(live.form->GetVTValue("text")->GetStringValue(), QString("two"));
        // Nor does a value go back that the limits do not let in any more.
        QTest::keyClick(gain, Qt::Key_Up);
        live.form->EvaluateScript("gain.setMinimum(21)");
        Undo(live);
        QCOMPARE(live.form->GetVTValue("text")->GetStringValue(), QString("one"));
        QCOMPARE(stack->count(), 1);
    }

    /// A host moves the stack, and what it tells of takes the focus from a field in which somebody types.
    void aCommitWithinARedoComesAfterIt()
    {
        Live live(Receiver());
        QTest::keyClick(live.Find("gain"), Qt::Key_Up);
        live.form->GetUndoStack()->undo();
        Type(live.Find("text"), "two");
        connect(live.Get<OrbelSpinBox>("gain"), &OrbelSpinBox::valueChanged, live.Find("gain"),
            [&] { live.Find("gain")->setFocus(); });
        QUndoStack *stack = live.form->GetUndoStack();
        stack->redo();
        QCOMPARE(stack->index(), 2);
        QTRY_COMPARE(stack->undoText(), QString("TEXT: one \u2192 two"));
        stack->undo();
        QCOMPARE(live.form->GetVTValue("text")->GetStringValue(), QString("one"));
    }

    void typingIsTakenBackFirst()
    {
        Live live(Receiver());
        auto *text = live.Find<QLineEdit>("text");
        auto *gain = live.Find<VCNumericFloatSpin>("gain");
        Type(gain, "7");
        Type(text, "two");
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, "x");
        QCOMPARE(text->text(), QString("twox"));
        Undo(live);
        QCOMPARE(text->text(), QString("two"));
        QCOMPARE(live.form->GetVTValue("text")->GetStringValue(), QString("two"));
        Undo(live);
        QCOMPARE(text->text(), QString("one"));
        Undo(live);
        QCOMPARE(gain->value(), 5.0);
        Redo(live);
        QCOMPARE(gain->value(), 7.0);
        gain->setFocus();
        QTest::keyClick(gain, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(gain, "42");
        Undo(live);
        QVERIFY(gain->text() != "42");
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("7"));
    }

    void aCellInItsEditorReachesTheForm()
    {
        Live live(Control("gain", "SpinBox", {"value=Int:5"})
            + Control("table", "ChannelSpacingTable", {"spacingsCount=Int:3", "decimals=Int:1"}));
        auto *table = live.Find<QTableWidget>("table");
        Type(live.Find("gain"), "7");
        table->setFocus();
        table->setCurrentCell(1, 0);
        QTest::keyClick(table, Qt::Key_F2);
        QVERIFY(live.window->focusWidget() != table);
        Undo(live);
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("5"));
        QTest::keyClick(live.window->focusWidget(), Qt::Key_Escape);

        QGuiApplication::clipboard()->setText("1\n2\n3");
        table->setFocus();
        table->setCurrentCell(0, 0);
        QTest::keyClick(table, Qt::Key_V, Qt::ControlModifier);
        QTRY_COMPARE(live.form->GetUndoStack()->undoText(), QString("TABLE: 0.0, 0.0, 0.0 \u2192 1.0, 2.0, 3.0"));
        // What a host has set since stays, the other cells go back.
        live.form->EvaluateScript("table.setSpacingValue(1, 9)");
        Undo(live);
        QCOMPARE(live.form->GetXmlString(false).count(">0.0<"), 2);
        QVERIFY(live.form->GetXmlString(false).contains(">9.0<"));
    }

    void aLockKeepsTheEntry()
    {
        Live live(Receiver() + Control("check", "CheckBox"));
        Type(live.Find("gain"), "7");
        live.Find("text")->setFocus();
        live.form->EvaluateScript("gain.setEnabled(false)");
        Undo(live);
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("7"));
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
        auto *label = static_cast<RowLabel *>(live.Find("labelgain"));
        auto *rangeLabel = static_cast<RowLabel *>(live.Find("labelrange"));
        auto *gain = live.Find("gain");
        // Passing through a field marks it modified, and is no change to the eye.
        live.Find("range_StartFrequency")->setFocus();
        Type(gain, "7");
        QVERIFY(live.Get("range")->isModified() && !live.Get("range")->IsChanged());
        QTest::keyClick(gain, Qt::Key_Return);
        QTRY_VERIFY(label->IsMarked());
        QVERIFY(!rangeLabel->IsMarked());
        Undo(live);
        QTRY_VERIFY(!label->IsMarked());
        QVERIFY(live.Get("gain")->isModified());
        Redo(live);
        QTRY_VERIFY(label->IsMarked());
        live.form->EvaluateScript("gain.setValue(5)");
        QTRY_VERIFY(!label->IsMarked());
        live.form->EvaluateScript("gain.setValue(8)");
        QTRY_VERIFY(label->IsMarked());
        live.form->GetXmlString(true);
        QTRY_VERIFY(!label->IsMarked());
        live.form->GetVTValue("gain")->SetStringValue("20", nullptr);
        QTRY_VERIFY(label->IsMarked());
        QTest::keyClick(gain, Qt::Key_Up);
        live.form->GetXmlString(true);
        // What stood before an undo is what was applied; a control that is left out counts again once it is taken in.
        for (const bool back : {true, false}) {
            back ? Undo(live) : Redo(live);
            for (const bool in : {false, true}) {
                live.form->SelectWidgets({"gain"}, in);
                QTRY_COMPARE(label->IsMarked(), back && in);
                QCOMPARE(live.form->GetSheet().GetChanges()->GetChanged().size(), int(back && in));
            }
        }
    }

    void changesButton()
    {
        Live live(Widget("head", "Headline", Usable + QStringList{"text=String:H"}) + Receiver());
        auto *apply = live.Find("applyButton");
        auto *automatic = live.Find<QCheckBox>("autoApply");
        auto *button = live.Find<QToolButton>("changesButton");
        live.form->EvaluateScript("sheet.setAutoApplyEnabled(false)");
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()) && button->isHidden());
        const QRect applyPlace = apply->geometry();
        const QRect automaticPlace = automatic->geometry();
        Type(live.Find("gain"), "7");
        Type(live.Find("text"), "two");
        live.Find("gain")->setFocus();
        QTRY_COMPARE(button->text(), QString("2"));
        QVERIFY(button->isVisible() && apply->geometry() == applyPlace && automatic->geometry() == automaticPlace);
        QVERIFY(live.Find("applyButtonBox")->rect().contains(button->geometry()));

        live.form->GetSheet().SetCollapsed({"head"});
        const auto menu = [&] {
            QTest::mouseClick(button, Qt::LeftButton);
            return QTest::qWaitFor([&] { return live.Find<QMenu>("changesMenu") != nullptr; })
                ? live.Find<QMenu>("changesMenu")
                : nullptr;
        };
        const auto choose = [&](QMenu *open, const QString &text) {
            for (QAction *action : open->actions()) {
                if (action->text().startsWith(text))
                    action->trigger();
            }
            open->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
        };
        QMenu *open = menu();
        QVERIFY(open);
        QStringList texts;
        for (QAction *action : open->actions())
            texts << action->text();
        QCOMPARE(texts.join(" / "),
            QString("Undo TEXT: one \u2192 two\tCtrl+Z / Redo\tCtrl+Shift+Z /  / GAIN: 5 \u2192 7 / TEXT: one \u2192 "
                    "two /  / "
                    "Apply\tCtrl+Return / Revert all"));
        choose(open, "GAIN");
        QVERIFY(live.Get("gain")->isGroupVisible());
        QCOMPARE(live.window->focusWidget()->objectName(), QString("gain"));
        choose(menu(), "Revert all");
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("5"));
        QCOMPARE(live.form->GetVTValue("text")->GetStringValue(), QString("one"));
        QTRY_COMPARE(button->text(), QString("0"));
        QTRY_COMPARE(live.form->GetUndoStack()->undoText(), QString("Revert all"));
        Undo(live);
        QCOMPARE(live.form->GetVTValue("text")->GetStringValue(), QString("two"));

        QSignalSpy announced(live.form.data(), &OrbelFormular::si_parametersModified);
        Type(live.Find("gain"), "9");
        Key(live, Qt::Key_Return);
        QCOMPARE(announced.size(), 1);
        QCOMPARE(live.form->GetVTValue("gain")->GetStringValue(), QString("9"));
        Type(live.Find("text"), "three");
        Key(live, Qt::Key_Return);
        QCOMPARE(announced.size(), 2);
        QVERIFY(live.form->GetXmlString(true).contains("three"));
        live.form->EnableInput(false);
        Key(live, Qt::Key_Return);
        QCOMPARE(announced.size(), 2);
    }

    void formsOfOneWindowKeepApart()
    {
        Live one(Receiver(), false);
        Live two(Receiver(), false, "/Two");
        QWidget window;
        for (const Live *form : {&one, &two})
            form->window->setParent(&window);
        window.show();
        QApplication::setActiveWindow(&window);
        QAction hosts;
        hosts.setShortcut(QKeySequence::Undo);
        window.addAction(&hosts);
        QSignalSpy triggered(&hosts, &QAction::triggered);
        Type(one.Find("gain"), "7");
        Type(two.Find("gain"), "8");
        QTest::keyClick(two.Find("gain"), Qt::Key_Return);
        QTest::keyClick(two.Find("gain"), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(two.form->GetVTValue("gain")->GetStringValue(), QString("5"));
        QCOMPARE(one.form->GetVTValue("gain")->GetStringValue(), QString("7"));
        QCOMPARE(triggered.size(), 0);
        for (const Live *form : {&one, &two})
            form->window->setParent(nullptr);
    }

    void aHandlerEndsTheForm_data()
    {
        QTest::addColumn<QString>("how");
        for (const char *how : {"keys", "stack", "its signal", "revert", "record"})
            AddRow(how, QString(how));
    }

    void aHandlerEndsTheForm()
    {
        QFETCH(QString, how);
        Live live(Receiver());
        QObject context;
        Type(live.Find("gain"), "7");
        const auto end = [&] {
            live.window.reset();
            live.form.reset();
        };
        QUndoStack *stack = live.form->GetUndoStack();
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
                Type(box, QString::number(number));
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
            QCOMPARE(live.form->GetVTValue("a")->GetStringValue(), QString::number(values[0]));
            QCOMPARE(live.form->GetVTValue("b")->GetStringValue(), QString::number(values[1]));
            QCOMPARE(live.form->GetUndoStack()->index(), index);
            QCOMPARE(live.form->GetUndoStack()->count(), entries.size());
        }
    }
};

ORBEL_TEST_MAIN(TestUndo)
#include "tst_undo.moc"
