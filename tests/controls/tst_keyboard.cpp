// A form without a mouse and without a screen: where the focus goes, and what an assistive tool hears.

#include "liveform.h"
#include "testmain.h"
#include "tree.h"

#include <QAccessible>
#include <QTableWidget>
#include <QtTest>

using namespace forms;

namespace
{

const QStringList Usable{"visible=Bool:true", "enabled=Bool:true"};

QString Labelled(const QString &name, const QString &className, const QStringList &properties = {})
{
    return Widget(name, className, Usable + QStringList{"labelText=String:" + name} + properties);
}

/// The example with every class once.
struct AllControls {
    AllControls() : form(KV218::OrbelParser().ParseORBELFile(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel"))
    {
        form->CreateValueTree("/All");
        form->CreateGUI(true);
        window.reset(form->GetGUI());
        window->resize(900, 900);
        window->show();
        window->activateWindow();
    }

    Form form;
    std::unique_ptr<QWidget> window;
};

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
        heard->focusChild();
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

class TestKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

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
        QTest::addColumn<QString>("widget");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("description");

        QTest::newRow("a control") << "lineEdit"
                                   << "Line edit"
                                   << "";
        QTest::newRow("a number") << "SpinBox"
                                  << "Spin box"
                                  << "0 to 60 dB";
        QTest::newRow("a scaled number") << "bandwidth"
                                         << "Bandwidth"
                                         << "0 to 20000 kHz";
        QTest::newRow("an end of a range") << "frequencyRangeEdit_StopFrequency"
                                           << "Frequency range, stop"
                                           << "8.001 kHz to 26.5 GHz";
        QTest::newRow("the large field") << "frequency"
                                         << "Frequency"
                                         << "";
        QTest::newRow("its button") << "entry"
                                    << "Frequency, Type a frequency"
                                    << "";
        QTest::newRow("an item") << "shiftList_1"
                                 << "Shifts, item 2"
                                 << "0 to 1000 Hz";
        QTest::newRow("a table") << "spacings"
                                 << "Channel spacing"
                                 << "0 to 100 kHz";
        QTest::newRow("a button of a row") << "scriptControl_EditButton"
                                           << "Script, edit"
                                           << "";
        QTest::newRow("a headline") << "numbers"
                                    << "Numbers"
                                    << "Hide Numbers";
        QTest::newRow("a text") << "label"
                                << "a text to read"
                                << "";
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
        LiveForm live(Labelled("a", "FrequencyRangeEdit", {"labelText=String:R&S"}) + Labelled("b", "CheckBox"));
        auto *label = live.Find<QLabel>("labela");
        auto *stop = live.Find("a_StopFrequency");
        QCOMPARE(Name(stop), QString("R&S, stop"));
        QCOMPARE(Name(label), QString("R&S"));
        QVERIFY(!label->buddy());
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
        QCOMPARE(Name(stop), QString("Band, stop"));
        QCOMPARE(Description(stop), QString("8.001 kHz to 1 MHz"));
    }

    void whatIsNotAcceptedIsTold()
    {
        LiveForm live(Labelled("a", "FrequencyEdit"));
        auto *field = live.Find<QLineEdit>("a");
        field->setFocus();
        QTest::keyClicks(field, "12x");
        QVERIFY2(Description(field).startsWith("not accepted"), qPrintable(Description(field)));
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(Description(field), QString());
    }

    void aCellsEditorTellsItsCell()
    {
        LiveForm live(Labelled("t", "ChannelSpacingTable", {"spacingsCount=Int:3", "headerLabel=String:kHz"}));
        auto *table = live.Find<QTableWidget>("t");
        table->setCurrentCell(1, 0);
        table->editItem(table->item(1, 0));
        QCOMPARE(Name(table->findChild<QAbstractSpinBox *>()), QString("t, column kHz, row 2"));
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
        auto *spin = live.Find("a");
        QCOMPARE(Name(spin), QString("a"));
        live.form.reset();
        QVERIFY(Heard(spin)->isValid());
        QVERIFY(Heard(spin)->valueInterface());
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
        QTest::addColumn<QString>("definition");
        QTest::addColumn<QString>("focus");

        QTest::newRow("first") << Labelled("a", "LineEdit") + Labelled("b", "LineEdit") << "a";
        QTest::newRow("headlines are passed over")
            << Labelled("h", "Headline", {"text=String:h"}) + Labelled("a", "CheckBox") << "a";
        QTest::newRow("locked ones too") << Labelled("x", "LineEdit", {"enabled=Bool:false"})
                + Labelled("y", "SpinBox", {"visible=Bool:false"}) + Labelled("a", "SpinBox")
                                         << "a";
        QTest::newRow("a part of it") << Labelled("a", "ShiftList", {"itemCount=Int:2"}) << "a_0";
        QTest::newRow("none") << Labelled("a", "Label") << "";
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

    void aWindowInUseKeepsItsFocus()
    {
        Form form = Bind(Definition(Labelled("a", "LineEdit")));
        form->CreateGUI(true);
        QWidget window;
        auto *box = new QVBoxLayout(&window);
        auto *own = new QLineEdit;
        box->addWidget(own);
        window.show();
        own->setFocus();
        box->addWidget(form->GetGUI());
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_VERIFY(form->GetGUI()->isVisible());
        QCOMPARE(window.focusWidget(), own);
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
        for (int i = 0; i < 13; ++i) {
            way << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(way.join(' '),
            QString("range_StartFrequency range_StopFrequency first second table spacings list_0 list_1 last autoApply "
                    "before h range_StartFrequency"));
    }

    void aTableIsFilledWithTab()
    {
        LiveForm live(Labelled("t", "ChannelSpacingTable", {"spacingsCount=Int:2"}) + Labelled("b", "LineEdit"));
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        auto *table = live.Find<QTableWidget>("t");
        table->setCurrentCell(0, 0);
        QTest::keyClick(table, Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "7");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(table->item(0, 0)->data(Qt::DisplayRole).toDouble(), 7.0);
        QCOMPARE(table->currentRow(), 1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_VERIFY(table->hasFocus());
        QTest::keyClick(table, Qt::Key_Tab);
        QVERIFY(live.Find("b")->hasFocus());
    }

    void f2SelectsAll_data()
    {
        QTest::addColumn<QString>("className");
        QTest::newRow("text") << "LineEdit";
        QTest::newRow("frequency") << "FrequencyEdit";
        QTest::newRow("number") << "DoubleSpinBox";
    }
    void f2SelectsAll()
    {
        QFETCH(QString, className);
        LiveForm live(Labelled("a", className, {"text=String:abc", "value=String:100", "suffix=String: dB"}));
        auto *field = qobject_cast<QLineEdit *>(live.Find("a"));
        if (!field)
            field = live.Find("a")->findChild<QLineEdit *>();
        QVERIFY(field && !field->hasSelectedText());
        QTest::keyClick(live.Find("a"), Qt::Key_F2);
        QVERIFY(field->hasSelectedText());
        QVERIFY(field->text().startsWith(field->selectedText()));
    }

    void upAndDownFollowTheGrid_data()
    {
        QTest::addColumn<QStringList>("properties");
        QTest::addColumn<int>("key");
        QTest::addColumn<double>("value");

        const QStringList grid{"value=Int64:145510000", "singleStep=Double:25000", "maximum=Int64:145530000"};
        QTest::newRow("up to the next") << grid << int(Qt::Key_Up) << 145525000.0;
        QTest::newRow("down to the next") << grid << int(Qt::Key_Down) << 145500000.0;
        QTest::newRow("from one to the next")
            << QStringList{"value=Int64:145500000", "singleStep=Double:25000"} << int(Qt::Key_Down) << 145475000.0;
        QTest::newRow("a grid below whole hertz")
            << QStringList{"value=Int64:1000", "singleStep=Double:0.4"} << int(Qt::Key_Down) << 999.0;
        QTest::newRow("within the limits")
            << QStringList{"value=Int64:145525000", "singleStep=Double:25000", "maximum=Int64:145530000"}
            << int(Qt::Key_Up) << 145530000.0;
        QTest::newRow("no grid: one hertz") << QStringList{"value=Int64:100"} << int(Qt::Key_Up) << 101.0;
        QTest::newRow("locked") << QStringList{"value=Int64:100", "readOnly=Bool:true"} << int(Qt::Key_Up) << 100.0;
    }
    void upAndDownFollowTheGrid()
    {
        QFETCH(QStringList, properties);
        LiveForm live(Labelled("a", "FrequencyEdit", properties + QStringList{"generateParameterXml=Bool:true"}));
        live.log.Watch("a", live.Get("a"));
        const double before = live.Get("a")->property("value").toDouble();
        QFETCH(int, key);
        QTest::keyClick(live.Find("a"), Qt::Key(key));
        QFETCH(double, value);
        QCOMPARE(live.Get("a")->property("value").toDouble(), value);
        const QString text = QString::number(qint64(value));
        QCOMPARE(
            live.log.Take(), value == before ? QString() : QString("a.valueChanged(%1) a.editingFinished()").arg(text));
        QCOMPARE(live.Get("a")->isModified(), value != before);
    }

    void aStepCountsFromWhatIsTypedAndKeepsARange()
    {
        LiveForm live(Labelled("a", "FrequencyRangeEdit",
            {"startFrequency=Int64:10000", "stopFrequency=Int64:50000", "singleStep=Double:10000"}));
        auto *start = live.Find("a_StartFrequency");
        QTest::keyClick(start, Qt::Key_F2);
        QTest::keyClicks(start, "44k");
        QTest::keyClick(start, Qt::Key_Up);
        QCOMPARE(live.Get("a")->property("startFrequency").toDouble(), 50000.0);
        QCOMPARE(live.Get("a")->property("stopFrequency").toDouble(), 50001.0);
    }

    void aFormTunesUnderTheMouse()
    {
        LiveForm live(Labelled("a", "FrequencyEdit", {"MainFreqEdit=Bool:true", "value=Int64:145500000"})
            + Labelled("b", "LineEdit"));
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        live.Find("b")->setFocus();
        auto *field = live.Find<QLineEdit>("frequency");
        field->grab(); // places the text
        const auto turn = [&] {
            const QPoint digit(
                field->width() - field->fontMetrics().horizontalAdvance(" MHz") - 8, field->height() / 2);
            QWheelEvent event(digit, field->mapToGlobal(digit), {}, {0, 120}, {}, {}, {}, false);
            QApplication::sendEvent(field, &event);
            return live.Get("a")->property("value").toDouble();
        };
        QCOMPARE(turn(), 145500000.0);
        live.form->EvaluateScript("sheet.setHoverTuning(true);");
        QVERIFY(turn() > 145500000.0);
        QVERIFY(live.Find("b")->hasFocus());
    }
};

ORBEL_TEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
