// Stores and tables: what scripts and documents cause and what is written, and edits of the tables on the screen.

#include "story.h"

namespace
{

const QString Spacings("ChannelSpacingTable"), Grid("TableWidget");
const QStringList Shape{"spacingsCount=Int:3", "rowCount=Int:2", "columnCount=Int:2"};

/// A store named "s" in a form on the screen, without an apply row. It writes entries `i` with the unit "m", and a log
/// watches it.
struct LiveStore : LiveForm {
    explicit LiveStore(const QString &className, const QStringList &properties = {})
        : LiveForm(
            Widget("s", className,
                properties
                    + QStringList{"generateParameterXml=Bool:true", "parameterListItemTag=String:i", "unit=String:m"}),
            false)
    {
        log.Watch("s", Get("s"));
    }
    void Read(const QString &entries) { form->SetXmlString("<Parameters><s>" + entries + "</s></Parameters>"); }
    /// The entries in the document, joined with blanks: the values of the attributes, then ":" and the text.
    QString Written()
    {
        QXmlStreamReader reader(form->GetXmlString(false));
        reader.readNextStartElement();
        reader.readNextStartElement();
        QStringList entries;
        while (reader.readNextStartElement()) {
            QString entry;
            for (const QXmlStreamAttribute &attribute : reader.attributes())
                entry += attribute.value();
            entries << entry + ':' + reader.readElementText();
        }
        return entries.join(' ');
    }
};

struct LiveTable : LiveStore {
    using LiveStore::LiveStore;
    QTableWidget *Table() const { return Find<QTableWidget>("s"); }

    QWidget *Edit(int row, int column)
    {
        QWidget *editor = OpenCell(Table(), row, column);
        log.Take();
        return editor;
    }
    void Type(int row, int column, const QString &text)
    {
        QWidget *editor = Edit(row, column);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        PassTime(0);
    }
    QString Shown() const
    {
        QStringList texts;
        for (int row = 0; row < Table()->rowCount(); ++row)
            texts << Table()->model()->index(row, 0).data().toString();
        return texts.join(' ');
    }
    void Paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keySequence(Table(), QKeySequence::Paste);
    }
};

} // namespace

class TestTables : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void stores_data()
    {
        const auto row = Columns<QString, QStringList, QString, QString, QString, QString, QString>(
            {"className", "properties", "script", "entries", "events", "result", "written"});
        const QString no, spacings("m0:%1 m1:%2 m2:%3"), cells("m00:%1 m01:%2 m10:%3 m11:%4");
        const QString list("HiddenList"), map("HiddenMap"), table("HiddenTable");
        const QString hidden("m00:%1 m01: m02:%2 m10: m11: m12:%3");
        const QStringList two{"itemCount=Int:2"}, grid{"rowCount=Int:2", "columnCount=Int:3"};
        // clang-format off
        row("list: an index equal to the length is refused", list, {}, "s.setItemValue(0, 'a')", no, "", "", "");
        row("list: one beyond makes room", list, {}, "s.setItemValue(1, 'b'); r = s.itemValue(0) + s.itemValue(1)", no, "apply s.itemValueChanged(1, b)", "b", "m0: m1:b");
        row("list: a stated count grows with it", list, two, "s.setItemValue(2, 'b'); s.setItemValue(3, 'b'); s.setItemValue(3, 'b'); r = s.itemCount", no, "apply s.itemValueChanged(3, b)", "4", "m0: m1: m2: m3:b");
        row("list: clearing leaves the count", list, two, "s.clear(); s.setItemCount(2); r = s.itemCount", no, "", "2", "");
        row("list: reading loses the first item and the one behind the last", list, {}, no, "<i>a</i><x>b</x><i>c</i>", "s.itemValueChanged(1, b)", "", "m0: m1:b");
        row("list: reading finds no room where the count says there is", list, two, "s.setItemValue(0, 'a')", "<i index='1'>b</i>", "apply s.itemValueChanged(0, a)", "", "");
        row("map: add, change, remove", map, {}, "s.setValue('b', '1'); s.setValue('a', '2'); s.setValue('b', '1'); s.setValue('c', '3'); s.remove('c');s.remove('z'); r = s.keys().join() + s.value('z') + s.contains('z') + s.value('a')", no, "s.valueAdded(b, 1) apply s.valueAdded(a, 2) s.valueChanged(b, 1) s.valueAdded(c, 3) s.valueRemoved(c, 3)", "a,bfalse2", "a:2 b:1");
        row("map: clearing is silent", map, {}, "s.setValue('a', '1'); s.clear()", no, "s.valueAdded(a, 1) apply", "", "");
        row("map: reading replaces silently", map, {}, "s.setValue('a', '1')", "<i key='b'>2</i><i>3</i><i key='b'>4</i>", "s.valueAdded(a, 1) apply", "", ":3 b:4");
        row("table: a cell signals once", table, grid, "s.setItemValue(1, 2, 'f'); s.setItemValue(1, 2, 'f'); r = s.itemValue(0, 5) + s.itemValue(9, 9)", no, "apply s.itemValueChanged(1, 2, f)", "f", hidden.arg("", "", "f"));
        row("table: fewer rows and more again, then cleared", table, grid, "s.setItemValue(0, 2, 'c'); s.setItemValue(1, 2, 'f'); s.setRowCount(1); s.setRowCount(2);r = s.itemValue(0, 2) + s.itemValue(1, 2) + s.rowCount; s.clear()", no, "apply s.itemValueChanged(0, 2, c) s.itemValueChanged(1, 2, f) s.tableCleared()", "c2", hidden.arg("", "", ""));
        row("table: without columns it gets no rows", table, {"rowCount=Int:2"}, "s.setColumnCount(3); s.setRowCount(2)", no, "", "", "");
        row("table: reading clears, then sets", table, grid, no, "<i>a</i><i row='1' column='2'>f</i><i row='7' column='0'>x</i><i row='-1'>y</i>", "s.tableCleared() s.itemValueChanged(0, 0, a) s.itemValueChanged(1, 2, f)", "", hidden.arg("a", "", "f"));
        row("spacings: a script's change counts as an edit", Spacings, Shape + QStringList{"decimals=Int:1"}, "s.setSpacingValue(1, 2.26); s.setSpacingValue(1, 2.26); r = s.spacingValue(1) + s.spacingValue(3)", no, "apply s.spacingChanged(1) s.spacingValueChanged(1, 2.26)", "2.26", spacings.arg("0.0", "2.3", "0.0"));
        row("spacings: more keep, fewer drop the last", Spacings, {"spacingsCount=Int:1"}, "s.setSpacingValue(0, 4); s.setSpacingsCount(3); s.setSpacingValue(2, 9); s.setSpacingsCount(2);s.setSpacingsCount(3)", no, "apply s.spacingChanged(0) s.spacingValueChanged(0, 4) s.spacingChanged(2) s.spacingValueChanged(2, 9)", "", spacings.arg("4", "0", "0"));
        row("spacings: reading is silent", Spacings, Shape, no, "<i index='1'>6</i><i>7</i><i>8</i><i index='0'>x</i>", "", "", spacings.arg("0", "6", "7"));
        row("grid: a script's change is silent and keeps its type", Grid, Shape, "s.setItemValue(1, 0, 2.5); s.setItemValue(2, 0, 9); r = typeof s.itemValue(1, 0) + typeof s.itemValue(0, 0)", no, "", "numberundefined", cells.arg("", "", "2.5", ""));
        row("grid: clearing keeps the shape", Grid, Shape, "s.setItemValue(0, 0, 'a'); s.clear()", no, "s.tableCleared()", "", cells.arg("", "", "", ""));
        row("grid: fewer rows keep their cells", Grid, Shape, "s.setItemValue(0, 1, 'b'); s.setItemValue(1, 1, 'd'); s.setRowCount(1); s.setRowCount(2)", no, "", "", cells.arg("", "b", "", ""));
        row("grid: more columns take the next row's first cells", Grid, {"rowCount=Int:2", "columnCount=Int:1"}, "s.setItemValue(0, 0, 'a'); s.setItemValue(1, 0, 'b'); s.setColumnCount(2)", no, "", "", cells.arg("a", "b", "b", ""));
        row("grid: without rows it gets no columns", Grid, {"columnCount=Int:2"}, "s.setRowCount(3); s.setColumnCount(4)", no, "", "", "");
        row("grid: reading clears silently and makes texts", Grid, Shape, "s.setItemValue(0, 1, 'old')", "<i>5</i><i row='1' column='1'>6</i><i row='9'>7</i>", "", "", cells.arg("5", "", "", "6"));
        // clang-format on
    }
    /// The script leaves its result in r, then a document with the entries is read, unless they are null. Of the
    /// events, "apply" is the sheet's.
    void stores()
    {
        const auto [className, properties, script, entries]
            = Fetch<QString, QStringList, QString, QString>({"className", "properties", "script", "entries"});
        LiveStore store(className, properties);
        store.form->EvaluateScript("var r = ''; " + script);
        if (!entries.isNull()) {
            store.Read(entries);
            QVERIFY(!store.Get("s")->isModified());
        }
        QTEST(store.log.Take().replace("sheet.si_parametersModified()", "apply"), "events");
        QTEST(store.form->GetScriptValues().value("r").toString(), "result");
        QTEST(store.Written(), "written");
    }

    void stories_data()
    {
        const auto row = Stories();
        const QStringList writes
            = Shape + QStringList{"generateParameterXml=Bool:true", "parameterListItemTag=String:i"};
        // clang-format off
        row("spacings", Widget("s", Spacings, writes + QStringList{"headerLabel=String:Step", "enabled=Bool:false"}), {
            "see s.enabled => true", // the definition's state reaches the table with its next change only
            "script s.setFocus()", "focused => s",
            "cell s 1 0", "type 2", "script s.setSpacingValue(1, 9)", "type 5",
            "press Return => s.spacingChanged(1) s.spacingValueChanged(1, 25)",
            "document <s><i index='2'>8</i></s> =>", "cells s => 0|25|8",
            "script s.setEnabled(true); s.setEnabled(false)", "see s.enabled => false"});
        row("spacings: bounds of the next editor", Widget("s", Spacings, writes + QStringList{"maximum=Double:2000", "decimals=Int:1"}), {
            "cell s 0 0", "enter 2000.5", "cells s => 2000|0|0",
            "script s.setMinimum(1); s.setMaximum(9); s.setSingleStep(2); s.setDecimals(0)",
            "cell s 1 0", "press Up Up Up", "press Return", "cells s => 2000|7|0",
            "cell s 2 0", "enter 99", "cells s => 2000|7|9", "see s.toolTip => <html><br>...2000.0"});
        row("grid: edits land by place and row", Widget("s", Grid, writes), {
            "cell s 1 1", "enter lost =>", "modified s => no", // no item stands in the corner yet
            "cell s 0 0", "enter a => s.cellChanged(0, 0)", "cell s 1 1", "enter b => s.cellChanged(1, 1)",
            "cells s => a|||b",
            "fetch",
            "script s.setItemValue(1, 0, 'c') =>", "cells s => c|||b", "modified s => no", // silent here too
            "script s.setItemValue(0, 0, true)", "cell s 0 0", "press Up", "press Return", "cells s => false|||b", // a choice
            "script s.setItemValue(0, 0, 'c')", "cell s 1 1", "press Esc",
            "script s.setRowCount(1) => s.currentCellChanged(0, 1, 1, 1)", "cells s => a|",
            "document <s><i column='1'>d</i></s> =>", "cells s => d|"});
        // clang-format on
    }
    void stories() { PlayStory(); }

    /// While handlers hear of the commit of the first cell, the operator enters something into another one.
    void aCellEnteredWithinACommit_data()
    {
        const auto row = Columns<QString, QString, QString>({"className", "how", "shown"});
        for (const QString &className : {Spacings, Grid}) {
            row(qPrintable(className + ": ended by Return"), className, "return", "7 8");
            row(qPrintable(className + ": by Tab"), className, "tab", "7 8");
            row(qPrintable(className + ": by the focus"), className, "focus", "7 8");
            row(qPrintable(className + ": by the host"), className, "host", "7 8");
            row(qPrintable(className + ": taken back"), className, "escape", "7 5");
            row(qPrintable(className + ": not ended"), className, "open", "7 8");
            row(qPrintable(className + ": in the same editor"), className, "same", "71 5");
            row(qPrintable(className + ": while the first is undone"), className, "undo", "5 8");
        }
        row("the rows move up", Spacings, "rows", "7");
        row("the form ends", Spacings, "form", "7 8");
        row("the window ends", Spacings, "window", "");
    }

    void aCellEnteredWithinACommit()
    {
        const auto [className, how] = Fetch<QString, QString>({"className", "how"});
        LiveTable live(className, {"spacingsCount=Int:2", "rowCount=Int:2", "columnCount=Int:1"});
        QApplication::setActiveWindow(live.window.get());
        for (int row : {0, 1})
            live.Type(row, 0, "5");
        live.form->GetXmlString(true);
        QUndoStack *stack = live.form->GetUndoStack();
        const int before = stack->count();
        const auto enter = [&, how = how] {
            if (how == "same") {
                QTest::keyClicks(live.Table()->indexWidget(live.Table()->currentIndex()), "1");
                return;
            }
            QWidget *editor = live.Edit(1, 0);
            TypeOver(editor, "8");
            const QHash<QString, Qt::Key> keys{{"return", Qt::Key_Return}, {"undo", Qt::Key_Return},
                {"rows", Qt::Key_Return}, {"form", Qt::Key_Return}, {"tab", Qt::Key_Tab}, {"escape", Qt::Key_Escape}};
            if (keys.contains(how))
                QTest::keyClick(editor, keys.value(how));
            else if (how == "focus")
                live.Table()->setFocus();
            else if (how == "host")
                live.form->FinishEditing();
            else if (how == "window")
                live.window.release()->deleteLater();
            if (how == "rows")
                live.form->EvaluateScript("s.setSpacingsCount(1)");
            if (how == "form")
                live.form.reset();
        };
        const auto loop = [&] {
            QEventLoop loop;
            QTimer::singleShot(0, &loop, enter);
            QTimer::singleShot(20, &loop, &QEventLoop::quit);
            loop.exec();
        };
        if (how == "undo") {
            live.Type(0, 0, "7");
            live.log.On(className == Grid ? "s.cellChanged(0" : "s.spacingChanged(0", loop);
            stack->undo();
        } else {
            live.log.On(className == Grid ? "s.cellChanged(0" : "s.spacingChanged(0", loop);
            live.Type(0, 0, "7");
        }
        if (!live.window)
            return;
        if (how == "open" || how == "same")
            QTest::keyClick(live.window->focusWidget(), Qt::Key_Return);
        QTEST(live.Shown(), "shown");
        if (!live.form)
            return;
        if (className == Spacings)
            QCOMPARE(live.Written(), "m0:" + live.Shown().replace(' ', " m1:"));
        const bool isOne = how == "escape" || how == "undo";
        QCOMPARE(stack->count() - before, isOne ? 1 : 2);
        stack->setIndex(before);
        if (how != "rows")
            QCOMPARE(live.Shown(), QString("5 5"));
        stack->setIndex(stack->count());
        QTEST(live.Shown(), "shown");
    }

    void whatIsTypedIsTakenWholeOrNotAtAll()
    {
        LiveTable live(Spacings, Shape);
        QLineEdit other;
        other.show();
        QApplication::setActiveWindow(live.window.get());
        TypeOver(live.Edit(0, 0), "2000");
        QApplication::setActiveWindow(&other);
        QApplication::setActiveWindow(live.window.get());
        const auto *field = live.Table()->findChild<QLineEdit *>("qt_spinbox_lineedit");
        QVERIFY2(field->text() == "2000", "another window leaves alone what is above the limit");
        TypeOver(live.Table()->indexWidget(live.Table()->currentIndex()), "7x");
        live.Table()->setFocus();
        QVERIFY2(live.Shown() == "0 0 0", "of what is no number nothing is taken");
        QWidget *editor = live.Edit(0, 0);
        QTest::keyClick(editor, Qt::Key_Up);
        live.form->EvaluateScript("s.setSpacingValue(0, 5)");
        QTest::keyClick(editor, Qt::Key_Return);
        QVERIFY2(live.Shown() == "1 0 0", "a step is as good as letters");
    }

    void aHostEntersAllSpacingsOrNone_data()
    {
        const auto row = Columns<QVariantList, QString>({"spacings", "shown"});
        row("all of them", {5, 6.5, "7"}, "5 6.5 7");
        row("at the limits", {1, 2000, 7}, "1 2000 7");
        row("one of them, the others as they stand", {5, 0, 0}, "5 0 0");
        row("above one", {5, 2001, 7}, "0 0 0");
        row("below one", {0.5, 6, 7}, "0 0 0");
        row("too few", {5, 6}, "0 0 0");
        row("no number", {5, "x", 7}, "0 0 0");
        row("infinity", {5, qInf(), 7}, "0 0 0");
    }
    void aHostEntersAllSpacingsOrNone()
    {
        LiveTable live(Spacings, Shape + QStringList{"minimum=Double:1", "maximum=Double:2000"});
        QFETCH(QVariantList, spacings);
        QString error;
        const bool taken = live.form->Enter("s", spacings, &error);
        QTEST(live.Shown(), "shown");
        QCOMPARE(taken, live.Shown() != "0 0 0");
        QCOMPARE(taken, error.isEmpty());
    }

    /// The context menu of a row, or by key that of the current one.
    void setToAll()
    {
        Story live(Widget(
            "s", Spacings, {"spacingsCount=Int:2", "generateParameterXml=Bool:true", "parameterListItemTag=String:i"}));
        live.Play({"document <s><i>10</i><i>20</i></s>"});
        auto *table = live.Find<QTableWidget>("s");
        table->setCurrentCell(1, 0);
        QStringList titles;
        const ModalVisitor menu([&](QWidget *open) {
            titles << open->actions().first()->text();
            open->actions().first()->trigger();
        });
        QTest::keyClick(table, Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(titles.join(' '), QString("Set to all"));
        live.Play({"cells s => 20|20"});
    }

    void mouseAndCurrentCellAreTold_data()
    {
        const auto row = Columns<QString, QString>({"className", "events"});
        // clang-format off
        row("grid", Grid, "s.currentCellChanged(1, 0, 0, 0) s.cellPressed(1, 0) s.cellClicked(1, 0) s.cellDoubleClicked(1, 0) s.cellActivated(1, 0)");
        row("spacings", Spacings, "s.currentSpacingChanged(1, 0) s.spacingPressed(1) s.spacingClicked(1) s.spacingDoubleClicked(1) s.spacingActivated(1)");
        // clang-format on
    }

    void mouseAndCurrentCellAreTold()
    {
        QFETCH(QString, className);
        LiveTable live(className, Shape);
        live.Table()->setEditTriggers(QAbstractItemView::NoEditTriggers);
        live.Table()->setCurrentCell(0, 0);
        live.log.Take();
        const QPoint place(5, live.Table()->rowViewportPosition(1) + 5);
        QTest::mouseClick(live.Table()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(live.Table()->viewport(), Qt::LeftButton, {}, place);
        QTEST(live.log.Take(), "events");
    }

    void clipboard_data()
    {
        // Pasted from a column and row on; all cells are copied, and something may be told of the last one.
        const auto row
            = Columns<QString, QPoint, QString, QString, QString>({"className", "start", "pasted", "copied", "note"});
        // clang-format off
        row("grid: as much as fits", Grid, QPoint(0, 0), "a\tb\tx\r\nc\td\r\ne", "a\tb\nc\td", "");
        row("grid: from the selected cell on", Grid, QPoint(1, 1), "d", "\t\n\td", "");
        row("spacings: bounded and rounded like typed ones", Spacings, QPoint(0, 0), "12,6\n2000\n-1\n", "13\n1000\n0", "below 0: 0 is taken");
        row("spacings: what is no number stays out", Spacings, QPoint(0, 1), "7\nx", "5\n7\n5", "not taken: x");
        row("nothing", Spacings, QPoint(0, 0), "", "5\n5\n5", "");
        // clang-format on
    }

    void clipboard()
    {
        const auto [className, start, pasted] = Fetch<QString, QPoint, QString>({"className", "start", "pasted"});
        LiveTable live(className, Shape);
        live.Read("<i>5</i><i>5</i><i>5</i>");
        live.Table()->setCurrentCell(start.y(), start.x());
        live.log.Take();
        live.Paste(pasted);
        QCOMPARE(live.Get("s")->isModified(), live.log.Take().contains("Changed("));
        QTEST(Orbel::FieldNote::TextOf(live.Table()->viewport()), "note");
        live.Table()->selectAll();
        QTest::keySequence(live.Table(), QKeySequence::Copy);
        QTEST(QApplication::clipboard()->text(), "copied");
    }
};

ORBEL_TEST_MAIN(TestTables)
#include "tst_tables.moc"
