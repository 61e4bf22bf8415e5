// The table of frequency ranges and its dialog: texts, rows, and changes by others meanwhile.

#include "exclusiondialog.h"
#include "fieldnote.h"
#include "freqrangetable.h"
#include "testcase.h"
#include "valuecommentedrangemap.h"

using namespace KV218;

namespace
{

/// A table on the screen and its node "/T/r".
struct Bench {
    explicit Bench(const QString &ranges)
    {
        Tree::Instance()->AddNode("/T", Node);
        Node->SetStringValue(ranges, nullptr);
        Table.AttachToValue("/T/r");
        Table.show();
    }
    ~Bench() { Tree::Instance()->RemoveNode("/T/r"); }
    QString Cells() const
    {
        QStringList texts;
        for (int i = 0; i < 2 * Table.rowCount(); ++i)
            texts << Table.item(i / 2, i % 2)->text().remove(" kHz");
        return texts.join(' ');
    }
    QLineEdit *Editor() const { return qobject_cast<QLineEdit *>(Table.indexWidget(Table.currentIndex())); }
    /// Types over a cell and ends with a key; Shift leaves the editor open.
    void Type(int row, int column, const QString &text, Qt::Key last = Qt::Key_Shift)
    {
        Table.setCurrentCell(row, column);
        QTest::keyClick(&Table, Qt::Key_F2);
        QTest::keyClicks(Editor(), text);
        QTest::keyClick(Editor(), last);
        QCoreApplication::sendPostedEvents();
    }

    ValueCommentedRangeMap *Node = new ValueCommentedRangeMap("r");
    FreqRangeTable Table{nullptr};
};

/// What a row's name says behind the colon: a text, or cells as row and column.
QString Input()
{
    return QString(QTest::currentDataTag()).section(": ", 1);
}

} // namespace

class TestFreqRangeTable : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data()
    {
        const auto row = Columns<QString, QString>({"stored", "note"}); // behind "is read as" where none is meant
        row("kHz, comma: 5,5 ", "7000..5500", "= 5.500 kHz");
        row("kHz as it is shown: 5.5 kHz", "7000..5500", QString());
        row("mega without rounding: 1.001 mhZ", "7000..1001000", "= 1 001.000 kHz");
        row("giga, negative: -2g", "7000..-2000000000", "= -2 000 000.000 kHz");
        row("kilo goes before mega: 3 MK", "7000..3000", "3.000 kHz");
        row("an exponent's letter is lost: 1e3", "7000..13000", "13.000 kHz");
        row("groups: 1.234,5", "7000..0", "0.000 kHz");
    }

    void texts()
    {
        QFETCH(QString, note);
        Bench bench("7000..8000");
        bench.Type(0, 1, Input());
        const bool isMeant = note.isEmpty() || note.startsWith('=');
        QCOMPARE(FieldNote::TextOf(bench.Editor()), isMeant ? note : "is read as " + note);
        QTest::keyClick(bench.Editor(), Qt::Key_Return);
        QCoreApplication::sendPostedEvents();
        const QString told = isMeant ? QString() : '"' + Input() + "\" is read as " + note;
        QCOMPARE(FieldNote::TextOf(bench.Table.viewport()), told);
        QCOMPARE(bench.Table.item(0, 1)->toolTip(), told);
        const auto *cells = qobject_cast<QStyledItemDelegate *>(bench.Table.itemDelegate());
        QVERIFY2(note.endsWith(cells->displayText(bench.Table.item(0, 1)->text(), QLocale::c())) || note.isEmpty(),
            "it is drawn as it is told");
        QVERIFY2(bench.Node->GetStringValue() == "7000..8000", "only storing stores");
        bench.Table.StoreToValue();
        QTEST(bench.Node->GetStringValue(), "stored");
    }

    void deletion_data()
    {
        const auto row = Columns<QString>({"left"});
        row("one cell: 11", "0 1 2 3 3 4");
        row("both cells take the next row along: 10 11", "0 1 3 4");
        row("both cells of the last row: 30 31", "0 1 1 2 2 3");
        row("both cells of two rows: 00 01 20 21", "");
    }

    void deletion()
    {
        Bench bench("0..1000; 1000..2000; 2000..3000; 3000..4000");
        for (const QString &cell : Input().split(' '))
            bench.Table.item(cell[0].digitValue(), cell[1].digitValue())->setSelected(true);
        auto *action = bench.Table.findChild<QAction *>("ListBoxDelete");
        action->trigger();
        QTEST(bench.Cells(), "left");
        QCOMPARE(action->isEnabled(), bench.Table.rowCount() > 0);
        bench.Table.StoreToValue();
        QCOMPARE(int(bench.Node->data().size()), bench.Table.rowCount());
    }

    void rowsTheNodeAndAnOpenEdit()
    {
        Bench bench("1000..2000; 3000..4000");
        bench.Table.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&bench.Table));
        bench.Table.setCurrentCell(1, 1);
        QTest::keyClick(&bench.Table, Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(bench.Cells(), QString("1 2 3 4 0 0"));
        QTest::keyClick(&bench.Table, Qt::Key_Delete);
        QVERIFY2(bench.Cells() == "1 2 3 4", "the new row alone");
        bench.Type(0, 0, "9", Qt::Key_Tab);
        QVERIFY2(bench.Editor() && bench.Table.currentColumn() == 1, "Tab edits the next cell");
        bench.Table.StoreToValue();
        QVERIFY2(bench.Node->data().at(0).GetID() == 1 && bench.Cells() == "9 2 3 4", "stored sorted, ids of the rows");
        bench.Type(1, 0, "8");
        bench.Table.SlotSortByStartFrequencies();
        QVERIFY2(bench.Cells() == "8 4 9 2", "an open edit counts");

        bench.Type(0, 0, "77 M", Qt::Key_Return);
        QCOMPARE(bench.Cells(), QString("77000 4 9 2"));
        bench.Type(1, 1, "2.5 M");
        bench.Node->SetAt(2, CommentedRange(), nullptr);
        QVERIFY2(bench.Cells() == "3 4 9 2 0 0", "what was typed goes");
        QVERIFY(!bench.Editor() || bench.Editor()->text() == "2 kHz");
        for (const TChangeCode code : {ekChangeItemSet, ekChangeContent, ekChangeItemErased}) {
            bench.Table.item(0, 0)->setText("99");
            bench.Node->HasChanged(code, nullptr);
            QCOMPARE(bench.Cells(), QString("3 4 9 2 0 0"));
        }
        CommentedRange endless;
        endless.SetRangeStart(qQNaN());
        endless.SetRangeStop(qInf());
        bench.Node->SetAt(2, endless, nullptr);
        QCOMPARE(bench.Cells(), QString("3 4 9 2 0 0"));
        bench.Node->Clear(nullptr);
        QVERIFY2(bench.Cells() == "0 0" && !bench.Editor(), "its row is gone");
        bench.Table.StoreToValue();
        QVERIFY2(bench.Node->data().size() == 1, "an untouched empty table stores its row");
        bench.Node->SetState(ekStateDisabled, nullptr);
        QVERIFY(bench.Table.AttachToValue("/T/r") && !bench.Table.isEnabled());
    }

    void theDialogEditsTheListItWasGiven()
    {
        Bench bench("1000..2000");
        ValueCommentedRangeMap refused("r");
        QVERIFY(!Tree::Instance()->AddNode("/T", &refused));
        refused.SetStringValue("5000..6000", nullptr);
        QWidget form;
        QTimer::singleShot(0, [&] {
            form.findChild<FreqRangeTable *>()->item(0, 1)->setText("7");
            form.findChild<QDialog *>()->accept();
        });
        EditExclusionRanges(&refused, &form, "test");
        QCOMPARE(refused.GetStringValue() + ' ' + bench.Node->GetStringValue(), QString("5000..7000 1000..2000"));
    }
};

ORBEL_TEST_MAIN(TestFreqRangeTable)
#include "tst_freqrangetable.moc"
