// Numeric spin controls: limits and units, documents, and what operator, script and node each cause.

#include "liveform.h"
#include "valuenumeric.h"
#include "vcnumericfloatspin.h"

namespace
{

const QString Written("generateParameterXml=Bool:true");

IValueNumeric *Node(const LiveForm &live)
{
    return dynamic_cast<IValueNumeric *>(live.form->GetVTValue("n"));
}

} // namespace

class TestNumbers : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
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
        row("limits of 64 bits are always scaled", "BandwidthEdit", half, set, scaled, "10 60 6 w<br>5...30 10.0");
        row("a new factor", "DoubleSpinBox", half, "n.setDisplayScalingFactor(0.25)", scaled, "40 80 8 w<br>10...20 10.0");
        row("a new factor counts for no integer", "SpinBox", half, "n.displayScalingFactor = 1", scaled, scaled);
        row("bounds of 64 bits drop out of the tooltip when set", "BandwidthEdit", {"minimum=Int:1", "maximum=Int:3000000000"}, "n.setMinimum(2)", "1 3e+09 1 w<br>1...3000000000 1", "2 3e+09 1 w<br>2... 2");
        row("the upper bound alone", "DoubleSpinBox", {"maximum=Int:10", "decimals=Int:1"}, "n.setDecimals(2)", "-1e+308 10 1 w<br>...10.0 0.0", "-1e+308 10 1 w<br>...10.0 0.00");
        // clang-format on
        const QStringList texts{"prefix=String:<", "suffix=String:s", "wrapping=Bool:true", "minimum=Int:0"};
        const char *change = "n.setPrefix('['); n.setSuffix('m'); n.setWrapping(false); n.setMaximum(9)";
        // clang-format off
        row("texts of integers", "SpinBox", texts, change, "0 2.14748e+09 1 w<br>0... <0s wraps", "0 9 1 w<br>0...9 [0m");
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
        row("any text for a scale", "BandwidthEdit", scale, "n.setUnitScale('MHz')", kilo, hertz);
        row("a scale wins over what else is stated", "BandwidthEdit", scale + QStringList{"suffix=String:x", "singleStep=Int:5", "decimals=Int:5"}, "", kilo, kilo);
        // clang-format on
    }

    void properties()
    {
        QFETCH(QString, script);
        QFETCH(QString, className);
        QFETCH(QStringList, properties);
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

    void documents_data()
    {
        Columns<QString, QStringList, QString, QString, QString, double>(
            {"className", "properties", "written", "read", "announced", "node"});
        const auto row = [](const char *name, const char *className, const QStringList &properties,
                             const QString &written, const char *read, const char *announced, double node) {
            AddRow(name, className, properties, "<n" + written + "</n>", read, announced, node);
        };
        const QString one("decimals=Int:1"), offset("displayAdditiveOffset=Int:1"), unit("unit=String:s");
        // clang-format off
        row("integer with offset", "SpinBox", {"value=Int:5", offset}, ">4", "4", "5", 5);
        row("no number reads as 0", "SpinBox", {"value=Int:5", unit}, " unit=\"s\">5", "x", "0", 0);
        row("whole with one place", "DoubleSpinBox", {"value=Double:3", one}, ">3", "2.5", "2.5", 2.5);
        row("rounded to whole with one place", "DoubleSpinBox", {"value=Double:3.04", one}, ">3", "x", "0", 0);
        row("fraction with one place", "BaudRateSpinBox", {"value=Double:12.5", one}, ">12.5", "7", "7", 7);
        row("two places", "DoubleSpinBox", {"value=Double:3", "decimals=Int:2", unit}, " unit=\"s\">3.00", "1", "1", 1);
        row("64 bits as they stand", "BandwidthEdit", {"value=Int64:007", unit}, " unit=\"s\">007", "9000000001", "9000000001", 9000000001);
        row("64 bits with an exponent are announced as 0", "BandwidthEdit", {"value=Int64:1"}, ">1", "1e7", "0", 1e7);
        // clang-format on
    }

    void documents()
    {
        auto [className, properties, written, read, announced] = Fetch<QString, QStringList, QString, QString, QString>(
            {"className", "properties", "written", "read", "announced"});
        LiveForm live(Widget("n", className, properties << Written));
        live.log.Watch("n", live.Get("n"));
        const QString document = live.form->GetXmlString(false);
        QVERIFY2(document.contains(written), qPrintable(document));
        live.form->SetXmlString("<Parameters><n>" + read + "</n></Parameters>");
        QCOMPARE(live.log.Take(), "n.valueChanged(" + announced + ')');
        QTEST(Node(live)->GetValue(), "node");
        QVERIFY(!live.Get("n")->isModified());
    }

    void largeNumbers()
    {
        LiveForm live(Widget("n", "BandwidthEdit", {Written}));
        live.log.Watch("n", live.Get("n"));
        const QPair<double, QString> numbers[] = {{-10.7, "-10"}, {1e300, "9223372036854775807"}, {1e7, "10000000"}};
        for (const auto &[number, announced] : numbers) {
            Node(live)->SetValue(number, nullptr);
            QCOMPARE(live.log.Take(), "n.valueChanged(" + announced + ") n.editingFinished()");
        }
        QVERIFY2(live.form->GetXmlString(false).contains(">1e+07<"), "the node's number in its own spelling");
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
};

ORBEL_TEST_MAIN(TestNumbers)
#include "tst_numbers.moc"
