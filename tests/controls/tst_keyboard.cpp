// A form without a mouse and without a screen: where the focus goes, and what an assistive tool hears.

#include "story.h"

namespace
{

QAccessibleInterface *Heard(QWidget *widget)
{
    // A tool comes when the form is there.
    QAccessible::setActive(true);
    return QAccessible::queryAccessibleInterface(widget);
}

QString Name(QWidget *widget)
{
    return Heard(widget)->text(QAccessible::Name);
}

QString Description(QWidget *widget)
{
    return Heard(widget)->text(QAccessible::Description);
}

/// An assistive tool that asks about every widget to which something happens, at once.
struct Curious : QObject {
    Curious() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *) override
    {
        auto *widget = qobject_cast<QWidget *>(watched);
        QAccessibleInterface *heard = widget ? Heard(widget) : nullptr;
        if (!heard || Asking || !heard->isValid())
            return false;
        const QScopedValueRollback<bool> once(Asking, true);
        ++Questions;
        heard->text(QAccessible::Name);
        heard->text(QAccessible::Description);
        heard->relations();
        for (int i = 0; i < heard->childCount(); ++i)
            heard->indexOfChild(heard->child(i));
        return false;
    }

    int Questions = 0;
    bool Asking = false;
};

/// What is wrong with a tree as a tool walks it. Cells may show the same.
void Walk(QAccessibleInterface *parent, QStringList &complaints, int &focusable)
{
    QStringList group;
    for (int i = 0; i < parent->childCount(); ++i) {
        QAccessibleInterface *child = parent->child(i);
        const QString name = child->text(QAccessible::Name);
        const QString description = child->text(QAccessible::Description);
        const QString place = QString("%1 '%2' in '%3': %4")
                                  .arg(child->object() ? child->object()->metaObject()->className() : "cell", name,
                                      parent->text(QAccessible::Name), description);
        if (parent->indexOfChild(child) != i)
            complaints << "stands elsewhere: " + place;
        if (child->state().focusable) {
            ++focusable;
            if (name.isEmpty())
                complaints << "no name: " + place;
            if (child->object() && group.contains(name))
                complaints << "twice: " + place;
            group << name;
        }
        if (Qt::mightBeRichText(description) || Qt::mightBeRichText(name))
            complaints << "markup: " + place;
        Walk(child, complaints, focusable);
    }
}

} // namespace

class TestKeyboard : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everythingHasAName()
    {
        AllControls all;
        QStringList complaints;
        int focusable = 0;
        Walk(Heard(all.window.get()), complaints, focusable);
        QCOMPARE(complaints.join('\n'), QString());
        QVERIFY2(focusable > 30, qPrintable(QString::number(focusable)));
    }

    void namesAndLimitsAreTold_data()
    {
        const auto row = Columns<QString, QString, QString>({"widget", "name", "description"});
        // clang-format off
        row("a scaled number", "bandwidth", "Bandwidth", "0 to 20000 kHz");
        row("an end of a range", "frequencyRangeEdit_StopFrequency", "Frequency range, stop", "8.001 kHz to 26.5 GHz");
        row("the large field", "frequency", "Frequency", "");
        row("an item", "shiftList_1", "Shifts, item 2", "0 to 1000 Hz");
        row("a button of a row", "scriptControl_EditButton", "Script, edit", "");
        row("a headline", "numbers", "Numbers", "Hide Numbers");
        row("a text", "label", "a text to read", "");
        // clang-format on
    }
    void namesAndLimitsAreTold()
    {
        AllControls all;
        QFETCH(QString, widget);
        auto *found = all.window->findChild<QWidget *>(widget);
        QVERIFY(found);
        QTEST(Name(found), "name");
        QTEST(Description(found), "description");
    }

    void labelAndControlBelongTogetherWithoutAMnemonic()
    {
        LiveForm live(Labelled("a", "FrequencyRangeEdit", {"labelText=String:R&S"})
            + Labelled("t", "ChannelSpacingTable", {"spacingsCount=Int:3", "headerLabel=String:kHz"}));
        auto *label = live.Find<QLabel>("labela");
        QWidget *stop = live.Find("a_StopFrequency");
        QVERIFY(Name(stop) == "R&S, stop" && Name(label) == "R&S" && !label->buddy());
        const auto related = [](QWidget *widget, QAccessible::Relation relation) {
            QStringList names;
            for (const auto &pair : Heard(widget)->relations(relation))
                names << pair.first->object()->objectName();
            return names.join(' ');
        };
        QCOMPARE(related(stop, QAccessible::Label), QString("labela"));
        QCOMPARE(related(label, QAccessible::Labelled), QString("a_StartFrequency a_StopFrequency"));
        QCOMPARE(Heard(stop->parentWidget())->child(2)->object(), stop);
        live.Get("a")->setLabelText("Band");
        live.Get("a")->setProperty("maximum", 1e6);
        QCOMPARE(Name(stop) + ' ' + Description(stop), QString("Band, stop 8.001 kHz to 1 MHz"));
        stop->setFocus();
        QTest::keyClicks(stop, "12x");
        QVERIFY2(Description(stop).startsWith("not accepted"), qPrintable(Description(stop)));
        QCOMPARE(Name(OpenCell(live.Find<QTableWidget>("t"), 1)), QString("t, column kHz, row 2"));
    }

    void aCellTellsItsPlace()
    {
        LiveForm live(Labelled("t", "ChannelSpacingTable", {"spacingsCount=Int:2", "headerLabel=String:kHz"})
            + Labelled("e", "TableWidget", {"rowCount=Int:2", "columnCount=Int:2"}));
        const auto cell = [&](const char *table) { return Heard(live.Find(table))->tableInterface()->cellAt(1, 0); };
        const auto told = [&](const char *table) {
            return cell(table)->text(QAccessible::Name) + "; " + cell(table)->text(QAccessible::Description);
        };
        QCOMPARE(told("t"), QString("0; column kHz, row 2"));
        QCOMPARE(told("e"), QString("column 0, row 1; "));
        QCOMPARE(cell("e")->parent(), Heard(live.Find("e")));
        live.Find<QTableWidget>("t")->setCurrentCell(1, 0);
        QCOMPARE(Heard(live.Find("t"))->tableInterface()->selectedCells(), {cell("t")});
        const QAccessible::Id gone = QAccessible::uniqueId(cell("e"));
        live.Get("e")->setProperty("rowCount", 1);
        const QAccessibleInterface *left = QAccessible::accessibleInterface(gone);
        QVERIFY(!left || !left->isValid());
    }

    void aFormThatHasEndedIsStillHeard()
    {
        LiveForm live(Labelled("a", "SpinBox"));
        QWidget *spin = live.Find("a");
        QCOMPARE(Name(spin), QString("a"));
        live.form.reset();
        QVERIFY(Heard(spin)->isValid() && Heard(spin)->valueInterface());
        QTRY_VERIFY(Name(spin).isEmpty());
    }

    void aToolMayAskAtAnyTime()
    {
        Curious tool;
        {
            AllControls all;
            QCOMPARE(Name(all.window->findChild<QWidget *>("shiftList_1")), QString("Shifts, item 2"));
            all.form.reset();
            QCoreApplication::processEvents();
        }
        AllControls all;
        all.window.reset();
        QVERIFY(tool.Questions > 1000);
    }

    void theFirstControlHasTheFocus_data()
    {
        const auto row = Columns<QString, QString>({"definition", "focus"});
        const QString locked = Labelled("x", "LineEdit", {"enabled=Bool:false"});
        // clang-format off
        row("headlines are passed over", Labelled("h", "Headline", {"text=String:h"}) + Labelled("a", "CheckBox") + Labelled("b", "LineEdit"), "a");
        row("locked ones too", locked + Labelled("y", "SpinBox", {"visible=Bool:false"}) + Labelled("a", "SpinBox"), "a");
        row("a part of it", Labelled("a", "ShiftList", {"itemCount=Int:2"}), "a_0");
        row("none", Labelled("a", "Label"), "");
        // clang-format on
    }
    void theFirstControlHasTheFocus()
    {
        QFETCH(QString, definition);
        LiveForm live(definition, false);
        const QWidget *focus = live.window->focusWidget();
        QTEST(focus ? focus->objectName() : QString(), "focus");
        // A form that is shown again leaves the focus where it is.
        auto *elsewhere = new QLineEdit(live.window.get());
        elsewhere->show();
        elsewhere->setFocus();
        live.window->hide();
        live.window->show();
        QCOMPARE(live.window->focusWidget(), elsewhere);
    }

    void tabFollowsTheRowsAndLeavesTables()
    {
        Form form
            = Bind(Definition(Labelled("h", "Headline", {"text=String:h"}) + Labelled("range", "FrequencyRangeEdit")
                + Labelled("table", "TableWidget", {"rowCount=Int:2", "columnCount=Int:2"})
                + Labelled("spacings", "ChannelSpacingTable", {"spacingsCount=Int:2"})
                + Labelled("list", "SpinBoxList", {"itemCount=Int:2"}) + Labelled("last", "LineEdit")));
        auto *inserted = new QWidget;
        for (const char *name : {"first", "second"})
            (new QLineEdit(inserted))->setObjectName(name);
        form->GetSheet().InsertWidget("inserted", "host's", inserted, 2);
        form->CreateGUI(true);
        QWidget window;
        auto *box = new QVBoxLayout(&window);
        auto *before = new QLineEdit;
        before->setObjectName("before");
        box->addWidget(before);
        box->addWidget(form->GetGUI());
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QStringList way;
        for (int i = 0; i < 14; ++i) {
            way << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(way.join(' '),
            QString("range_StartFrequency range_StopFrequency first second table spacings list_0 list_1 last "
                    "applyButton autoApply before h range_StartFrequency"));

        // A window in use keeps its focus.
        const Form late = Bind(Definition(Labelled("a", "LineEdit")));
        late->CreateGUI(false);
        before->setFocus();
        box->addWidget(late->GetGUI());
        QTRY_VERIFY(late->GetGUI()->isVisible());
        QCOMPARE(window.focusWidget(), before);
    }
    void stories_data()
    {
        const auto row = Stories();
        const QStringList grid{"value=Int64:145510000", "singleStep=Double:25000", "maximum=Int64:145530000"};
        const QStringList on{"value=Int64:145525000", "singleStep=Double:25000", "maximum=Int64:145530000"};
        const QStringList fine{"value=Int64:1000", "singleStep=Double:0.4"}, none{"value=Int64:100"};
        const auto edit = [](const QStringList &properties) { return Labelled("a", "FrequencyEdit", properties); };
        const auto told
            = [](const char *value) { return QString(" => a.valueChanged(%1) a.editingFinished() a=%1").arg(value); };
        // clang-format off
        row("F2 selects a text", Labelled("a", "LineEdit", {"text=String:abc"}), {"press F2", "see a.selectedText => abc"});
        row("F2 selects a number", Labelled("a", "DoubleSpinBox", {"value=String:100", "suffix=String: dB"}), {"press F2", "see qt_spinbox_lineedit.selectedText => 100"});
        row("F2 selects a frequency", edit(none), {"press F2", "see a.selectedText => 100 Hz"});
        row("F2 selects a cell's text", Labelled("t", "TableWidget", {"rowCount=Int:1", "columnCount=Int:1"}), {"cell t 0 0", "enter abc", "cell t 0 0", "press End F2", "type x", "press Return", "cells t => x"});
        row("up to the next of a grid", edit(grid), {"press Up" + told("145525000"), "modified a => yes"});
        row("down to the next", edit(grid), {"press Down" + told("145500000")});
        row("from one to the next", edit(on), {"press Down" + told("145500000")});
        row("within the limits", edit(on), {"press Up" + told("145530000")});
        row("a grid below whole hertz", edit(fine), {"press Down" + told("999")});
        row("no grid: one hertz", edit(none), {"press Up" + told("101")});
        row("locked", edit(none + QStringList{"readOnly=Bool:true"}), {"press Up =>", "modified a => no"});
        // clang-format on
    }
    void stories() { PlayStory(); }
};

ORBEL_TEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
