// Numbers, choices and tables under an operator's hands; each run checks node, property, script and document.

#include "fieldnote.h"
#include "forms.h"
#include "testmain.h"
#include "xoperator.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTableWidget>
#include <QtTest>

using namespace forms;

namespace
{

const QStringList Usable{
    "visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true", "labelText=String:l"};

/// A form of one control "a" between two others, in a window, with a script that notes each change.
struct Bench {
    Bench(const QString &className, const QStringList &properties, const QString &signal)
    {
        const QString other = Widget("other", "LineEdit", Usable);
        form = Bind("<ZkParamGui><Enums><Enum name='e'>" + Rows() + "</Enum></Enums><Sheet name='sheet'>"
            + Widget("a", className, Usable + properties) + other + "</Sheet><Script>var log = []; a." + signal
            + ".connect(function () { log.push(Array.prototype.join.call(arguments, ':')); });</Script></ZkParamGui>");
        form->CreateGUI(true);
        window.reset(form->GetGUI());
        window->resize(400, 400);
    }

    static QString Rows()
    {
        QString rows;
        for (const char *name : {"Narrow", "Medium", "Wide", "Widest"})
            rows += QString("<EnumValue><DisplayName>%1</DisplayName><Value>v%1</Value></EnumValue>").arg(name);
        return rows;
    }

    template <class Control> Control *Find() const { return window->findChild<Control *>("a"); }
    QString Node() const { return form->GetVTValue("a")->GetStringValue(); }
    QString Property(const char *name) const { return Delegate(form, "a")->property(name).toString(); }
    QString Log() const { return form->GetScriptValues().value("log").toString(); }
    QString Document() const { return form->GetXmlString(true).simplified(); }

    Form form;
    std::unique_ptr<QWidget> window;
};

/// The middle of a table's cell, in the coordinates of its viewport.
QPoint CellCenter(const QTableWidget *table, int row)
{
    return table->visualRect(table->model()->index(row, 0)).center();
}

} // namespace

class TestOperatorControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void aNumberIsTypedAndLeftWithTab()
    {
        Bench bench("DoubleSpinBox", {"minimum=Double:0", "maximum=Double:100", "decimals=Int:2", "value=Double:1"},
            "valueChanged");
        QVERIFY(XOperator::Show(bench.window.get()));
        auto *spin = bench.Find<QDoubleSpinBox>();
        XOperator::Enter(spin, "12.25", "Tab");
        QTRY_COMPARE(bench.Node(), QString("12.25"));
        QCOMPARE(bench.Property("value"), QString("12.25"));
        QVERIFY2(bench.Log().endsWith("12.25"), qPrintable(bench.Log()));
        QVERIFY(bench.Document().contains("<a>12.25</a>"));
        QTRY_VERIFY(bench.window->findChild<QLineEdit *>("other")->hasFocus());
    }

    void aUnitIsTypedAcrossAnotherWindowAndALock()
    {
        Bench bench("BandwidthEdit", {"unitScale=UInt64:1", "value=Int64:1000"}, "valueChanged");
        QVERIFY(XOperator::Show(bench.window.get()));
        auto *spin = bench.Find<QDoubleSpinBox>();
        XOperator::Click(spin);
        QTRY_VERIFY(spin->hasFocus());
        XOperator::Press("F2");
        XOperator::Type("15k");
        const auto isTold = [=] {
            const auto *note = spin->findChild<QLabel *>("fieldNote");
            return note && note->isVisible() && note->text() == "= 15.000 kHz";
        };
        QTRY_VERIFY(isTold());
        QLineEdit another;
        QVERIFY(XOperator::Show(&another));
        XOperator::Type("9");
        QTRY_COMPARE(another.text(), QString("9"));
        QVERIFY(!isTold());
        QVERIFY(XOperator::Show(bench.window.get()));
        XOperator::Type("hz");
        QTRY_VERIFY(spin->text().startsWith("15khz") && isTold());
        QCOMPARE(bench.Node(), QString("1000"));
        XOperator::Press("Tab");
        QTRY_COMPARE(bench.Node(), QString("15000"));

        XOperator::Press("shift+Tab");
        QTRY_VERIFY(spin->hasFocus());
        XOperator::Type("7");
        QTRY_VERIFY(spin->text().startsWith("7"));
        bench.form->EnableInput(false);
        QCOMPARE(FieldNote::TextOf(spin), QString("not taken: 7"));
        XOperator::Type("8");
        bench.form->EnableInput(true);
        QVERIFY(spin->hasFocus());
        XOperator::Press("Up");
        QTRY_COMPARE(bench.Node(), QString("15001"));
    }

    void theWheelStepsOnlyWithTheFocusAndWraps()
    {
        Bench bench(
            "SpinBox", {"minimum=Int:0", "maximum=Int:10", "value=Int:9", "wrapping=Bool:true"}, "valueChanged");
        QVERIFY(XOperator::Show(bench.window.get()));
        auto *spin = bench.Find<QDoubleSpinBox>();
        XOperator::Click(bench.window->findChild<QLineEdit *>("other"));
        XOperator::Click(spin, 4);
        XOperator::Click(spin);
        QTRY_VERIFY(spin->hasFocus());
        QCOMPARE(bench.Node(), QString("9"));
        for (const char *after : {"10", "0"}) {
            XOperator::Click(spin, 4);
            QTRY_COMPARE(bench.Node(), QString(after));
        }
        QCOMPARE(bench.Property("value"), QString("0"));
        QVERIFY(bench.Document().contains("<a>0</a>"));
    }

    void aChoiceIsTyped()
    {
        Bench bench("ComboBox", {"enumName=String:e"}, "currentValueChanged");
        QVERIFY(XOperator::Show(bench.window.get()));
        auto *combo = bench.Find<QComboBox>();
        combo->setFocus();
        QTRY_VERIFY(combo->hasFocus());
        XOperator::Type("Widest");
        QTRY_COMPARE(bench.Node(), QString("Widest"));
        QCOMPARE(bench.Property("currentValue"), QString("vWidest"));
        QVERIFY2(bench.Log().endsWith("vWidest"), qPrintable(bench.Log()));
        QVERIFY(bench.Document().contains("<a>vWidest</a>"));
    }

    void aCellIsEditedAndSetToAll()
    {
        Bench bench("ChannelSpacingTable",
            {"spacingsCount=Int:3", "decimals=Int:2", "maximum=Double:50", "parameterListItemTag=String:s"},
            "spacingValueChanged");
        QVERIFY(XOperator::Show(bench.window.get()));
        auto *table = bench.Find<QTableWidget>();
        XOperator::ClickAt(table->viewport(), CellCenter(table, 1));
        QTRY_COMPARE(table->currentRow(), 1);
        XOperator::Press("F2");
        QTRY_VERIFY(table->findChild<QDoubleSpinBox *>());
        XOperator::Press("ctrl+a");
        XOperator::Type("12.50");
        XOperator::Press("Return");
        QTRY_COMPARE(bench.Log(), QString("1:12.5"));
        QVERIFY(Delegate(bench.form, "a")->isModified());
        const auto *shown = qobject_cast<QStyledItemDelegate *>(table->itemDelegate());
        QCOMPARE(shown->displayText(12345678.5, QLocale("de_DE")), QString("12345678,50"));

        QString title;
        XOperator::PressInMenu({"Down", "Return"}, [&](QMenu *menu) { title = menu->actions().first()->text(); });
        XOperator::ClickAt(table->viewport(), CellCenter(table, 1), 3);
        QTRY_COMPARE(title, QString("Set to all"));
        QTRY_COMPARE(bench.Log(), QString("1:12.5,0:12.5,2:12.5"));
        const QString document = bench.Document();
        QVERIFY2(document.count(">12.50</s>") == 3, qPrintable(document));
    }
};

ORBEL_TEST_MAIN(TestOperatorControls)
#include "tst_operatorcontrols.moc"
