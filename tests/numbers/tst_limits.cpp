// One truth for numbers: whatever sets a value or a limit, screen, node, property and document state the same number
// afterwards, nothing counts as the operator's change, and what the operator types next does.

#include "frequencytext.h"
#include "liveform.h"
#include "rows.h"
#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"
#include "vcnumericfloatspin.h"

#include <QtTest>

using namespace KV218;
using namespace forms;

using Act = std::function<void(const LiveForm &live, const QString &property)>;
Q_DECLARE_METATYPE(Act)

namespace
{

/// Where a number stands: its field on the screen, its node, its property, its element in the document.
struct Place {
    QString Field, Node, Property, Element;
};
/// A control "n" in one of its faces. Its value stands in the last place.
struct Face {
    const char *Name;
    QString Class;
    QStringList Properties;
    QVector<Place> Places;
    bool IsRange() const { return Places.size() > 1; }
};

const QVector<Place> Single{{"n", "n", "value", "n"}};
const Face Faces[] = {
    {"SpinBox", "SpinBox", {}, Single},
    {"DoubleSpinBox", "DoubleSpinBox", {"decimals=Int:1"}, Single},
    {"BandwidthEdit", "BandwidthEdit", {}, Single},
    {"plain FrequencyEdit", "FrequencyEdit", {}, Single},
    {"main FrequencyEdit", "FrequencyEdit", {"MainFreqEdit=Bool:true"}, {{"frequency", "n", "value", "n"}}},
    {"FrequencyRangeEdit", "FrequencyRangeEdit",
        {"startFrequency=String:14000", "startFrequencyParameterXmlTag=String:From",
            "stopFrequencyParameterXmlTag=String:To"},
        {{"n_StartFrequency", "n_1", "startFrequency", "From"}, {"n_StopFrequency", "n_2", "stopFrequency", "To"}}},
};
const QStringList Limits{"value=String:15000", "minimum=String:10000", "maximum=String:20000"};

bool IsFrequency(const Face &face)
{
    return face.Class.startsWith("Frequency");
}

/// The face with further properties; "value" is what it calls its value.
QString Control(const Face &face, const QStringList &more)
{
    QStringList properties = face.Properties + more
        + QStringList{"generateParameterXml=Bool:true", "visible=Bool:true", "enabled=Bool:true"};
    properties.replaceInStrings(QRegularExpression("^value="), face.Places.last().Property + '=');
    return Widget("n", face.Class, properties);
}

/// What the control shows of a node's number: frequency fields show hertz.
double Factor(const LiveForm &live)
{
    return live.Get("n")->GetDouble("displayScalingFactor", 1);
}

double OnScreen(const LiveForm &live, const QString &field)
{
    if (const auto *spin = live.Find<VCNumericFloatSpin>(field))
        return spin->cleanText().toDouble() / Factor(live);
    return FrequencyText::Read(live.Find<QLineEdit>(field)->text(), QLocale::c()).value_or(qQNaN());
}

/// The number in each place of the face; where the four that state it differ, all of them.
QString Held(const LiveForm &live, const Face &face)
{
    QStringList all;
    const QString document = live.form->GetXmlString(false);
    for (const Place &place : face.Places) {
        const auto *node = dynamic_cast<IValueNumeric *>(Tree::Instance()->GetNode("/Form/" + place.Node));
        const QString written = document.section('<' + place.Element, 1).section('>', 1).section('<', 0, 0);
        QStringList held{FrequencyText::Plain(OnScreen(live, place.Field)), FrequencyText::Plain(node->GetValue()),
            FrequencyText::Plain(live.Get("n")->property(place.Property.toLatin1()).toDouble()),
            IsFrequency(face) ? written : FrequencyText::Plain(written.toDouble())};
        held.removeDuplicates();
        all << held.join('|');
    }
    return all.join(' ');
}

void Type(const LiveForm &live, const QString &field, const QString &text)
{
    live.Find(field)->setFocus();
    QTest::keyClick(live.window->focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(live.window->focusWidget(), text + '\r');
}

/// %1 stands for the property that holds the value, %2 for its setter.
Act Script(const QString &text)
{
    return [=](const LiveForm &live, const QString &property) {
        const QString setter = "set" + property.left(1).toUpper() + property.mid(1);
        live.form->EvaluateScript(QString(text).replace("%1", property).replace("%2", setter));
    };
}

Act Property(const QString &name, const QVariant &value)
{
    return [=](const LiveForm &live, const QString &property) {
        live.Get("n")->setProperty(QString(name).replace("%1", property).toLatin1(), value);
    };
}

/// The document gives the value's element this text.
Act Document(const QString &text)
{
    return [=](const LiveForm &live, const QString &property) {
        const QString element = property == "value" ? "n" : "To";
        live.form->SetXmlString(QString("<Parameters><%1>%2</%1></Parameters>").arg(element, text));
    };
}

Act Changed(const QString &name, const QString &text)
{
    return [=](const LiveForm &live, const QString &property) {
        const QString changed = QString(name).replace("%1", property) + "=String:" + text;
        live.form->SetChangedORBEL(Definition(Widget("n", "", {changed})));
    };
}

/// The limits of an application's node, which has none of its own at first.
template <class Node> Act Init(bool limited)
{
    return [=](const LiveForm &live, const QString &) {
        Node node("n");
        if (limited)
            node.SetMinMax(18000, 19000, 1, nullptr);
        live.form->InitVTValue("n", &node);
    };
}

} // namespace

class TestLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    /// From 15000 within 10000...20000, and for a range from 14000 to 15000: what is held after the number told has met
    /// the limits.
    void theNodeDecides_data()
    {
        Columns<int, QStringList, Act, QString, QString>({"face", "definition", "act", "told", "held"});
        const auto row = [](const char *name, const QStringList &definition, const Act &act, const char *told,
                             const char *single, const char *range) {
            for (int face = 0; face < int(std::size(Faces)); ++face)
                QTest::addRow("%s, %s", Faces[face].Name, name)
                    << face << definition << act << QString(told) << QString(Faces[face].IsRange() ? range : single);
        };
        const Act nothing = Script("");
        // clang-format off
        row("definition", {"value=String:50000"}, nothing, "50000", "20000", "14000 20000");
        row("definition with a factor", {"displayScalingFactor=Double:0.5"}, nothing, "50000", "20000", "14000 15000");
        row("script's setter", {}, Script("n.%2(50000)"), "50000", "20000", "14000 20000");
        row("script's number", {}, Script("n.%1 = 50000"), "50000", "20000", "14000 20000");
        row("script's text", {}, Script("n.%1 = '50000'"), "50000", "20000", "14000 20000");
        row("script's range", {}, Script("n.setRange ? n.setRange(50000, 60000) : n.%2(60000)"), "60000", "20000", "19999 20000");
        row("setProperty", {}, Property("%1", 50000), "50000", "20000", "14000 20000");
        row("document", {}, Document("50000"), "50000", "20000", "14000 20000");
        row("changed definition", {}, Changed("%1", "50000"), "50000", "20000", "14000 20000");
        row("setMaximum", {}, Script("n.setMaximum(12000)"), "15000", "12000", "11999 12000");
        row("setMinimum", {}, Script("n.setMinimum(18000)"), "15000", "18000", "18000 18001");
        row("script's maximum", {}, Script("n.maximum = 12000"), "15000", "12000", "11999 12000");
        row("setProperty of the minimum", {}, Property("minimum", "18000"), "15000", "18000", "18000 18001");
        row("changed definition's maximum", {}, Changed("maximum", "12000"), "15000", "12000", "11999 12000");
        row("limits of an int node", {}, Init<ValueInt>(true), "15000", "18000", "18000 18001");
        row("limits of a 64-bit node", {}, Init<ValueInt64>(true), "15000", "18000", "18000 18001");
        row("limits of a double node", {}, Init<ValueDouble>(true), "15000", "18000", "18000 18001");
        row("a 64-bit node without limits", {}, Init<ValueInt64>(false), "50000", "15000", "14000 15000");
        row("a double node without limits", {}, Init<ValueDouble>(false), "50000", "15000", "14000 15000");
        row("no number as limit", {}, Script("n.maximum = NaN; n.minimum = NaN"), "50000", "15000", "14000 15000");
        row("no number from a script", {}, Script("n.%1 = NaN"), "50000", "15000", "14000 15000");
        row("infinity from a script", {}, Script("n.%1 = -Infinity"), "50000", "15000", "14000 15000");
        row("infinity from setProperty", {}, Property("%1", qInf()), "50000", "15000", "14000 15000");
        row("no number from a document", {}, Document("nan"), "50000", "10000", "14000 10001");
        row("infinity from a document", {}, Document("-inf"), "50000", "10000", "14000 10001");
        row("no number in the definition", {"value=String:nan"}, nothing, "50000", "10000", "14000 10001");
        // clang-format on
        QTest::newRow("DoubleSpinBox, setDisplayScalingFactor")
            << 1 << QStringList() << Script("n.setDisplayScalingFactor(0.5)") << "50000"
            << "20000";
        QTest::newRow("BandwidthEdit, setUnitScale")
            << 2 << QStringList() << Script("n.setUnitScale(1000)") << "50000000"
            << "10000000";
    }

    void theNodeDecides()
    {
        const auto [index, definition, act, told, held]
            = Fetch<int, QStringList, Act, QString, QString>({"face", "definition", "act", "told", "held"});
        const Face &face = Faces[index];
        LiveForm live(Control(face, Limits + definition));
        OrbelDelegate *n = live.Get("n");
        live.log.Watch("n", n);
        const QString field = face.Places.last().Field;
        act(live, face.Places.last().Property);
        const bool announced = QString(QTest::currentDataTag()).contains("document") && !face.IsRange();
        QCOMPARE(live.log.Take().count("valueChanged"), int(announced));
        QVERIFY(live.log.Seen().isEmpty() && !n->isModified());
        QCOMPARE(Held(live, face), held);

        live.form->EvaluateScript("n.setMinimum(0); n.setMaximum(1000000)");
        QCOMPARE(Held(live, face), held);
        const double shown = told.toDouble() * (live.Find<QLineEdit>(field) ? 1 : Factor(live));
        Type(live, field, FrequencyText::Plain(shown));
        QVERIFY2(live.log.Seen().contains(told + ')') && n->isModified(), "a change");
        QVERIFY(Held(live, face).endsWith(told));
    }

    void aRangeNeverStandsInverted_data()
    {
        const auto row = Columns<QString, int, QString, QString>({"script", "field", "typed", "held"});
        const char *narrowed = "n.setRange(500000, 500001); n.setMaximum(300000); n.setMaximum(1000000)";
        row("narrowed and widened, then the start", narrowed, 0, "500 k", "500000 500001");
        row("narrowed and widened, then the stop", narrowed, 1, "500 k", "299999 500000");
        row("raised and lowered, then the stop",
            "n.setRange(500000, 500001); n.setMinimum(700000); n.setMaximum(1000000); n.setMinimum(0)", 1, "500 k",
            "499999 500000");
        row("no room between the limits", "n.setMinimum(12000); n.setMaximum(12000)", 0, "15 k", "11999 12000");
        row("limits the wrong way round", "n.setMaximum(5000); n.setMinimum(6000)", 1, "1 k", "6000 6001");
    }

    void aRangeNeverStandsInverted()
    {
        QFETCH(QString, script);
        QFETCH(int, field);
        QFETCH(QString, typed);
        const Face &face = Faces[std::size(Faces) - 1];
        LiveForm live(Control(face, Limits));
        live.form->EvaluateScript("n.setMaximum(1000000)");
        for (const QString &line : script.split(';')) {
            live.form->EvaluateScript(line);
            const QStringList held = Held(live, face).split(' ');
            QVERIFY2(held.at(0).toLongLong() < held.at(1).toLongLong(), qPrintable(line + ": " + held.join(' ')));
        }
        Type(live, face.Places.at(field).Field, typed);
        QTEST(Held(live, face), "held");
    }

    /// However a script spells a frequency.
    void documentsHoldWholeHertz_data()
    {
        const auto row = Columns<Act, QString>({"act", "written"});
        row("a number of a script", Script("n.%1 = 2400000000"), "2400000000");
        row("the setter", Script("n.%2(2400000000)"), "2400000000");
        row("a text with an exponent", Script("n.%1 = '2.4e9'"), "2400000000");
        row("a text of a document", Document("2.4e9"), "2400000000");
        row("a fraction", Script("n.%1 = 2400000000.9"), "2400000000");
        row("a 64-bit number", Property("%1", qint64(9007199254740993)), "9007199254740993");
    }

    void documentsHoldWholeHertz()
    {
        const auto [act, written] = Fetch<Act, QString>({"act", "written"});
        for (const Face &face : Faces) {
            if (!IsFrequency(face))
                continue;
            LiveForm live(Control(face, {"value=String:15000", "maximum=String:1e18"}));
            act(live, face.Places.last().Property);
            const QString document = live.form->GetXmlString(false);
            QVERIFY2(document.contains('>' + written + '<'), qPrintable(document));
            live.log.Watch("n", live.Get("n"));
            live.form->SetXmlString(document);
            QCOMPARE(live.log.Take(), face.IsRange() ? QString() : "n.valueChanged(" + written + ')');
        }
    }

    /// Numbers that differ in the thirteenth digit, after an edit has left a double in the property.
    void neighboursAreTwoNumbers_data()
    {
        const auto row = Columns<Act>({"act"});
        row("typed", [](const LiveForm &live, const QString &number) { Type(live, "n", number); });
        row("setter",
            [](const LiveForm &live, const QString &number) { Script("n.setValue(" + number + ')')(live, ""); });
        row("document", [](const LiveForm &live, const QString &number) { Document(number)(live, "value"); });
        row("node", [](const LiveForm &live, const QString &number) {
            live.form->GetVTValue("n")->SetStringValue(number, nullptr);
        });
    }

    void neighboursAreTwoNumbers()
    {
        QFETCH(Act, act);
        const QStringList pairs[][2] = {{{"singleStep=Double:5e-7", "decimals=Int:7"}, {"1000000", "1000000.0000005"}},
            {{}, {"2000000000000", "2000000000001"}}};
        for (int i : {0, 1}) {
            const auto &[properties, numbers] = pairs[i];
            LiveForm live(Control(Faces[i + 1], properties));
            Type(live, "n", numbers.first());
            act(live, numbers.last());
            QCOMPARE(Held(live, Faces[i + 1]), numbers.last());
        }
    }
};

ORBEL_TEST_MAIN(TestLimits)
#include "tst_limits.moc"
