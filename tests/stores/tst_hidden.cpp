// Stores without an input control: what scripts, nodes and documents cause, in which order, and what is written.

#include "orbelhidden.h"
#include "orbelhiddenlist.h"
#include "orbelhiddenmap.h"
#include "orbelhiddentable.h"
#include "storecase.h"
#include "testmain.h"
#include "tree.h"

using namespace KV218;

namespace
{

/// Something that makes a store emit, and the signal during which the form ends.
struct End {
    const char *className;
    const char *event;
    std::function<void(LiveStore &)> act;
};

template <class Store> Store *Get(const LiveStore &store)
{
    return store.Get<Store>("s");
}

const std::vector<End> Ends{
    {"HiddenParameter", "sheet", [](LiveStore &s) { Get<OrbelHidden>(s)->setValue("x"); }},
    {"HiddenParameter", "s.value", [](LiveStore &s) { s.Read("x"); }},
    {"HiddenList", "sheet", [](LiveStore &s) { Get<OrbelHiddenList>(s)->setItemValue(1, "x"); }},
    {"HiddenList", "s.item", [](LiveStore &s) { s.Read("<i index='1'>x</i><i index='9'>y</i>"); }},
    {"HiddenMap", "s.valueAdded", [](LiveStore &s) { Get<OrbelHiddenMap>(s)->setValue("k", "x"); }},
    {"HiddenMap", "s.valueRemoved",
        [](LiveStore &s) {
            s.Read("<i key='k'/>");
            Get<OrbelHiddenMap>(s)->remove("k");
        }},
    {"HiddenTable", "s.tableCleared", [](LiveStore &s) { s.Read("<i>x</i>"); }},
    {"HiddenTable", "s.item", [](LiveStore &s) { s.Read("<i>x</i><i column='1'>y</i>"); }},
    {"HiddenTable", "sheet", [](LiveStore &s) { Get<OrbelHiddenTable>(s)->setItemValue(0, 0, "x"); }},
};

} // namespace

class TestHidden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void textFollowsScriptNodeAndDocument()
    {
        LiveStore store("HiddenParameter", {"value=String:a"}, false);
        OrbelDelegate *text = store.Get("s");
        ValueBase *node = store.form->GetVTValue("s");
        store.form->EvaluateScript("s.setValue('a'); s.setValue('b'); s.value = 'b'");
        QCOMPARE(store.log.Take(), QString("sheet.si_parametersModified() s.valueChanged(b)"));
        QCOMPARE(node->GetStringValue(), QString("b"));
        const QString document = store.form->GetXmlString(true);
        QVERIFY2(document.contains("<s>b</s>"), "no unit");

        node->SetStringValue("c", nullptr);
        QCOMPARE(store.log.Take(), QString("s.valueChanged(c)"));
        QVERIFY2(!text->isModified(), "a change of the node marks nothing modified");

        store.Read("d");
        QCOMPARE(store.log.Take(), QString("s.valueChanged(d) s.valueChanged(d)"));
        store.Read("d");
        QCOMPARE(store.log.Take(), QString());
        QCOMPARE(node->GetStringValue(), QString("d"));

        Tree::Instance()->RemoveNode("/Form/s");
        QVERIFY(!store.form->GetVTValue("s"));
        store.Read("e");
        QCOMPARE(store.log.Take(), QString("s.valueChanged(e)"));
    }

    void stores_data()
    {
        AddStoreColumns();
        const QString no;
        const QStringList two{"itemCount=Int:2"}, grid{"rowCount=Int:2", "columnCount=Int:3"};
        const QString emptyTwo("unit=m,index=0: unit=m,index=1:");
        const auto row = [](const char *name, const char *className, const QStringList &properties,
                             const QString &script, const QString &read, const QString &events, const QString &result,
                             const QString &written) {
            QTest::newRow(name) << className << properties << script << read << events << result << written;
        };
        row("list: an index equal to the length is refused", "HiddenList", {}, "s.setItemValue(0, 'a')", no, "", "", "");
        row("list: one beyond makes room", "HiddenList", {}, "s.setItemValue(1, 'b'); r = s.itemCount + s.itemValue(1)",
            no, "s.itemValueChanged(1, b) modified", "undefinedb", "unit=m,index=0: unit=m,index=1:b");
        row("list: a stated count grows with it", "HiddenList", two,
            "s.setItemValue(2, 'b'); s.setItemValue(3, 'b'); r = s.itemCount", no, "s.itemValueChanged(3, b) modified",
            "4", emptyTwo + " unit=m,index=2: unit=m,index=3:b");
        row("list: an equal text signals once", "HiddenList", two, "s.setItemValue(0, 'a'); s.setItemValue(0, 'a')", no,
            "s.itemValueChanged(0, a) modified", "", "unit=m,index=0:a unit=m,index=1:");
        row("list: clearing leaves the count", "HiddenList", two, "s.clear(); s.setItemCount(2); r = s.itemCount", no, "",
            "2", "");
        row("list: absurd indices and counts", "HiddenList", two,
            "s.setItemValue(2147483647, 'a'); s.setItemValue(-1, 'a'); r = '' + s.itemCount + s.itemValue(-1);"
            "s.setItemCount(2147483647); s.setItemCount(-1)",
            no, "", "2", emptyTwo);
        row("list: reading loses the first item and the one behind the last", "HiddenList", {}, no,
            "<i>a</i><x>b</x><i>c</i>", "s.itemValueChanged(1, b)", "", "unit=m,index=0: unit=m,index=1:b");
        row("list: reading finds no room where the count says there is", "HiddenList", two, "s.setItemValue(0, 'a')",
            "<i index='1'>b</i>", "s.itemValueChanged(0, a) modified", "", "");
        row("list: reading absurd indices", "HiddenList", {}, no,
            "<i index='2147483647'>a</i><i>b</i><i index='-7'>c</i><i index='x'>d</i>", "", "", "");

        row("map: add, change, remove", "HiddenMap", {},
            "s.setValue('b', '1'); s.setValue('a', '2'); s.setValue('b', '1'); s.setValue('c', '3'); s.remove('c');"
            "s.remove('z'); r = s.keys().join() + s.contains('z') + s.value('z') + s.contains('z') + s.value('a')",
            no,
            "s.valueAdded(b, 1) s.valueAdded(a, 2) s.valueChanged(b, 1) s.valueAdded(c, 3) s.valueRemoved(c, 3) modified",
            "a,bfalsefalse2", "key=a:2 key=b:1");
        row("map: clearing is silent", "HiddenMap", {}, "s.setValue('a', '1'); s.resetModified(); s.clear()", no,
            "s.valueAdded(a, 1)", "", "");
        row("map: reading replaces silently", "HiddenMap", {}, "s.setValue('a', '1')",
            "<i key='b'>2</i><i>3</i><i key='b'>4</i>", "s.valueAdded(a, 1) modified", "", "key=:3 key=b:4");

        const QString cells("unit=m,row=0,column=0:%1 unit=m,row=0,column=1: unit=m,row=0,column=2:%2"
                            " unit=m,row=1,column=0: unit=m,row=1,column=1: unit=m,row=1,column=2:%3");
        row("table: all cells in row order", "HiddenTable", grid,
            "s.setItemValue(1, 2, 'f'); s.setItemValue(1, 2, 'f'); r = s.itemValue(1, 2) + s.itemValue(9, 9)", no,
            "s.itemValueChanged(1, 2, f) modified", "f", cells.arg("", "", "f"));
        row("table: clearing keeps the shape", "HiddenTable", grid, "s.setItemValue(0, 0, 'a'); s.resetModified(); s.clear()",
            no, "s.itemValueChanged(0, 0, a) s.tableCleared()", "", cells.arg("", "", ""));
        row("table: fewer rows and more again", "HiddenTable", grid,
            "s.setItemValue(0, 2, 'c'); s.setItemValue(1, 2, 'f'); s.resetModified(); s.setRowCount(1); s.setRowCount(2);"
            "r = s.rowCount",
            no, "s.itemValueChanged(0, 2, c) s.itemValueChanged(1, 2, f)", "2", cells.arg("", "c", ""));
        row("table: more columns in one row", "HiddenTable", {"rowCount=Int:1", "columnCount=Int:1"},
            "s.setItemValue(0, 0, 'a'); s.setColumnCount(2)", no, "s.itemValueChanged(0, 0, a) modified", "",
            "unit=m,row=0,column=0:a unit=m,row=0,column=1:");
        row("table: without columns it gets no rows", "HiddenTable", {"rowCount=Int:2"},
            "s.setColumnCount(3); s.setRowCount(2)", no, "", "", "");
        row("table: absurd shapes", "HiddenTable", grid,
            "s.setRowCount(2147483647); s.setColumnCount(2147483647); s.setRowCount(-1); s.setItemValue(2147483647, 0, 'a')",
            no, "", "", cells.arg("", "", ""));
        row("table: reading clears, then sets", "HiddenTable", grid, no,
            "<i>a</i><i row='1' column='2'>f</i><i row='7' column='0'>x</i><i row='-1'>y</i>",
            "s.tableCleared() s.itemValueChanged(0, 0, a) s.itemValueChanged(1, 2, f)", "", cells.arg("a", "", "f"));
    }
    void stores() { CheckStore(); }

    void noControlButACaption()
    {
        LiveStore store("HiddenList", {"labelText=String:list"});
        QCOMPARE(store.window->findChild<QLabel *>("labels")->text(), QString("list"));
        QVERIFY(!store.Find("s"));
    }

    void aHandlerMayEndTheForm_data()
    {
        QTest::addColumn<int>("row");
        for (size_t i = 0; i < Ends.size(); ++i)
            QTest::addRow("%d %s: %s", int(i), Ends[i].className, Ends[i].event) << int(i);
    }

    void aHandlerMayEndTheForm()
    {
        QFETCH(int, row);
        const End &end = Ends[size_t(row)];
        LiveStore store(end.className, {"rowCount=Int:1", "columnCount=Int:2"}, false);
        store.log.On(end.event, [&] { store.form.reset(); });
        end.act(store);
        QVERIFY(!store.form);
    }
};

ORBEL_TEST_MAIN(TestHidden)
#include "tst_hidden.moc"
