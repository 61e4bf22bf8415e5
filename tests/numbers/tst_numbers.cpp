// Numbers, lists of them and choices: limits, units and names, documents, and what operator, script and node each
// cause.

#include "orbelcombobox.h"
#include "story.h"
#include "valuenumeric.h"
#include "valueselection.h"
#include "vcnumericfloatspin.h"

namespace
{

const QString Written("generateParameterXml=Bool:true");

IValueNumeric *Node(const LiveForm &live)
{
    return dynamic_cast<IValueNumeric *>(live.form->GetVTValue("n"));
}

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

/// A form with one combo box "c" over the enumeration "modes", whose rows are "display=value".
struct Choice : LiveForm {
    explicit Choice(const QString &rows, const QStringList &properties = {})
        : LiveForm(
            Widget("c", "ComboBox", QStringList{"enumName=String:modes", "generateParameterXml=Bool:true"} + properties)
            + "</Sheet>" + Enum("modes", rows) + "<Sheet name='sheet'>"),
          combo(Get<OrbelComboBox>("c")), box(Find<QComboBox>("c")),
          node(dynamic_cast<ValueSelection *>(form->GetVTValue("c")))
    {
        log.Watch("c", combo);
    }
    /// What was told, the property and what is shown.
    QString Found() { return log.Take() + '|' + combo->property("currentValue").toString() + '|' + box->currentText(); }

    OrbelComboBox *combo;
    QComboBox *box;
    ValueSelection *node;
};

} // namespace

class TestNumbers : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void stories_data()
    {
        const auto row = Stories();
        const QStringList list{"itemCount=Int:3", "enabled=Bool:true", "prefix=String:("};
        // clang-format off
        row("large numbers", Widget("n", "BandwidthEdit", {Written}), {
            "node n=-10.7 => n.valueChanged(-10) n.editingFinished() n=-10.7",
            "node n=1e300 => n.valueChanged(9223372036854775807) n.editingFinished() n=1e+300",
            "node n=10000000 => n.valueChanged(10000000) n.editingFinished() n=10000000",
            "written => <n>1e+07</n>"});
        row("nothing reaches integers", Widget("n", "SpinBoxList", list), {
            "script n.setPrefix('['); n.setEnabled(0, false); n.setEnabled(false); n.setFocus()",
            "focus n_1",
            "type 7",
            "input off",
            "focused => n_1",
            "ask n.isEnabled(0), n.isEnabled(3), n.value, n.prefix => false,false,[,(",
            "see n_0.enabled n_0.prefix => true|("});
        row("items have a state of their own", Widget("n", "DoubleSpinBoxList", list), {
            "script n.setPrefix('['); n.setEnabled(1, false); n.setEnabled(3, true); n.setFocus()",
            "focused => n_0", "see n_2.prefix => [", "see n_0.enabled n_1.enabled n_2.enabled => true|false|true",
            "input off",
            "script n.setEnabled(2, false); n.setEnabled(2, true); n.setEnabled(0, false)",
            "ask n.isEnabled(0), n.isEnabled(1), n.isEnabled(2), n.isEnabled(3) => false,false,false,false",
            "input on",
            "ask n.isEnabled(0), n.isEnabled(1), n.isEnabled(2), n.isEnabled(3) => false,false,true,false",
            "script n.setEnabled(false); n.setMaximum(1)",
            "input off", "input on",
            "see n_2.enabled n_2.maximum => true|1e+308"});
        // clang-format on
    }
    void stories() { PlayStory(); }

    void properties_data()
    {
        const auto row = Columns<QString, QStringList, QString, QString, QString>(
            {"className", "properties", "script", "before", "after"});
        const QStringList half{
            "minimum=Int:10", "maximum=Int:20", "singleStep=Int:2", "displayScalingFactor=Double:0.5"};
        const char *set = "n.setMinimum(5); n.setMaximum(30); n.setSingleStep(3)";
        const char *scaled = "20 40 4 w<br>10...20 10.0";
        // clang-format off
        row("limits of integers are scaled only at first", "SpinBox", half, set, scaled, "5 30 3 w<br>5...30 10.0");
        row("limits of doubles are always scaled", "DoubleSpinBox", half, set, scaled, "10 60 6 w<br>5...30 10.0");
        row("a new factor", "DoubleSpinBox", half, "n.setDisplayScalingFactor(0.25)", scaled, "40 80 8 w<br>10...20 10.0");
        row("a new factor counts for no integer", "SpinBox", half, "n.displayScalingFactor = 1", scaled, scaled);
        row("bounds of 64 bits drop out of the tooltip when set", "BandwidthEdit", {"minimum=Int:1", "maximum=Int:3000000000"}, "n.setMinimum(2)", "1 3e+09 1 w<br>1...3000000000 1", "2 3e+09 1 w<br>2... 2");
        // clang-format on
        const QStringList texts{"prefix=String:<", "suffix=String:s", "wrapping=Bool:true", "minimum=Int:0"};
        const char *change = "n.setPrefix('['); n.setSuffix('m'); n.setWrapping(false); n.setMaximum(9)";
        // clang-format off
        row("texts of doubles", "DoubleSpinBox", texts, change, "0 1e+308 1 w<br>0... <0s wraps", "0 9 1 w<br>0...9 [0m");
        // clang-format on
        const QStringList scale{"unitScale=UInt64:1000", "value=Int64:1500000", "minimum=Int:10"};
        const char *kilo = "10000 1e+308 1000 w<br>10... 1 500.000 kHz";
        // clang-format off
        row("mega", "BandwidthEdit", scale, "n.setUnitScale(1000000)", kilo, "1e+07 1e+308 1e+06 w<br>10... 10.000 000 MHz");
        row("giga", "BandwidthEdit", scale, "n.setMinimum(0); n.setUnitScale(1000000000)", kilo, "0 1e+308 1e+09 w<br>0... 0.001 500 000 GHz");
        // clang-format on
        const char *hertz = "10 1e+308 1 w<br>10... 1 500 000 Hz";
        // clang-format off
        row("any other scale", "BandwidthEdit", scale, "n.setUnitScale(10)", kilo, hertz);
        row("a scale wins over what else is stated", "BandwidthEdit", scale + QStringList{"suffix=String:x", "singleStep=Int:5", "decimals=Int:5"}, "", kilo, kilo);
        // clang-format on
    }

    void properties()
    {
        auto [className, properties, script]
            = Fetch<QString, QStringList, QString>({"className", "properties", "script"});
        const ContextTranslator translator("n");
        LiveForm live(Widget("n", className,
            properties << "labelText=String:w"
                       << "toolTip=String:replaced"));
        const auto *spin = live.Find<VCNumericFloatSpin>("n");
        const auto found = [&] {
            const QString limits
                = QString("%1 %2 %3 ").arg(Node(live)->GetMin()).arg(Node(live)->GetMax()).arg(Node(live)->GetStep());
            return limits + spin->toolTip().remove("<html>n:") + ' ' + spin->text()
                + (spin->wrapping() ? " wraps" : "");
        };
        QTEST(found(), "before");
        live.form->EvaluateScript(script);
        QTEST(found(), "after");
    }

    /// What is written at first, what the reading of an entry tells, and what is written then.
    void documents_data()
    {
        const auto row = Columns<QString, QStringList, QString, QString, QString, QString>(
            {"className", "properties", "written", "read", "told", "after"});
        const QString one("decimals=Int:1"), offset("displayAdditiveOffset=Int:1"), unit("unit=String:s");
        const QString three("itemCount=Int:3"), on("checkedValue=String:on"), off("uncheckedValue=String:off");
        // clang-format off
        row("integer with offset", "SpinBox", {"value=Int:5", offset}, ">4", "4", "valueChanged(5)", ">4");
        row("no number reads as 0", "SpinBox", {"value=Int:5", unit}, " unit=s>5", "x", "valueChanged(0)", " unit=s>0");
        row("rounded to whole with one place", "DoubleSpinBox", {"value=Double:3.04", one}, ">3", "x", "valueChanged(0)", ">0");
        row("fraction with one place", "BaudRateSpinBox", {"value=Double:12.5", one}, ">12.5", "7", "valueChanged(7)", ">7");
        row("64 bits as they stand", "BandwidthEdit", {"value=Int64:007", unit}, " unit=s>007", "9000000001", "valueChanged(9000000001)", " unit=s>9000000001");
        row("64 bits with an exponent are announced as 0", "BandwidthEdit", {"value=Int64:1"}, ">1", "1e7", "valueChanged(0)", ">1e7");
        row("an item without a number counts on", "SpinBoxList", {three}, "> index=0>0 index=1>0 index=2>0", "<i index='1'>5</i><x>6</x>", "valueChanged(1, 5) valueChanged(2, 6)", "> index=0>0 index=1>5 index=2>6");
        row("integers take no offset", "SpinBoxList", {three, offset, unit}, "> unit=s index=0>0 unit=s index=1>0 unit=s index=2>0", "<i>5</i>", "valueChanged(0, 5)", "> unit=s index=0>5 unit=s index=1>0 unit=s index=2>0");
        row("one place stays with doubles", "ShiftList", {three, one, "value=Int:4"}, "> index=0>4.0 index=1>4.0 index=2>4.0", "<i>3</i><i>x</i>", "valueChanged(0, 3) shiftValueChanged(0, 3) valueChanged(1, 0) shiftValueChanged(1, 0)", "> index=0>3.0 index=1>0.0 index=2>4.0");
        row("entries without a name", "SpinBoxList", {three, "parameterListItemTag=String:"}, "> index=0>0 index=1>0 index=2>0", "<i>5</i>", "valueChanged(0, 5)", "> index=0>5 index=1>0 index=2>0");
        row("another case is unchecked", "CheckBox", {}, ">false", "TRUE", "toggled(false)", ">false");
        row("own text for checked", "CheckBox", {on, off}, ">off", "on", "toggled(true)", ">on");
        row("neither of the own texts is unchecked", "CheckBox", {on, off, "checked=Bool:true"}, ">on", "1", "toggled(false)", ">off");
        row("empty own texts count as absent", "CheckBox", {"checkedValue=String:", "uncheckedValue=String:"}, ">false", "true", "toggled(true)", ">true");
        // clang-format on
    }

    void documents()
    {
        const auto [className, properties, written, read]
            = Fetch<QString, QStringList, QString, QString>({"className", "properties", "written", "read"});
        LiveForm live(Widget("n", className, QStringList{Written, "parameterListItemTag=String:i"} + properties));
        live.log.Watch("n", live.Get("n"));
        const auto inner = [&] {
            QString document = live.form->GetXmlString(false).section("<n", 1).section("</n>", 0, 0);
            return document.remove(QRegularExpression("\"|\n *|</?i?(?=[ >])>?|</>"));
        };
        QCOMPARE(inner(), written);
        live.form->SetXmlString("<Parameters><n>" + read + "</n></Parameters>");
        QTEST(live.log.Take().remove("n."), "told");
        QTEST(inner(), "after");
        QVERIFY(className.endsWith("List") || !live.Get("n")->isModified());
    }

    void namesAndRefusedNodes()
    {
        const QStringList tag{"parameterXmlTag=String:x/tag", Written};
        LiveForm live(Widget("a", "SpinBox", tag) + Widget("b", "SpinBox", tag)
            + Widget("c", "DoubleSpinBox", {"parameterXmlTag=String:x/other"}));
        QStringList names;
        for (const auto *spin : live.window->findChildren<VCNumericFloatSpin *>())
            names << spin->objectName();
        QCOMPARE(names, QStringList({"tag", "", "c"}));
        live.form->EvaluateScript("b.setValue(7); b.setMaximum(8)");
        QVERIFY(live.form->GetXmlString(false).contains(">7<"));
    }

    void counts_data()
    {
        const auto row = Columns<QString, QStringList, int>({"className", "properties", "count"});
        const QString shifts("shiftCount=Int:3"), huge("itemCount=Int:2147483647");
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
        const auto row = Columns<QString>({"className"});
        row("integers", "SpinBoxList");
        row("doubles", "DoubleSpinBoxList");
    }

    void items()
    {
        QFETCH(QString, className);
        LiveList live(className, {"itemCount=Int:3", "maximum=Int:9", "labelText=String:w"});
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

    void scriptChoice_data()
    {
        const auto row = Columns<QString, QString, QString>({"rows", "script", "found"});
        const QString numbers("Low=-5 Mid=2.5 High=10"), words("Am=a Fm=f Cw=c");
        row("unknown in the definition is the first", words, "", "|a|Am");
        row("first despite its name", words, "c.setFirstValueAsCurrent('c')", "|c|Cw");
        row("a number is the row not below", numbers, "c.setCurrentValue('3')", "|10|High");
        row("an unknown text counts as 0", numbers, "c.setCurrentValue('x')", "|2.5|Mid");
        row("a number above all rows", numbers, "c.setCurrentValue('11')", "|11|Low");
        row("words count from 0", words, "c.setCurrentValue('1.5')", "|c|Cw");
        row("no rows", "", "c.setCurrentValue('3')", "|3|");
    }

    void scriptChoice()
    {
        const auto [script, rows] = Fetch<QString, QString>({"script", "rows"});
        Choice choice(rows, {"currentValue=String:unknown"});
        choice.form->EvaluateScript(script);
        QTEST(choice.Found(), "found");
        QVERIFY(!choice.combo->isModified());
        const QString value = choice.combo->property("currentValue").toString();
        QVERIFY(choice.form->GetXmlString(false).contains("<c>" + value + "</c>"));
    }

    void operatorsChoice()
    {
        // Of equal names the first is taken, and an equal value text tells nothing.
        for (const auto &[rows, found] : {std::pair("Am=a Fm=f", "c.currentValueChanged(f)|f|Fm"),
                 {"Fm=f Cw=c Fm=c", "c.currentValueChanged(f)|f|Fm"}, {"Am=a Fm=a", "|a|Fm"}}) {
            Choice choice(rows);
            choice.form->EvaluateScript("c.setCurrentValue('c'); c.setFocus()");
            choice.log.Take();
            QTest::keyClick(choice.box, *rows == 'F' ? Qt::Key_End : Qt::Key_Down);
            QCOMPARE(choice.Found(), QString(found));
        }
    }

    void hostsChoice()
    {
        Choice choice("Low=1 Mid=5 High=9");
        QVERIFY(choice.combo->setMinValueGreaterThanOrEqualTo(1.5));
        QCOMPARE(choice.Found(), QString("c.currentValueChanged(5)|5|Mid"));
        QVERIFY(choice.combo->isModified() && !choice.combo->setMinValueGreaterThanOrEqualTo(9.5));
        QCOMPARE(choice.combo->getCurrentValue(), 5.0);
        choice.node->DeleteItems(choice.combo);
        choice.node->AddItem("Own", 3, 1, nullptr);
        QCOMPARE(choice.Found(), QString("c.currentValueChanged(1)|1|Own"));
    }

    void changedDefinition_data()
    {
        const auto row = Columns<QString, QString>({"enums", "found"});
        row("the name still exists", Enum("modes", "New=n Fm=x"), "|f|Fm");
        row("the name is gone", Enum("modes", "New=n"), "|f|New");
        row("another enumeration", Enum("others", "Own=o Fm=y"), "|f|others:Fm");
        row("no rows", Enum("modes", ""), "|f|");
    }

    void changedDefinition()
    {
        QFETCH(QString, enums);
        const ContextTranslator translator("others");
        Choice choice("Am=a Fm=f", {"currentValue=String:f"});
        choice.combo->setEnumName(enums.contains("others") ? "others" : "modes");
        choice.form->SetChangedORBEL("<ZkParamGui>" + enums + "</ZkParamGui>");
        QTEST(choice.Found(), "found");
        choice.form->EvaluateScript("c.setEnumName('unknown')");
        choice.form->SetChangedORBEL("<ZkParamGui/>");
        QTEST(choice.Found(), "found");
    }
};

ORBEL_TEST_MAIN(TestNumbers)
#include "tst_numbers.moc"
