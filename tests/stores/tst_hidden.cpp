// Stores without an input control: what scripts, nodes and documents cause, in which order, and what is written.

#include "storecase.h"
#include "testmain.h"
#include "tree.h"

using namespace KV218;

class TestHidden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void stores_data()
    {
        AddStoreColumns();
        const QString no, list("HiddenList"), map("HiddenMap"), table("HiddenTable");
        const QString cells("m00:%1 m01: m02:%2 m10: m11: m12:%3");
        const QStringList two{"itemCount=Int:2"}, grid{"rowCount=Int:2", "columnCount=Int:3"};
        StoreRow("list: an index equal to the length is refused", list, {}, "s.setItemValue(0, 'a')", no, "", "", "");
        StoreRow("list: one beyond makes room", list, {}, "s.setItemValue(1, 'b'); r = s.itemValue(0) + s.itemValue(1)",
            no, "apply s.itemValueChanged(1, b)", "b", "m0: m1:b");
        StoreRow("list: a stated count grows with it", list, two,
            "s.setItemValue(2, 'b'); s.setItemValue(3, 'b'); s.setItemValue(3, 'b'); r = s.itemCount", no,
            "apply s.itemValueChanged(3, b)", "4", "m0: m1: m2: m3:b");
        StoreRow("list: clearing leaves the count", list, two, "s.clear(); s.setItemCount(2); r = s.itemCount", no, "",
            "2", "");
        StoreRow("list: reading loses the first item and the one behind the last", list, {}, no,
            "<i>a</i><x>b</x><i>c</i>", "s.itemValueChanged(1, b)", "", "m0: m1:b");
        StoreRow("list: reading finds no room where the count says there is", list, two, "s.setItemValue(0, 'a')",
            "<i index='1'>b</i>", "apply s.itemValueChanged(0, a)", "", "");
        StoreRow("map: add, change, remove", map, {},
            "s.setValue('b', '1'); s.setValue('a', '2'); s.setValue('b', '1'); s.setValue('c', '3'); s.remove('c');"
            "s.remove('z'); r = s.keys().join() + s.value('z') + s.contains('z') + s.value('a')",
            no,
            "s.valueAdded(b, 1) apply s.valueAdded(a, 2) s.valueChanged(b, 1) s.valueAdded(c, 3) s.valueRemoved(c, 3)",
            "a,bfalse2", "a:2 b:1");
        StoreRow("map: clearing is silent", map, {}, "s.setValue('a', '1'); s.clear()", no, "s.valueAdded(a, 1) apply",
            "", "");
        StoreRow("map: reading replaces silently", map, {}, "s.setValue('a', '1')",
            "<i key='b'>2</i><i>3</i><i key='b'>4</i>", "s.valueAdded(a, 1) apply", "", ":3 b:4");
        StoreRow("table: a cell signals once", table, grid,
            "s.setItemValue(1, 2, 'f'); s.setItemValue(1, 2, 'f'); r = s.itemValue(0, 5) + s.itemValue(9, 9)", no,
            "apply s.itemValueChanged(1, 2, f)", "f", cells.arg("", "", "f"));
        StoreRow("table: fewer rows and more again, then cleared", table, grid,
            "s.setItemValue(0, 2, 'c'); s.setItemValue(1, 2, 'f'); s.setRowCount(1); s.setRowCount(2);"
            "r = s.itemValue(0, 2) + s.itemValue(1, 2) + s.rowCount; s.clear()",
            no, "apply s.itemValueChanged(0, 2, c) s.itemValueChanged(1, 2, f) s.tableCleared()", "c2",
            cells.arg("", "", ""));
        StoreRow("table: without columns it gets no rows", table, {"rowCount=Int:2"},
            "s.setColumnCount(3); s.setRowCount(2)", no, "", "", "");
        StoreRow("table: reading clears, then sets", table, grid, no,
            "<i>a</i><i row='1' column='2'>f</i><i row='7' column='0'>x</i><i row='-1'>y</i>",
            "s.tableCleared() s.itemValueChanged(0, 0, a) s.itemValueChanged(1, 2, f)", "", cells.arg("a", "", "f"));
    }
    void stores() { CheckStore(); }
};

ORBEL_TEST_MAIN(TestHidden)
#include "tst_hidden.moc"
