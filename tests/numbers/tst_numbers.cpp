// Numeric spin controls: limits and units, documents, and what operator, script and node each cause.

#include "liveform.h"
#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"
#include "vcnumericfloatspin.h"

#include <QtTest>

using namespace KV218;
using namespace forms;

namespace
{

const QString Written("generateParameterXml=Bool:true");

QString Limits(const IValueNumeric *node)
{
    return QString("%1 %2 %3").arg(node->GetMin()).arg(node->GetMax()).arg(node->GetStep());
}

void AddSpinClasses()
{
    QTest::addColumn<QString>("className");
    for (const char *name : {"SpinBox", "DoubleSpinBox", "BaudRateSpinBox", "BandwidthEdit", "FrequencyOffsetEdit"})
        QTest::newRow(name) << name;
}

} // namespace

class TestNumbers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void limits_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QStringList>("properties");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const QStringList half{
            "minimum=Int:10", "maximum=Int:20", "singleStep=Int:2", "displayScalingFactor=Double:0.5"};
        const QString set("n.setMinimum(5); n.setMaximum(30); n.setSingleStep(3)");
        const QStringList large{"minimum=Int:1", "maximum=Int:3000000000"};
        QTest::newRow("integers are scaled at first, not when set later")
            << "SpinBox" << half << set << "20 40 4 w<br>10...20"
            << "5 30 3 w<br>5...30";
        QTest::newRow("doubles are always scaled") << "DoubleSpinBox" << half << set << "20 40 4 w<br>10...20"
                                                   << "10 60 6 w<br>5...30";
        QTest::newRow("64 bits are always scaled") << "BandwidthEdit" << half << set << "20 40 4 w<br>10...20"
                                                   << "10 60 6 w<br>5...30";
        QTest::newRow("a new factor for doubles") << "DoubleSpinBox" << half << "n.setDisplayScalingFactor(0.25)"
                                                  << "20 40 4 w<br>10...20"
                                                  << "40 80 8 w<br>10...20";
        QTest::newRow("a new factor for integers counts for no limit") << "SpinBox" << half << "n.setSuffix('x')"
                                                                       << "20 40 4 w<br>10...20"
                                                                       << "20 40 4 w<br>10...20";
        QTest::newRow("bounds of 64 bits drop out of the tooltip when set")
            << "BandwidthEdit" << large << "n.setMinimum(2)"
            << "1 3e+09 1 w<br>1...3000000000"
            << "2 3e+09 1 w<br>2...";
        QTest::newRow("the upper bound alone")
            << "DoubleSpinBox" << QStringList{"maximum=Int:10", "decimals=Int:1"} << ""
            << "-1e+308 10 1 w<br>...10.0"
            << "-1e+308 10 1 w<br>...10.0";
        QTest::newRow("no bounds") << "BandwidthEdit" << QStringList() << ""
                                   << "-1e+308 1e+308 1 w"
                                   << "-1e+308 1e+308 1 w";
        QTest::newRow("the scale of units comes before the limits")
            << "BandwidthEdit" << QStringList{"unitScale=UInt64:1000000", "minimum=Int:10"} << "n.setUnitScale(1)"
            << "1e+07 1e+308 1e+06 w<br>10..."
            << "10 1e+308 1 w<br>10...";
    }

    void limits()
    {
        QFETCH(QString, script);
        QFETCH(QString, className);
        QFETCH(QStringList, properties);
        const ContextTranslator translator("n");
        LiveForm live(Widget("n", className,
            properties << "labelText=String:w"
                       << "toolTip=String:replaced"));
        const auto *node = dynamic_cast<IValueNumeric *>(live.form->GetVTValue("n"));
        const auto found = [&] { return Limits(node) + ' ' + live.Find("n")->toolTip().remove("<html>n:"); };
        QTEST(found(), "before");
        live.form->EvaluateScript(script);
        QTEST(found(), "after");
    }

    void unitScale_data()
    {
        QTest::addColumn<QString>("scale");
        QTest::addColumn<QString>("shown");
        QTest::newRow("kilo") << "1000"
                              << "1500.000kHz kHz 0.001";
        QTest::newRow("mega") << "1000000"
                              << "1.500000MHz MHz 1e-06";
        QTest::newRow("giga") << "1000000000"
                              << "0.001500000GHz GHz 1e-09";
        QTest::newRow("any other number") << "10"
                                          << "1500000Hz Hz 1";
        QTest::newRow("any text") << "'MHz'"
                                  << "1500000Hz Hz 1";
    }

    void unitScale()
    {
        QFETCH(QString, scale);
        LiveForm live(Widget("n", "BandwidthEdit", {"value=Int64:1500000", "unitScale=UInt64:1000"}));
        const OrbelDelegate *n = live.Get("n");
        live.form->EvaluateScript("n.setUnitScale(" + scale + ')');
        auto *spin = live.Find<VCNumericFloatSpin>("n");
        const QString unit = n->property("unit").toString() + ' ' + n->property("displayScalingFactor").toString();
        QTEST(spin->text() + ' ' + unit, "shown");
        spin->stepUp();
        QCOMPARE(n->property("value").toDouble(), 1500000 + 1 / n->property("displayScalingFactor").toDouble());
    }

    void documents_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QStringList>("properties");
        QTest::addColumn<QString>("written");
        QTest::addColumn<QString>("read");
        QTest::addColumn<QString>("announced");
        QTest::addColumn<QString>("node");
        const auto row = [](const char *name, const char *className, const QStringList &properties,
                             const QString &written, const char *read, const char *announced, const char *node) {
            QTest::newRow(name) << className << properties << "<n" + written + "</n>" << read << announced << node;
        };
        row("integer with offset", "SpinBox", {"value=Int:5", "displayAdditiveOffset=Int:1"}, ">4", "4", "5", "5");
        row("offsets beyond the integers", "SpinBox", {"value=Int:-2147483648", "displayAdditiveOffset=Int:1"},
            ">-2147483649", "2147483647", "2147483647", "2147483647");
        row("no number reads as 0", "SpinBox", {"value=Int:5", "unit=String:dB"}, " unit=\"dB\">5", "x", "0", "0");
        const QString one("decimals=Int:1");
        row("whole with one place", "DoubleSpinBox", {"value=Double:3", one}, ">3", "2.5", "2.5", "2.5");
        row("rounded to whole with one place", "DoubleSpinBox", {"value=Double:3.04", one}, ">3", "x", "0", "0");
        row("fraction with one place", "BaudRateSpinBox", {"value=Double:12.5", one}, ">12.5", "7", "7", "7");
        row("whole with two places", "DoubleSpinBox", {"value=Double:3", "decimals=Int:2", "unit=String:s"},
            " unit=\"s\">3.00", "1", "1", "1");
        row("places beyond the limit", "DoubleSpinBox", {"value=Double:0.5", "decimals=Int:2147483647"},
            ">0.5" + QString(322, '0'), "1", "1", "1");
        row("64 bits as they stand", "BandwidthEdit", {"value=Int64:007", "unit=String:Hz"}, " unit=\"Hz\">007",
            "9000000001", "9000000001", "9000000001");
        row("64 bits with an exponent are announced as 0", "FrequencyOffsetEdit", {"value=Int64:1"}, ">1", "1e7", "0",
            "10000000");
    }

    void documents()
    {
        QFETCH(QString, className);
        QFETCH(QStringList, properties);
        QFETCH(QString, written);
        QFETCH(QString, read);
        QFETCH(QString, announced);
        LiveForm live(Widget("n", className, properties << Written));
        live.log.Watch("n", live.Get("n"));
        const QString document = live.form->GetXmlString(false);
        QVERIFY2(document.contains(written), qPrintable(document));
        live.form->SetXmlString("<Parameters><n>" + read + "</n></Parameters>");
        QCOMPARE(live.log.Take(), "n.valueChanged(" + announced + ')');
        QTEST(
            QString::number(dynamic_cast<IValueNumeric *>(live.form->GetVTValue("n"))->GetValue(), 'f', -128), "node");
        QVERIFY(!live.Get("n")->isModified());
    }

    void changes_data() { AddSpinClasses(); }

    void changes()
    {
        QFETCH(QString, className);
        LiveForm live(Widget("n", className, {Written, "value=Int:3"}) + Widget("next", "LineEdit"), false);
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        auto *spin = live.Find<VCNumericFloatSpin>("n");
        auto *node = live.form->GetVTValue("n");
        live.log.Watch("n", live.Get("n"));
        live.form->EvaluateScript("n.setValue(5); n.setWrapping(true); n.setSuffix('!'); n.setFocus()");
        QCOMPARE(live.log.Take() + spin->text() + node->GetStringValue(), QString("5!5"));
        QVERIFY(spin->hasFocus() && !live.Get("n")->isModified());

        spin->selectAll();
        QTest::keyClicks(spin, "12");
        QTest::keyClick(spin, Qt::Key_Tab);
        const QString told("n.valueChanged(12) n.editingFinished() sheet.si_parametersModified()");
        QCOMPARE(live.log.Take(), told);
        QVERIFY(live.Get("n")->isModified());
        QCOMPARE(live.Get("n")->property("value").toDouble(), 12.0);

        live.form->GetXmlString(false);
        live.form->EvaluateScript("n.setValue(11)");
        node->SetStringValue("11", nullptr);
        QCOMPARE(live.log.Take(), QString());
        node->SetStringValue("12", nullptr);
        QCOMPARE(live.log.Take(), told);
    }

    void largeNumbers_data()
    {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("announced");
        QTest::addColumn<QString>("written");
        QTest::newRow("the node's number in its own spelling") << 1e7 << "10000000"
                                                               << ">1e+07<";
        QTest::newRow("toward zero") << -10.7 << "-10"
                                     << ">-10.7<";
        QTest::newRow("too large") << 1e300 << "9223372036854775807"
                                   << ">1e+300<";
        QTest::newRow("too small") << -1e300 << "-9223372036854775808"
                                   << ">-1e+300<";
    }

    void largeNumbers()
    {
        QFETCH(double, number);
        QFETCH(QString, announced);
        QFETCH(QString, written);
        LiveForm live(Widget("n", "BandwidthEdit", {Written}));
        live.log.Watch("n", live.Get("n"));
        dynamic_cast<IValueNumeric *>(live.form->GetVTValue("n"))->SetValue(number, nullptr);
        QCOMPARE(live.log.Take(), "n.valueChanged(" + announced + ") n.editingFinished()");
        QVERIFY(live.form->GetXmlString(false).contains(written));
    }

    void propertiesReachTheControl_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::newRow("factor and decimals of an integer only count while it is built") << "SpinBox"
                                                                                        << "<2.0s 2.0 1"
                                                                                        << "[2.0m 2.0 0";
        QTest::newRow("double") << "DoubleSpinBox"
                                << "<2.0s 2.0 1"
                                << "[3.00m 3.00 0";
        QTest::newRow("64 bits have no prefix") << "BandwidthEdit"
                                                << "2.0s 2.0 1"
                                                << "3.00m 3.00 0";
    }

    void propertiesReachTheControl()
    {
        QFETCH(QString, className);
        LiveForm live(Widget("n", className,
            {"value=Int:4", "prefix=String:<", "suffix=String:s", "displayScalingFactor=Double:0.5", "decimals=Int:0",
                "singleStep=Double:0.5", "wrapping=Bool:true"}));
        auto *spin = live.Find<VCNumericFloatSpin>("n");
        const auto found
            = [&] { return QString("%1 %2 %3").arg(spin->text(), spin->cleanText()).arg(spin->wrapping()); };
        QTEST(found(), "before");
        live.form->EvaluateScript("n.prefix = '['; n.setSuffix('m'); n.setWrapping(false);"
                                  "n.displayScalingFactor = 0.75; n.decimals = 1");
        QTEST(found(), "after");
        QVERIFY(spin->isEnabled() && spin->isVisible());
    }

    void names()
    {
        const QStringList tag{"parameterXmlTag=String:x/tag", "value=Int:3", Written};
        LiveForm live(Widget("a", "SpinBox", tag) + Widget("b", "SpinBox", tag)
            + Widget("c", "DoubleSpinBox", {"parameterXmlTag=String:x/other"}));
        QVERIFY2(live.Find<VCNumericFloatSpin>("tag"), "an integer is named after its node");
        QVERIFY2(live.Find<VCNumericFloatSpin>("c"), "others after the widget");
        QCOMPARE(live.window->findChildren<VCNumericFloatSpin *>().size(), 3);
        live.form->EvaluateScript("b.setValue(7); b.setMaximum(8)");
        QVERIFY2(live.form->GetXmlString(false).contains(">7<"), "a control whose node was refused");
    }

    void ends_data() { AddSpinClasses(); }

    void ends()
    {
        QFETCH(QString, className);
        for (const char *signal : {"n.valueChanged", "n.editingFinished", "sheet.si_parametersModified"}) {
            LiveForm live(Widget("n", className, {Written}), false);
            live.log.Watch("n", live.Get("n"));
            live.log.On(signal, [&] { live.form.reset(); });
            live.Find<VCNumericFloatSpin>("n")->stepBy(1);
            QVERIFY(!live.form
                && live.log.Take().endsWith(QString(signal) + (*signal == 'n' && signal[2] == 'v' ? "(1)" : "()")));
        }
        LiveForm live(Widget("n", className, {Written}));
        live.log.Watch("n", live.Get("n"));
        Tree::Instance()->RemoveNode("/Form/n");
        QVERIFY(!live.form->GetVTValue("n"));
        live.window.reset();
        live.form->EvaluateScript("n.setValue(2); n.setMinimum(1); n.setFocus(); n.setSuffix('m')");
        QVERIFY(live.form->GetXmlString(false).contains(">2<"));
        QCOMPARE(live.log.Take(), QString());
    }
};

ORBEL_TEST_MAIN(TestNumbers)
#include "tst_numbers.moc"
