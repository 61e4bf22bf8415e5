// Definitions, documents, scripts and hosts that mean harm, or are merely broken: what could be read works, and the
// rest is left out.

#include "delegatefactory.h"
#include "forms.h"
#include "testmain.h"
#include "tree.h"
#include "valuebase.h"

#include <functional>
#include <QLabel>
#include <QLineEdit>
#include <QScriptEngine>
#include <QtTest>

using namespace KV218;
using namespace forms;

using Act = std::function<void(Form &form, std::unique_ptr<QWidget> &window)>;
Q_DECLARE_METATYPE(Act)
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

QByteArray AllControls()
{
    QFile file(ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QScriptEngine *EngineOf(const Form &form)
{
    return form->GetScriptValues().value("sheet").engine();
}

const QStringList Numeric{"SpinBox", "DoubleSpinBox", "BaudRateSpinBox", "BandwidthEdit", "FrequencyOffsetEdit",
    "SpinBoxList", "DoubleSpinBoxList", "ShiftList", "ChannelSpacingTable", "FrequencyEdit", "FrequencyRangeEdit"};

} // namespace

class TestHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void aDefinitionMayEndAnywhere()
    {
        const QByteArray whole = AllControls();
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
        QTest::addColumn<QString>("definition");
        const QString properties = "<Property name='labelText'>" + OpenedAndClosed("String") + "</Property>";
        QTest::newRow("behind the sheet") << Definition(Witness(), OpenedAndClosed("x"));
        QTest::newRow("forms in forms") << Definition(Witness(), OpenedAndClosed("ZkParamGui"));
        QTest::newRow("enumerations") << Definition(Witness(), "<Enums>" + Opened("Enum"));
        QTest::newRow("rows of an enumeration") << Definition(Witness(), "<Enums><Enum>" + Opened("EnumValue"));
        QTest::newRow("a row's text") << Definition(Witness(), "<Enums><Enum><EnumValue>" + Opened("Value"));
        QTest::newRow("sheets") << Definition(Witness(), Opened("Sheet"));
        QTest::newRow("properties of the sheet") << Definition(Witness() + Opened("Properties"));
        QTest::newRow("custom properties of the sheet") << Definition(Witness() + Opened("CustomProperties"));
        QTest::newRow("widgets") << Definition(Witness() + Opened("Widget"));
        QTest::newRow("properties of a widget")
            << Definition(Witness() + "<Widget class='Label'>" + Opened("Property"));
        QTest::newRow("custom properties of a widget")
            << Definition(Witness() + "<Widget class='Label'>" + OpenedAndClosed("CustomProperties"));
        QTest::newRow("unknown elements of a widget") << Definition(Witness() + "<Widget class='Label'>" + Opened("x"));
        QTest::newRow("a property's value") << Definition(Witness() + "<Widget class='Label'>" + properties);
        QTest::newRow("the script") << Definition(Witness(), "<Script>" + Opened("Script"));
        QTest::newRow("a path of many parts") << Definition(Witness()
            + Widget("deep", "CheckBox",
                {"generateParameterXml=Bool:true", "parameterXmlTag=String:" + QString("a/").repeated(100000) + "b"}));
    }

    void nestingHasNoEnd()
    {
        QFETCH(QString, definition);
        const Form form = Parse(definition);
        const auto window = Live(form);
        form->SetChangedORBEL(definition);
        QCOMPARE(WitnessOf(form), QString());
    }

    void nestedParameters_data()
    {
        QTest::addColumn<QString>("className");
        for (const QString &name : DelegateClassNames())
            QTest::newRow(qPrintable(name)) << name;
    }

    void nestedParameters()
    {
        QFETCH(QString, className);
        const Form form = Parse(Definition(Witness() + Widget("a", className, {"generateParameterXml=Bool:true"})));
        const auto window = Live(form);
        form->SetXmlString("<Parameters><a><Item>" + Opened("Item"));
        form->SetXmlString("<Parameters><a>" + OpenedAndClosed("a") + "</a><witness>here</witness></Parameters>");
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

    void theDocumentsNumbersAreOutOfReason()
    {
        QString widgets = Witness();
        QString parameters;
        for (const QString &name : DelegateClassNames()) {
            widgets += Widget(name, name,
                {"generateParameterXml=Bool:true", "itemCount=Int:2", "rowCount=Int:2", "columnCount=Int:2",
                    "spacingsCount=Int:2", "parameterListItemTag=String:i"});
            parameters += QString("<%1>%2</%1>");
            parameters = parameters.arg(name);
        }
        const Form form = Parse(Definition(widgets));
        const auto window = Live(form);
        for (const char *number : {"2147483647", "-1", "-2147483648", "9223372036854775807", "1e309", "nan", ""}) {
            const QString entries = QString("<i index='%1' row='%1' column='%1' key='%1'>%1</i><i>%1</i>").arg(number);
            form->SetXmlString("<Parameters>" + QString(parameters).replace("%2", number) + "</Parameters>");
            form->SetXmlString("<Parameters>" + QString(parameters).replace("%2", entries) + "</Parameters>");
        }
        QCOMPARE(WitnessOf(form), QString());
    }

    void muchOfEverything_data()
    {
        QTest::addColumn<std::function<QString()>>("definition");
        const auto row = [](const QString &name, const std::function<QString()> &definition) {
            QTest::newRow(qPrintable(name)) << definition;
        };
        const QString text = QString("ten letter").repeated(1000000);
        const QList<QPair<const char *, const char *>> places{{"LineEdit", "labelText"}, {"LineEdit", "text"},
            {"LineEdit", "inputMask"}, {"Label", "text"}, {"PushButton", "text"}, {"PushButton", "icon"},
            {"Headline", "text"}, {"CheckBox", "toolTip"}, {"CheckBox", "parameterXmlTag"}, {"ComboBox", "enumName"},
            {"ComboBox", "currentValue"}, {"DoubleSpinBox", "suffix"}, {"DoubleSpinBox", "value"},
            {"ChannelSpacingTable", "headerLabel"}};
        for (const auto &place : places) {
            row(QString("ten megabytes of %1 in a %2").arg(place.second, place.first), [=] {
                return Definition(Witness()
                    + Widget("big", place.first,
                        {"visible=Bool:true", "spacingsCount=Int:2", QString(place.second) + "=String:" + text}));
            });
        }
        const auto choice = [](const QString &rows) {
            return Definition(
                Witness() + Widget("c", "ComboBox", {"enumName=String:e", "visible=Bool:true", "labelText=String:l"}),
                "<Enums><Enum name='e'>" + rows + "</Enum></Enums>");
        };
        row("ten megabytes in a row of an enumeration", [=] {
            return choice("<EnumValue><DisplayName>" + text + "</DisplayName><Value>" + text + "</Value></EnumValue>");
        });
        row("a million rows of an enumeration",
            [=] { return choice(QString("<EnumValue><DisplayName>n</DisplayName></EnumValue>").repeated(1000000)); });
        row("ten megabytes in names",
            [=] { return Definition(Witness() + Widget(text, text, {text + "=String:" + text})); });
    }

    void muchOfEverything()
    {
        QFETCH(std::function<QString()>, definition);
        const Form form = Parse(definition());
        const auto window = Live(form);
        QCOMPARE(WitnessOf(form), QString());
    }

    void scriptsMeanHarm_data()
    {
        QTest::addColumn<QString>("script");
        QTest::newRow("throws") << "witness.setReadOnly(true); throw 'harm';";
        QTest::newRow("recurses") << "function f() { f(); } f();";
        QTest::newRow("recurses through a signal that it causes")
            << "store.valueChanged.connect(function (v) { store.setValue(v + 'x'); }); store.setValue('x');";
        QTest::newRow("recurses through a custom property")
            << "store.customPropertyChanged.connect(function (n, v) { store.setCustomProperty(n, v + 1); });"
               "store.setCustomProperty('n', 1);";
        QTest::newRow("announces while it is told")
            << "sheet.si_parametersModified.connect(function () { sheet.emitParametersXml(); });"
               "sheet.emitParametersXml();";
        QTest::newRow("recurses while a value becomes a text")
            << "var o = {}; o.toString = function () { return String(o); }; store.setValue(o);";
        QTest::newRow("gives a list that holds itself") << "var a = []; a[0] = a; store.setCustomProperty('a', a);";
        QTest::newRow("gives an object that holds itself") << "var o = {}; o.o = o; store.setValue(o);";
        QTest::newRow("gives a long text")
            << "var s = 'x'; while (s.length < 1e7) s += s; label.setText(s); label.setLabelText(s);";
        QTest::newRow("ends what it sees")
            << "for (name in this) if (this[name].deleteLater) this[name].deleteLater();";
        QTest::newRow("throws in every handler") << "witness.textChanged.connect(function () { throw 1; }); "
                                                    "store.valueChanged.connect(function () { throw 2; });"
                                                    "store.setValue('x');";
        QTest::newRow("breaks the language")
            << "Array.prototype.push = String = Object = null; witness = 1; sheet = undefined;";
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

    void everyMethodTakesEverything_data() { nestedParameters_data(); }

    void everyMethodTakesEverything()
    {
        QFETCH(QString, className);
        const Form form = Parse(Definition(Witness()
            + Widget("a", className, {"visible=Bool:true", "itemCount=Int:2", "rowCount=Int:2", "columnCount=Int:2"})));
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
        QCOMPARE(WitnessOf(form), QString());
    }

    void aHostStopsAScriptThatLoops_data()
    {
        QTest::addColumn<QString>("script");
        QTest::newRow("the form's script") << "while (true) {}";
        QTest::newRow("a handler") << "store.valueChanged.connect(function () { while (true) {} });";
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

    void hostsMeanHarm_data()
    {
        QTest::addColumn<Act>("act");
        const auto row = [](const char *name, const Act &act) { QTest::newRow(name) << act; };
        row("the nodes go", [](Form &, std::unique_ptr<QWidget> &) {
            for (const QString &path : Tree::Instance()->GetPaths())
                Tree::Instance()->RemoveNode(path);
        });
        row("the nodes go while one of them tells", [](Form &form, std::unique_ptr<QWidget> &) {
            connect(form.data(), &OrbelFormular::si_parametersModified, [] {
                for (const QString &path : Tree::Instance()->GetPaths())
                    Tree::Instance()->RemoveNode(path);
            });
            form->GetVTValue("witness")->SetStringValue("x", nullptr);
        });
        row("the other controls go at the announcement", [](Form &form, std::unique_ptr<QWidget> &window) {
            connect(form.data(), &OrbelFormular::si_parametersModified, [&window] {
                const QWidget *witness = window->findChild<QWidget *>("witness");
                for (QObject *control :
                    witness->parentWidget()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
                    if (control != witness)
                        delete control;
                }
            });
            form->GetVTValue("witness")->SetStringValue("x", nullptr);
            QVERIFY(!window->findChild<QWidget *>("spinBox"));
        });
        row("a document comes inside the reading of one", [](Form &form, std::unique_ptr<QWidget> &) {
            auto depth = std::make_shared<int>(0);
            connect(
                Delegate(form, "store"), SIGNAL(valueChanged(QString)), form.data(), SIGNAL(si_parametersModified()));
            connect(form.data(), &OrbelFormular::si_parametersModified, [&form, depth] {
                if (++*depth < 50)
                    form->SetXmlString(
                        "<Parameters><store>" + QString::number(*depth) + "</store><a>1</a></Parameters>");
            });
            form->SetXmlString("<Parameters><store>0</store></Parameters>");
            QVERIFY(*depth >= 50);
        });
        row("a changed definition comes at the announcement", [](Form &form, std::unique_ptr<QWidget> &) {
            connect(form.data(), &OrbelFormular::si_parametersModified, [&form] {
                form->SetChangedORBEL(Definition(Widget("witness", "", {"maxLength=Int:1", "visible=Bool:false"})));
            });
        });
        row("all is built again", [](Form &form, std::unique_ptr<QWidget> &) {
            form->CreateValueTree("/Again");
            form->CreateGUI(true);
            form->CreateGUI(false);
        });
    }

    void hostsMeanHarm()
    {
        QFETCH(Act, act);
        QString text = QString::fromUtf8(AllControls());
        text.replace("<Sheet name=\"sheet\">",
            "<Sheet name=\"sheet\">" + Witness()
                + Widget("store", "HiddenParameter", {"generateParameterXml=Bool:true"}));
        Form form = Parse(text);
        form->CreateValueTree("/Form");
        form->CreateGUI(false);
        std::unique_ptr<QWidget> window(form->GetGUI());
        window->show();
        act(form, window);
        if (window) {
            QList<QPointer<QWidget>> controls;
            for (QWidget *control : window->findChildren<QWidget *>())
                controls << control;
            for (const QPointer<QWidget> &control : controls) {
                for (const Qt::Key key : {Qt::Key_Up, Qt::Key_5, Qt::Key_Return}) {
                    if (control)
                        QTest::keyClick(control, key);
                }
            }
        }
        if (form) {
            form->SetXmlString(form->GetXmlString(false));
            form->EnableInput(false);
            form->applyNow();
        }
        if (form)
            form->SetChangedORBEL(text);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

ORBEL_TEST_MAIN(TestHostile)
#include "tst_hostile.moc"
