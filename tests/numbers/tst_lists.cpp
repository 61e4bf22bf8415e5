// Lists of spin controls: counts, items by number, documents, and what reaches the items.

#include "liveform.h"
#include "rows.h"
#include "testmain.h"
#include "tree.h"
#include "vcnumericfloatspin.h"

#include <QtTest>

using namespace KV218;
using namespace forms;

namespace
{

struct LiveList : LiveForm {
    LiveList(const QString &className, const QStringList &properties)
        : LiveForm(Widget("n", className,
            QStringList{"generateParameterXml=Bool:true", "parameterListItemTag=String:i", "value=Int:4"} + properties))
    {
        log.Watch("n", Get("n"));
    }
    /// What a script finds, as text.
    QString Ask(const QString &expression) const
    {
        form->EvaluateScript("answer = '' + [" + expression + ']');
        return form->GetScriptValues().value("answer").toString();
    }
    VCNumericFloatSpin *Spin(int index) const { return Find<VCNumericFloatSpin>(QString("n_%1").arg(index)); }
    int Count() const { return window->findChildren<VCNumericFloatSpin *>().size(); }
};

} // namespace

class TestLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void counts_data()
    {
        const auto row = Columns<QString, QStringList, int>({"className", "properties", "count"});
        const QString shifts("shiftCount=Int:3"), huge("itemCount=Int:2147483647");
        row("items", "SpinBoxList", QStringList{"itemCount=Int:2"}, 2);
        row("shifts when no items are stated", "ShiftList", QStringList{shifts}, 3);
        row("stating no items wins", "ShiftList", QStringList{"itemCount=Int:0", shifts}, 0);
        row("integers have no shifts", "SpinBoxList", QStringList{shifts}, 0);
    }

    void counts()
    {
        const auto [className, properties] = Fetch<QString, QStringList>({"className", "properties"});
        LiveList live(className, properties);
        QTEST(live.Count(), "count");
        live.form->EvaluateScript("n.itemCount = 7; n.shiftCount = 7");
        QCOMPARE(live.form->GetXmlString(false).count("<i "), live.Count());
    }

    void items_data()
    {
        QTest::addColumn<QString>("className");
        AddRow("integers", "SpinBoxList");
        AddRow("doubles", "DoubleSpinBoxList");
    }

    void items()
    {
        QFETCH(QString, className);
        LiveList live(className, {"itemCount=Int:3", "maximum=Int:9", "labelText=String:w"});
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        QCOMPARE(live.Ask("n.itemValue(0), n.itemValue(2), n.itemValue(-1), n.itemValue(3)"), QString("4,4,0,0"));
        const auto told = [&](const QString &arguments) {
            const QString shift = " n.shiftValueChanged(" + arguments + ')';
            return "n.valueChanged(" + arguments + ')' + (className == "SpinBoxList" ? QString() : shift);
        };
        live.form->EvaluateScript("n.setItemValue(1, 12); n.setItemValue(3, 1); n.setItemValue(-1, 1)");
        QCOMPARE(live.log.Take(), told("1, 9"));
        QVERIFY(live.Get("n")->isModified());
        QCOMPARE(live.Spin(1)->text() + live.Spin(1)->toolTip(), QString("9<html>w<br>...9"));
        QVERIFY2(live.Spin(1)->minimumWidth() == live.Find("n")->width(), "as wide as the list");
        live.Spin(2)->setFocus();
        QTest::keyClick(live.Spin(2), Qt::Key_Up);
        QCOMPARE(live.log.Take(), told("2, 5"));
        live.form->EvaluateScript("n.setShiftValue ? n.setShiftValue(0, 3) : n.setItemValue(0, 3)");
        QCOMPARE(live.log.Take(), told("0, 3"));
        QCOMPARE(live.Ask("n.shiftValue ? n.shiftValue(0) : n.itemValue(0), n.value"), QString("3,4"));

        Tree::Instance()->RemoveNode("/Form/n_0");
        live.form->EvaluateScript("n.setItemValue(0, 7); n.setItemValue(2, 7)");
        QCOMPARE(live.log.Take(), told("0, 7"));
        QCOMPARE(live.Spin(0)->text() + live.Spin(1)->text(), QString("37"));
    }

    void documents_data()
    {
        const auto row
            = Columns<QString, QStringList, QString, QString>({"className", "properties", "read", "written"});
        const QStringList none, offset{"displayAdditiveOffset=Int:1", "unit=String:s"}, place{"decimals=Int:1"};
        row("an item without a number counts on", "SpinBoxList", none, "<i index='1'>5</i><x>6</x>", "0>4 1>5 2>6");
        row("integers take no offset", "SpinBoxList", offset, "<i>5</i>", "0>5 1>4 2>4");
        row("one place stays with doubles", "ShiftList", place, "<i>3</i><i>x</i>", "0>3.0 1>0.0 2>4.0");
        row("entries without a name", "SpinBoxList", {"parameterListItemTag=String:"}, "<i>5</i>", "0>5 1>4 2>4");
    }

    void documents()
    {
        const auto [className, properties, read]
            = Fetch<QString, QStringList, QString>({"className", "properties", "read"});
        LiveList live(className, properties + QStringList{"itemCount=Int:3"});
        live.form->SetXmlString("<Parameters><n>" + read + "</n></Parameters>");
        QVERIFY2(live.log.Take().startsWith("n.valueChanged("), "reading tells like an operator");
        const QString tag = properties.contains("parameterListItemTag=String:") ? "" : "i";
        const QString start = '<' + tag + (properties.contains("unit=String:s") ? " unit=\"s\" index=\"" : " index=\"");
        const QString document = live.form->GetXmlString(false).section("<n>", 1).section("</n>", 0, 0);
        QTEST(QString(document).remove(start).remove('"').remove("</" + tag + '>').simplified(), "written");
    }

    void nothingReachesIntegers()
    {
        LiveList live("SpinBoxList", {"itemCount=Int:2", "enabled=Bool:true", "prefix=String:("});
        live.form->EvaluateScript("n.setPrefix('['); n.setEnabled(0, false); n.setEnabled(false); n.setFocus()");
        live.Spin(1)->setFocus();
        QTest::keyClicks(live.Spin(1), "7");
        live.form->EnableInput(false);
        QVERIFY2(live.Spin(1)->text().contains('7') && live.window->focusWidget() == live.Spin(1), "typing goes on");
        QCOMPARE(live.Ask("n.isEnabled(0), n.isEnabled(2), n.value, n.prefix"), QString("false,false,[,("));
        QVERIFY(live.Spin(0)->isEnabled() && live.Spin(0)->prefix() == "(" && !live.Spin(0)->hasFocus());
    }

    void enabledItems()
    {
        LiveList live("DoubleSpinBoxList", {"itemCount=Int:3", "enabled=Bool:true", "prefix=String:("});
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        const QString question("n.isEnabled(0), n.isEnabled(1), n.isEnabled(2), n.isEnabled(3)");
        live.form->EvaluateScript("n.setPrefix('['); n.setEnabled(1, false); n.setEnabled(3, true); n.setFocus()");
        QCOMPARE(live.Ask(question), QString("true,false,true,false"));
        QVERIFY(live.Spin(0)->hasFocus() && live.Spin(2)->prefix() == "[");
        live.form->EnableInput(false);
        live.form->EvaluateScript("n.setEnabled(2, false); n.setEnabled(2, true); n.setEnabled(0, false)");
        QCOMPARE(live.Ask(question), QString("false,false,false,false"));
        live.form->EnableInput(true);
        QCOMPARE(live.Ask(question), QString("false,false,true,false"));
        live.form->EvaluateScript("n.setEnabled(false); n.setMaximum(1)");
        live.form->EnableInput(false);
        live.form->EnableInput(true);
        QVERIFY2(live.Spin(2)->isEnabled(), "the items' own state counts");
        QCOMPARE(live.Spin(2)->maximum(), 1e308);
    }
};

ORBEL_TEST_MAIN(TestLists)
#include "tst_lists.moc"
