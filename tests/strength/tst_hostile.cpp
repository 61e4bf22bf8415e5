// Definitions, documents, scripts and hosts that mean harm, or are merely broken: what could be read works, and the
// rest is left out.

#include "delegatefactory.h"
#include "forms.h"
#include "tree.h"
#include "valuebase.h"

Q_DECLARE_METATYPE(std::function<QString()>)

namespace
{

constexpr int Depth = 200000;
const QString Huge = "2147483647";

QString Opened(const QString &element)
{
    return QString("<%1>").arg(element).repeated(Depth);
}
QString OpenedAndClosed(const QString &element)
{
    return Opened(element) + QString("</%1>").arg(element).repeated(Depth);
}

/// A control that works: whatever stands around it, its value goes out.
QString Witness()
{
    return Widget("witness", "LineEdit", {"text=String:here", "generateParameterXml=Bool:true", "visible=Bool:true"});
}
QString WitnessOf(const Form &form)
{
    return form->GetXmlString(false).contains("<witness>here</witness>") ? QString()
                                                                         : form->GetXmlString(false).left(500);
}

/// Everything that happens to a form in its life, in a window of usual size.
std::unique_ptr<QWidget> Live(const Form &form)
{
    form->CreateValueTree("/Form");
    form->CreateGUI(true);
    std::unique_ptr<QWidget> window(form->GetGUI());
    window->resize(400, 300);
    window->show();
    QCoreApplication::processEvents();
    return window;
}

const QByteArray AllClasses = BytesOf(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel");

const QStringList Numeric{"SpinBox", "DoubleSpinBox", "BaudRateSpinBox", "BandwidthEdit", "FrequencyOffsetEdit",
    "SpinBoxList", "DoubleSpinBoxList", "ShiftList", "ChannelSpacingTable", "FrequencyEdit", "FrequencyRangeEdit"};

} // namespace

class TestHostile : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDefinitionMayEndAnywhere()
    {
        const QByteArray whole = AllClasses;
        int widgets = 0;
        for (int size = 0; size <= whole.size(); ++size) {
            const Form form(OrbelParser().ParseORBEL(whole.left(size)));
            const int count = form ? form->GetSheet().GetWidgetCount() : 0;
            QVERIFY2(count >= widgets, "what was read stays");
            widgets = count;
            if (form && size % 97 == 0)
                Live(form);
        }
        QVERIFY(widgets > DelegateClassNames().size());
    }

    void nestingHasNoEnd_data()
    {
        const auto row = Columns<QString, QString>({"sheet", "rest"});
        const QString label = "<Widget class='Label'>";
        // clang-format off
        row("behind the sheet", "", OpenedAndClosed("x"));
        row("forms in forms", "", OpenedAndClosed("ZkParamGui"));
        row("enumerations", "", "<Enums>" + Opened("Enum"));
        row("rows of an enumeration", "", "<Enums><Enum>" + Opened("EnumValue"));
        row("a row's text", "", "<Enums><Enum><EnumValue>" + Opened("Value"));
        row("sheets", "", Opened("Sheet"));
        row("properties of the sheet", Opened("Properties"), "");
        row("custom properties of the sheet", Opened("CustomProperties"), "");
        row("widgets", Opened("Widget"), "");
        row("properties of a widget", label + Opened("Property"), "");
        row("custom properties of a widget", label + OpenedAndClosed("CustomProperties"), "");
        row("unknown elements of a widget", label + Opened("x"), "");
        row("a property's value", label + "<Property name='labelText'>" + OpenedAndClosed("String") + "</Property>", "");
        row("the script", "", "<Script>" + Opened("Script"));
        row("a path of many parts", Widget("deep", "CheckBox", {"generateParameterXml=Bool:true", "parameterXmlTag=String:" + QString("a/").repeated(100000) + "b"}), "");
        // clang-format on
    }

    void nestingHasNoEnd()
    {
        const auto [sheet, rest] = Fetch<QString, QString>({"sheet", "rest"});
        const QString definition = Definition(Witness() + sheet, rest);
        const Form form = Parse(definition);
        const auto window = Live(form);
        form->SetChangedORBEL(definition);
        QCOMPARE(WitnessOf(form), QString());
    }

    void countsAndNumbersOutOfReason_data()
    {
        QTest::addColumn<QString>("definition");
        const QStringList counts{"itemCount", "shiftCount", "rowCount", "columnCount", "spacingsCount", "maxLength",
            "margin", "height", "maxHistoryLength", "autoApplyTimeout", "decimals", "unitScale", "iconSize"};
        for (const char *number : {"2147483647", "-2147483648", "65536", "4294967297", "9223372036854775808", "nan",
                 "inf", "-inf", "1e309", "-1e308", "1e-320", "0", ""}) {
            QString widgets = Witness();
            for (const QString &name : DelegateClassNames()) {
                QStringList properties{
                    "visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true", "text=String:t"};
                for (const QString &count : counts)
                    properties << count + "=Int:" + number;
                widgets += Widget(name + "Counts", name, properties);
                if (!Numeric.contains(name))
                    continue;
                for (const char *bound : {"minimum", "maximum", "singleStep", "displayScalingFactor",
                         "displayAdditiveOffset", "value", "startFrequency"})
                    widgets += Widget(name + bound, name,
                        {"visible=Bool:true", QString(bound) + "=Double:" + number, "itemCount=Int:2"});
            }
            QTest::newRow(*number ? number : "empty") << Definition(widgets);
        }
    }

    void countsAndNumbersOutOfReason()
    {
        QFETCH(QString, definition);
        const Form form = Parse(definition);
        const auto window = Live(form);
        for (QAbstractSpinBox *box : window->findChildren<QAbstractSpinBox *>()) {
            box->setReadOnly(false);
            box->stepUp();
            box->stepDown();
        }
        form->SetXmlString(form->GetXmlString(false));
        form->SetChangedORBEL(definition);
        QCOMPARE(WitnessOf(form), QString());
    }

    void muchOfEverything_data()
    {
        const auto row = Columns<std::function<QString()>>({"definition"});
        const QString text = QString("ten letter").repeated(1000000);
        for (const auto &[name, property] :
            {std::pair("LineEdit", "labelText"), {"LineEdit", "text"}, {"LineEdit", "inputMask"}, {"Label", "text"},
                {"PushButton", "text"}, {"PushButton", "icon"}, {"Headline", "text"}, {"CheckBox", "toolTip"},
                {"CheckBox", "parameterXmlTag"}, {"ComboBox", "enumName"}, {"ComboBox", "currentValue"},
                {"DoubleSpinBox", "suffix"}, {"DoubleSpinBox", "value"}, {"ChannelSpacingTable", "headerLabel"}}) {
            const QStringList properties{"visible=Bool:true", "spacingsCount=Int:2", property + QString("=String:")};
            row(qPrintable(QString("ten megabytes of %1 in a %2").arg(property, name)), [=, name = name] {
                return Definition(Widget("big", name, properties.mid(0, 2) << properties.last() + text));
            });
        }
        const auto choice = [](const QString &rows) {
            return Definition(Widget("c", "ComboBox", {"enumName=String:e", "visible=Bool:true", "labelText=String:l"}),
                "<Enums><Enum name='e'>" + rows + "</Enum></Enums>");
        };
        row("ten megabytes in a row of an enumeration", [=] {
            return choice("<EnumValue><DisplayName>" + text + "</DisplayName><Value>" + text + "</Value></EnumValue>");
        });
        row("a million rows of an enumeration",
            [=] { return choice(QString("<EnumValue><DisplayName>n</DisplayName></EnumValue>").repeated(1000000)); });
        row("ten megabytes in names", [=] { return Definition(Widget(text, text, {text + "=String:" + text})); });
    }

    void muchOfEverything()
    {
        const auto [definition] = Fetch<std::function<QString()>>({"definition"});
        const Form form = Parse(definition().replace("<Sheet name=\"sheet\">", "<Sheet name='sheet'>" + Witness()));
        const auto window = Live(form);
        QCOMPARE(WitnessOf(form), QString());
    }

    void scriptsMeanHarm_data()
    {
        const auto row = Columns<QString>({"script"});
        // clang-format off
        row("throws", "witness.setReadOnly(true); throw 'harm';");
        row("recurses", "function f() { f(); } f();");
        row("recurses through a signal that it causes", "store.valueChanged.connect(function (v) { store.setValue(v + 'x'); }); store.setValue('x');");
        row("recurses through a custom property", "store.customPropertyChanged.connect(function (n, v) { store.setCustomProperty(n, v + 1); }); store.setCustomProperty('n', 1);");
        row("announces while it is told", "sheet.si_parametersModified.connect(function () { sheet.emitParametersXml(); }); sheet.emitParametersXml();");
        row("recurses while a value becomes a text", "var o = {}; o.toString = function () { return String(o); }; store.setValue(o);");
        row("gives a list that holds itself", "var a = []; a[0] = a; store.setCustomProperty('a', a);");
        row("gives an object that holds itself", "var o = {}; o.o = o; store.setValue(o);");
        row("gives a long text", "var s = 'x'; while (s.length < 1e7) s += s; label.setText(s); label.setLabelText(s);");
        row("ends what it sees", "for (name in this) if (this[name].deleteLater) this[name].deleteLater();");
        row("throws in every handler", "witness.textChanged.connect(function () { throw 1; }); store.valueChanged.connect(function () { throw 2; }); store.setValue('x');");
        row("breaks the language", "Array.prototype.push = String = Object = null; witness = 1; sheet = undefined;");
        // clang-format on
    }

    void scriptsMeanHarm()
    {
        QFETCH(QString, script);
        const Form form
            = Parse(Definition(Witness() + Widget("store", "HiddenParameter", {"generateParameterXml=Bool:true"})
                    + Widget("label", "Label", {"visible=Bool:true", "labelText=String:l"}),
                "<Script>" + script.toHtmlEscaped() + "</Script>"));
        const auto window = Live(form);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto *edit = window->findChild<QLineEdit *>("witness");
        edit->setFocus();
        QTest::keyClicks(edit, "x");
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(WitnessOf(form), QString());
    }

    void everyMethodTakesEverything_data()
    {
        const auto row = Columns<QString>({"className"});
        for (const QString &name : DelegateClassNames())
            row(qPrintable(name), name);
    }

    void everyMethodTakesEverything()
    {
        QFETCH(QString, className);
        const Form form = Parse(Definition(Witness()
            + Widget("a", className,
                {"visible=Bool:true", "itemCount=Int:2", "rowCount=Int:2", "columnCount=Int:2",
                    "generateParameterXml=Bool:true"})));
        const auto window = Live(form);
        form->SetScriptValue("long", QString("ten letter").repeated(1000));
        form->EvaluateScript(
            "var values = [2147483647, -2147483648, 1e309, -1e309, NaN, 4294967296.5, 1e18, 0, true, null, undefined, "
            "'', long, [], {}];"
            "for (name in a) if (typeof a[name] == 'function' && !/Dialog|edit|Edit|destroy/.test(name))"
            "  for (i in values) for (j in values) try { a[name](values[i], values[j], values[i], values[j]); } catch "
            "(e) {}"
            "var reached = i;");
        QCOMPARE(form->GetScriptValues().value("reached").toInt32(), 14);
        QCoreApplication::processEvents();
        form->SetXmlString("<Parameters><a><Item>" + Opened("Item"));
        form->SetXmlString("<Parameters><a>" + OpenedAndClosed("a") + "</a><witness>here</witness></Parameters>");
        QCOMPARE(WitnessOf(form), QString());
    }

    void aHostStopsAScriptThatLoops_data()
    {
        const auto row = Columns<QString>({"script"});
        row("the form's script", "while (true) {}");
        row("a handler", "store.valueChanged.connect(function () { while (true) {} });");
    }

    void aHostStopsAScriptThatLoops()
    {
        QFETCH(QString, script);
        const Form form = Parse(Definition(
            Witness() + Widget("store", "HiddenParameter"), "<Script>" + script.toHtmlEscaped() + "</Script>"));
        QScriptEngine *engine = EngineOf(form);
        engine->setProcessEventsInterval(20);
        int stopped = 0;
        QTimer watchdog;
        connect(&watchdog, &QTimer::timeout, engine, [&] {
            ++stopped;
            engine->pushContext();
            engine->abortEvaluation();
            engine->popContext();
        });
        watchdog.start(100);
        const auto window = Live(form);
        Delegate(form, "store")->setProperty("value", "x");
        QMetaObject::invokeMethod(Delegate(form, "store"), "setValue", Q_ARG(QString, "y"));
        watchdog.stop();
        QVERIFY(stopped > 0);
        // A stop that met no script waits for the next one, unless it is taken back.
        engine->evaluate(QString());
        form->EvaluateScript(
            "var sum = 0; store.customPropertyChanged.connect(function () { while (sum < 1000000) ++sum; });");
        Delegate(form, "store")->setCustomProperty("n", 1);
        QCOMPARE(form->GetScriptValues().value("sum").toInt32(), 1000000);
        QCOMPARE(WitnessOf(form), QString());
    }
};

ORBEL_TEST_MAIN(TestHostile)
#include "tst_hostile.moc"
