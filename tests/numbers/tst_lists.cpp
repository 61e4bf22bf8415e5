// Lists of spin controls: counts, items by number, documents, and what reaches the items.

#include "formlimits.h"
#include "liveform.h"
#include "testmain.h"
#include "tree.h"
#include "vcnumericfloatspin.h"

#include <QScriptEngine>
#include <QtTest>

using namespace KV218;
using namespace forms;

namespace
{

const QString Written("generateParameterXml=Bool:true");

struct LiveList : LiveForm {
    LiveList(const QString &className, const QStringList &properties)
        : LiveForm(Widget("n", className, QStringList{Written, "parameterListItemTag=String:i"} + properties), false)
    {
        log.Watch("n", Get("n"));
    }
    /// What a script finds, as text.
    QString Ask(const QString &expression)
    {
        form->EvaluateScript("answer = '' + (" + expression + ')');
        return form->GetScriptValues().value("answer").toString();
    }
    VCNumericFloatSpin *Spin(int index) { return Find<VCNumericFloatSpin>(QString("n_%1").arg(index)); }
    int Count() { return window->findChildren<VCNumericFloatSpin *>().size(); }
};

void AddListClasses()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<bool>("isShift");
    QTest::newRow("SpinBoxList") << "SpinBoxList" << false;
    QTest::newRow("DoubleSpinBoxList") << "DoubleSpinBoxList" << true;
    QTest::newRow("ShiftList") << "ShiftList" << true;
}

} // namespace

class TestLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void counts_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QStringList>("properties");
        QTest::addColumn<int>("count");
        const QStringList shifts{"shiftCount=Int:3"};
        QTest::newRow("items") << "SpinBoxList" << QStringList{"itemCount=Int:2"} << 2;
        QTest::newRow("shifts when no items are stated") << "ShiftList" << shifts << 3;
        QTest::newRow("no items stated wins over shifts")
            << "ShiftList" << QStringList{"itemCount=Int:0"} + shifts << 0;
        QTest::newRow("shifts of integers") << "SpinBoxList" << shifts << 0;
        QTest::newRow("negative") << "DoubleSpinBoxList" << QStringList{"itemCount=Int:-3"} << 0;
        QTest::newRow("beyond the limit")
            << "SpinBoxList" << QStringList{"itemCount=Int:2147483647"} << limit::ListItems;
    }

    void counts()
    {
        QFETCH(QString, className);
        QFETCH(QStringList, properties);
        LiveList live(className, properties);
        QTEST(live.Count(), "count");
        live.form->EvaluateScript("n.itemCount = 7; n.shiftCount = 7");
        QCOMPARE(live.form->GetXmlString(false).count("<i "), live.Count());
    }

    void items_data() { AddListClasses(); }

    void items()
    {
        QFETCH(QString, className);
        QFETCH(bool, isShift);
        LiveList live(
            className, {"itemCount=Int:3", "value=Int:4", "maximum=Int:9", "decimals=Int:0", "labelText=String:w"});
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        QCOMPARE(live.Ask("[n.itemValue(0), n.itemValue(2), n.itemValue(-1), n.itemValue(3)]"), QString("4,4,0,0"));
        const auto told = [&](const QString &arguments) {
            return "n.valueChanged(" + arguments + ')'
                + (isShift ? " n.shiftValueChanged(" + arguments + ')' : QString());
        };
        const QString shown(" sheet.si_parametersModified()");

        live.form->EvaluateScript("n.setItemValue(1, 12); n.setItemValue(3, 1); n.setItemValue(-1, 1)");
        QCOMPARE(live.log.Take(), told("1, 9") + shown);
        QCOMPARE(live.Spin(1)->text() + live.Spin(1)->toolTip(), QString("9<html>w<br>...9"));
        live.Spin(2)->setFocus();
        QTest::keyClick(live.Spin(2), Qt::Key_Up);
        QCOMPARE(live.log.Take(), told("2, 5") + shown);
        live.form->EvaluateScript("if (n.setShiftValue) n.setShiftValue(0, 3); else n.setItemValue(0, 3)");
        QCOMPARE(live.log.Take(), told("0, 3") + shown);
        if (isShift)
            QCOMPARE(live.Ask("[n.shiftValue(0), n.shiftValue(2), n.shiftValue(3)]"), QString("3,5,0"));
        QCOMPARE(live.Get("n")->property("value"), QVariant(QString("4")));

        live.form->GetXmlString(false);
        Tree::Instance()->RemoveNode("/Form/n_0");
        live.form->EvaluateScript("n.setItemValue(0, 7); n.setItemValue(2, 7)");
        QCOMPARE(live.log.Take(), told("0, 7") + shown);
        QCOMPARE(live.Spin(0)->text() + live.Spin(1)->text(), QString("37"));
    }

    void documents_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QStringList>("properties");
        QTest::addColumn<QString>("read");
        QTest::addColumn<QString>("written");
        const QStringList offset{"displayAdditiveOffset=Int:1", "unit=String:s"}, place{"decimals=Int:1"};
        QTest::newRow("an item without a number counts on")
            << "SpinBoxList" << QStringList() << "<i index='1'>5</i><x>6</x>"
            << "<i index=\"0\">4</i><i index=\"1\">5</i><i index=\"2\">6</i>";
        QTest::newRow("items outside are dropped and counted")
            << "SpinBoxList" << QStringList()
            << "<i index='-1'>1</i><i>2</i><i index='2147483647'>3</i><i>3</i><i index='x'>7</i>"
            << "<i index=\"0\">7</i><i index=\"1\">4</i><i index=\"2\">4</i>";
        QTest::newRow("integers take no offset")
            << "SpinBoxList" << offset << "<i>5</i>"
            << "<i unit=\"s\" index=\"0\">5</i><i unit=\"s\" index=\"1\">4</i><i unit=\"s\" index=\"2\">4</i>";
        QTest::newRow("one place stays with doubles")
            << "ShiftList" << place << "<i>3</i><i>x</i>"
            << "<i index=\"0\">3.0</i><i index=\"1\">0.0</i><i index=\"2\">4.0</i>";
    }

    void documents()
    {
        QFETCH(QString, className);
        QFETCH(QStringList, properties);
        QFETCH(QString, read);
        LiveList live(className, properties + QStringList{"itemCount=Int:3", "value=Int:4"});
        live.form->SetXmlString("<Parameters><n>" + read + "</n></Parameters>");
        QVERIFY2(live.log.Take().startsWith("n.valueChanged("), "reading tells like an operator");
        const QString document = live.form->GetXmlString(false).remove('\n').remove("    ");
        QTEST(document.section("<n>", 1).section("</n>", 0, 0), "written");
    }

    void onlyDoublesAreReached()
    {
        LiveList ints("SpinBoxList", {"itemCount=Int:2", "enabled=Bool:true"});
        ints.form->EvaluateScript("n.setPrefix('['); n.setEnabled(0, false); n.setEnabled(false); n.setFocus()");
        ints.form->EnableInput(false);
        QCOMPARE(ints.Ask("[n.isEnabled(0), n.isEnabled(2), n.value, n.prefix]"), QString("false,false,[,"));
        QVERIFY(ints.Spin(0)->isEnabled() && ints.Spin(0)->prefix().isEmpty() && !ints.Spin(0)->hasFocus());

        LiveList doubles("DoubleSpinBoxList", {"itemCount=Int:3", "enabled=Bool:true", "prefix=String:("});
        QVERIFY(QTest::qWaitForWindowActive(doubles.window.get()));
        const auto enabled
            = [&] { return doubles.Ask("[n.isEnabled(0), n.isEnabled(1), n.isEnabled(2), n.isEnabled(3)]"); };
        doubles.form->EvaluateScript("n.setPrefix('['); n.setEnabled(1, false); n.setEnabled(3, true); n.setFocus()");
        QCOMPARE(enabled(), QString("true,false,true,false"));
        QVERIFY(doubles.Spin(0)->hasFocus() && doubles.Spin(2)->prefix() == "[");
        doubles.form->EnableInput(false);
        doubles.form->EvaluateScript("n.setEnabled(2, false); n.setEnabled(2, true); n.setEnabled(0, false)");
        QCOMPARE(enabled(), QString("false,false,false,false"));
        doubles.form->EnableInput(true);
        QCOMPARE(enabled(), QString("false,false,true,false"));
        doubles.form->EvaluateScript("n.setMaximum(1); n.setItemValue(0, 5)");
        QCOMPARE(doubles.Spin(0)->value(), 5.0);
    }

    void ends_data() { AddListClasses(); }

    void ends()
    {
        QFETCH(QString, className);
        const QStringList two{"itemCount=Int:2"};
        for (const char *signal : {"n.valueChanged", "n.shiftValueChanged", "sheet.si_parametersModified"}) {
            LiveList live(className, two);
            live.log.On(signal, [&] { live.form.reset(); });
            live.form->SetXmlString("<Parameters><n><i>1</i><i>2</i></n></Parameters>");
            if (live.form)
                live.Spin(1)->stepBy(1);
            QVERIFY(!live.window || live.window->findChildren<VCNumericFloatSpin *>().isEmpty() == !live.form);
        }
        LiveList live(className, two);
        live.window.reset();
        live.form->EvaluateScript("n.setEnabled(true); n.setEnabled(0, true); n.setFocus(); n.setItemValue(0, 5)");
        QCOMPARE(live.Ask("[n.itemValue(0), n.isEnabled(0)]"), QString("5,false"));
    }
};

ORBEL_TEST_MAIN(TestLists)
#include "tst_lists.moc"
