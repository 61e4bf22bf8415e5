// Tables on the screen: edits by key, clipboard and context menu, scripts and documents, and what is written.

#include "rows.h"
#include "storecase.h"
#include "testmain.h"

using namespace KV218;

namespace
{

const QString Spacings("ChannelSpacingTable"), Grid("TableWidget");
const QStringList Shape{"spacingsCount=Int:3", "rowCount=Int:2", "columnCount=Int:2"};

struct LiveTable : LiveStore {
    using LiveStore::LiveStore;
    QTableWidget *Table() const { return Find<QTableWidget>("s"); }

    /// Opens a cell's editor with F2.
    QWidget *Edit(int row, int column)
    {
        Table()->setCurrentCell(row, column);
        QTest::keyClick(Table(), Qt::Key_F2);
        log.Take();
        QWidget *editor = nullptr;
        for (QWidget *child : Table()->viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            editor = child->isVisible() ? child : editor;
        return editor;
    }
    /// Types a text into a cell, over the one it has, and ends with Return.
    void Type(int row, int column, const QString &text)
    {
        QWidget *editor = Edit(row, column);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void Paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keySequence(Table(), QKeySequence::Paste);
    }
    /// Asks for the context menu of a row, by mouse or, for row -1, by key; takes its first action, gives all titles.
    QString Menu(int row)
    {
        QStringList titles;
        QTimer open;
        QObject::connect(&open, &QTimer::timeout, [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            for (const QAction *action : menu->actions())
                titles << action->text();
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        open.start(0);
        const bool outside = row >= Table()->rowCount();
        const QPoint place(5, outside ? Table()->viewport()->height() - 1 : Table()->rowViewportPosition(row) + 5);
        QContextMenuEvent ask(QContextMenuEvent::Mouse, place, Table()->viewport()->mapToGlobal(place));
        if (row < 0)
            QTest::keyClick(Table(), Qt::Key_F10, Qt::ShiftModifier);
        else
            QCoreApplication::sendEvent(Table()->viewport(), &ask);
        return titles.join(' ');
    }
    QString Shown() const
    {
        QStringList texts;
        for (int row = 0; row < Table()->rowCount(); ++row)
            texts << Table()->model()->index(row, 0).data().toString();
        return texts.join(' ');
    }
};

} // namespace

class TestTables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void stores_data()
    {
        AddStoreColumns();
        const QString no, spacings("m0:%1 m1:%2 m2:%3"), cells("m00:%1 m01:%2 m10:%3 m11:%4");
        StoreRow("spacings: a script's change counts as an edit", Spacings, Shape + QStringList{"decimals=Int:1"},
            "s.setSpacingValue(1, 2.26); s.setSpacingValue(1, 2.26); r = s.spacingValue(1) + s.spacingValue(3)", no,
            "apply s.spacingChanged(1) s.spacingValueChanged(1, 2.26)", "2.26", spacings.arg("0.0", "2.3", "0.0"));
        StoreRow("spacings: more keep, fewer drop the last", Spacings, {"spacingsCount=Int:1"},
            "s.setSpacingValue(0, 4); s.setSpacingsCount(3); s.setSpacingValue(2, 9); s.setSpacingsCount(2);"
            "s.setSpacingsCount(3)",
            no, "apply s.spacingChanged(0) s.spacingValueChanged(0, 4) s.spacingChanged(2) s.spacingValueChanged(2, 9)",
            "", spacings.arg("4", "0", "0"));
        StoreRow("spacings: reading is silent", Spacings, Shape, no,
            "<i index='1'>6</i><i>7</i><i>8</i><i index='0'>x</i>", "", "", spacings.arg("0", "6", "7"));
        StoreRow("grid: a script's change is silent and keeps its type", Grid, Shape,
            "s.setItemValue(1, 0, 2.5); s.setItemValue(2, 0, 9); r = typeof s.itemValue(1, 0) + typeof s.itemValue(0, "
            "0)",
            no, "", "numberundefined", cells.arg("", "", "2.5", ""));
        StoreRow("grid: clearing keeps the shape", Grid, Shape, "s.setItemValue(0, 0, 'a'); s.clear()", no,
            "s.tableCleared()", "", cells.arg("", "", "", ""));
        StoreRow("grid: fewer rows keep their cells", Grid, Shape,
            "s.setItemValue(0, 1, 'b'); s.setItemValue(1, 1, 'd'); s.setRowCount(1); s.setRowCount(2)", no, "", "",
            cells.arg("", "b", "", ""));
        StoreRow("grid: more columns take the next row's first cells", Grid, {"rowCount=Int:2", "columnCount=Int:1"},
            "s.setItemValue(0, 0, 'a'); s.setItemValue(1, 0, 'b'); s.setColumnCount(2)", no, "", "",
            cells.arg("a", "b", "b", ""));
        StoreRow("grid: without rows it gets no columns", Grid, {"columnCount=Int:2"},
            "s.setRowCount(3); s.setColumnCount(4)", no, "", "", "");
        StoreRow("grid: reading clears silently and makes texts", Grid, Shape, "s.setItemValue(0, 1, 'old')",
            "<i>5</i><i row='1' column='1'>6</i><i row='9'>7</i>", "", "", cells.arg("5", "", "", "6"));
    }
    void stores() { CheckStore(); }

    void spacingEditorHasTheBounds()
    {
        const auto bounds = [](LiveTable &live) {
            const auto *spin = qobject_cast<QDoubleSpinBox *>(live.Edit(0, 0));
            const QString text("%1 %2 %3 %4, %5");
            return !spin ? QString()
                         : text.arg(spin->minimum())
                               .arg(spin->maximum())
                               .arg(spin->singleStep())
                               .arg(spin->decimals())
                               .arg(live.Table()->toolTip());
        };
        LiveTable absent(Spacings, Shape);
        QCOMPARE(bounds(absent), QString("0 1000 1 0, <html>"));
        LiveTable stated(Spacings,
            Shape
                + QStringList{
                    "minimum=Double:-5", "maximum=Double:2000.5", "singleStep=Double:12.5", "decimals=Int:1"});
        QCOMPARE(bounds(stated), QString("-5 2000.5 12.5 1, <html><br>-5.0...2000.5"));
        stated.form->EvaluateScript("s.setMinimum(1); s.setMaximum(9); s.setSingleStep(2); s.setDecimals(0)");
        stated.Type(0, 0, "5");
        QVERIFY2(bounds(stated) == "1 9 2 0, <html><br>-5.0...2000.5", "the next editor follows, the tooltip does not");
    }

    void spacingEdits()
    {
        const ContextTranslator translator("s");
        LiveTable live(Spacings, Shape + QStringList{"headerLabel=String:Step", "enabled=Bool:false"});
        QVERIFY2(live.Table()->isEnabled(), "the definition's state reaches the table with its next change only");
        QCOMPARE(live.Table()->horizontalHeaderItem(0)->text(), QString("s:Step"));
        QCOMPARE(live.Table()->verticalHeaderItem(2)->text(), QString("3"));
        live.form->EvaluateScript("s.setHeaderLabel('Width'); s.setFocus()");
        QCOMPARE(live.Table()->horizontalHeaderItem(0)->text(), QString("s:Width"));
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        QVERIFY(live.Table()->hasFocus());

        live.Type(1, 0, "25");
        QCOMPARE(
            live.log.Take(), QString("sheet.si_parametersModified() s.spacingChanged(1) s.spacingValueChanged(1, 25)"));
        QCOMPARE(live.Written(), QString("m0:0 m1:25 m2:0"));
        live.Read("<i index='2'>8</i>");
        QCOMPARE(live.Shown(), QString("0 25 8"));
        live.form->EvaluateScript("s.setEnabled(true); s.setEnabled(false)");
        QVERIFY(!live.Table()->isEnabled());
    }

    void setToAll_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("row"); // -1: by key
        Columns<QString, QString>({"menu", "shown"});
        AddRow("keyboard, the current row", 3, -1, "Set to all", "20 20 20");
        AddRow("below the last row", 3, 9, "", "10 20 30");
        AddRow("one row alone", 1, 0, "", "10");
    }

    void setToAll()
    {
        const auto [count, row] = Fetch<int, int>({"count", "row"});
        LiveTable live(Spacings, {QString("spacingsCount=Int:%1").arg(count)});
        live.Read("<i>10</i><i>20</i><i>30</i>");
        live.Table()->setCurrentCell(1, 0);
        QTEST(live.Menu(row), "menu");
        QTEST(live.Shown(), "shown");
    }

    void gridEditsLandByPlaceAndRow()
    {
        LiveTable live(Grid, Shape);
        QCOMPARE(live.Table()->horizontalHeaderItem(0)->text(), QString("0"));
        QCOMPARE(live.Table()->verticalHeaderItem(1)->text(), QString("1"));
        live.Type(1, 1, "lost");
        QVERIFY2(live.log.Take().isEmpty() && !live.Get("s")->isModified(), "no item stands in the corner yet");
        live.Type(0, 0, "a");
        QCOMPARE(live.log.Take(), QString("sheet.si_parametersModified() s.cellChanged(0, 0)"));
        live.Type(1, 1, "b");
        QCOMPARE(live.log.Take(), QString("s.cellChanged(1, 1)"));
        QCOMPARE(live.Written(), QString("m00:a m01:a m10: m11:"));

        live.form->EvaluateScript("s.setItemValue(1, 0, 'c')");
        QCOMPARE(live.Table()->item(0, 0)->text(), QString("c"));
        QVERIFY2(live.log.Take().isEmpty() && !live.Get("s")->isModified(), "a script's change is silent here too");
        QCOMPARE(live.Written(), QString("m00:a m01:a m10:c m11:"));
        live.form->EvaluateScript("s.setRowCount(1)");
        QCOMPARE(live.log.Take(), QString("s.currentCellChanged(0, 1, 1, 1)"));
        QCOMPARE(live.Table()->item(0, 0)->text(), QString("a"));
        live.Read("<i column='1'>d</i>");
        QCOMPARE(live.Table()->item(0, 0)->text(), QString("d"));
        QCOMPARE(live.log.Take(), QString());
        live.form->EvaluateScript("s.clear()");
        QVERIFY2(live.log.Take().endsWith("s.cellChanged(0, 0) s.tableCleared()"), "an emptied cell counts as an edit");
    }

    void mouseAndCurrentCellAreTold_data()
    {
        const auto row = Columns<QString, QString>({"className", "events"});
        row("grid", Grid,
            "s.currentCellChanged(1, 0, 0, 0) s.cellPressed(1, 0) s.cellClicked(1, 0)"
            " s.cellDoubleClicked(1, 0) s.cellActivated(1, 0)");
        row("spacings", Spacings,
            "s.currentSpacingChanged(1, 0) s.spacingPressed(1) s.spacingClicked(1)"
            " s.spacingDoubleClicked(1) s.spacingActivated(1)");
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
        QTest::addColumn<QString>("className");
        QTest::addColumn<QPoint>("start"); // column and row
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("copied"); // with all cells selected
        AddRow("grid: as much as fits", Grid, QPoint(0, 0), "a\tb\tx\r\nc\td\r\ne", "a\tb\nc\td");
        AddRow("grid: from the selected cell on", Grid, QPoint(1, 1), "d", "\t\n\td");
        AddRow(
            "spacings: bounded and rounded like typed ones", Spacings, QPoint(0, 0), "2000\n-1\n12,6\n", "1000\n0\n13");
        AddRow("spacings: what is no number stays out", Spacings, QPoint(0, 1), "x\n7", "5\n5\n7");
        AddRow("nothing", Spacings, QPoint(0, 0), "", "5\n5\n5");
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
        live.Table()->selectAll();
        QTest::keySequence(live.Table(), QKeySequence::Copy);
        QTEST(QApplication::clipboard()->text(), "copied");
    }
};

ORBEL_TEST_MAIN(TestTables)
#include "tst_tables.moc"
