// The node decides about a number: whatever sets a value or a limit, nothing counts as the operator's change, and what
// the operator types next does. That screen, property and document agree with the node is seen by the random walk.

#include "frequencytext.h"
#include "liveform.h"
#include "valuenumeric.h"

namespace
{

/// A control "n" in one of its faces: its field, the property and the element of its value, and its nodes.
struct NumberFace {
    const char *Name;
    QString Class;
    QStringList Properties;
    QString Field = "n", Property = "value", Element = "n";
    QStringList Nodes{"n"};
    bool IsRange() const { return Nodes.size() > 1; }
};

const NumberFace Faces[] = {
    {"SpinBox", "SpinBox", {}},
    {"DoubleSpinBox", "DoubleSpinBox", {"decimals=Int:1"}},
    {"BandwidthEdit", "BandwidthEdit", {}},
    {"plain FrequencyEdit", "FrequencyEdit", {}},
    {"main FrequencyEdit", "FrequencyEdit", {"MainFreqEdit=Bool:true"}, "frequency"},
    {"FrequencyRangeEdit", "FrequencyRangeEdit",
        {"startFrequency=String:14000", "startFrequencyParameterXmlTag=String:From",
            "stopFrequencyParameterXmlTag=String:To"},
        "n_StopFrequency", "stopFrequency", "To", {"n_1", "n_2"}},
};
const QStringList Limits{"value=String:15000", "minimum=String:10000", "maximum=String:20000"};

QString ControlOf(const NumberFace &face, const QStringList &more)
{
    QStringList properties = face.Properties + more;
    properties.replaceInStrings(QRegularExpression("^value="), face.Property + '=');
    return Labelled("n", face.Class, properties);
}

QString Held(const NumberFace &face)
{
    QStringList held;
    for (const QString &name : face.Nodes)
        held << Tree::Instance()->GetNode("/Form/" + name)->GetStringValue();
    return held.join(' ');
}

template <class Node> void Init(const LiveForm &live, const QString &limits)
{
    Node node("n");
    if (!limits.isEmpty())
        node.SetMinMax(limits.section(' ', 0, 0).toInt(), limits.section(' ', 1).toInt(), 1, nullptr);
    live.form->InitVTValue("n", &node);
}

/// Sets something on the road that stands before the colon. %1 is the property of the value, %2 its setter.
void Do(const LiveForm &live, const NumberFace &face, const QString &act)
{
    const QString setter = "set" + face.Property.left(1).toUpper() + face.Property.mid(1);
    const QString road = act.section(':', 0, 0);
    const QString text = act.section(':', 1).replace("%1", face.Property).replace("%2", setter);
    const QString name = text.section('=', 0, 0), value = text.section('=', 1);
    if (road == "script")
        live.form->EvaluateScript(text);
    else if (road == "document")
        live.form->SetXmlString(QString("<Parameters><%1>%2</%1></Parameters>").arg(face.Element, text));
    else if (road == "property")
        live.Get("n")->setProperty(name.toLatin1(), value.toDouble());
    else if (road == "definition")
        live.form->SetChangedORBEL(Definition(Widget("n", "", {name + "=String:" + value})));
    else if (road == "int")
        Init<ValueInt>(live, text);
    else if (road == "int64")
        Init<ValueInt64>(live, text);
    else if (road == "double")
        Init<ValueDouble>(live, text);
}

} // namespace

class TestLimits : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    /// From 15000 within 10000...20000, and for a range from 14000 to 15000: what is held after the number told has met
    /// the limits. A document's number is announced as it was told.
    void theNodeDecides_data()
    {
        Columns<int, QStringList, QString, QString, QString>({"face", "definition", "act", "told", "held"});
        const auto row = [](const QStringList &definition, const char *act, const char *told, const char *single,
                             const char *range) {
            for (int face = 0; face < int(std::size(Faces)); ++face)
                QTest::addRow("%s %s %s", Faces[face].Name, act, qPrintable(definition.value(0)))
                    << face << definition << QString(act) << QString(told) << (Faces[face].IsRange() ? range : single);
        };
        row({"value=String:50000"}, "", "50000", "20000", "14000 20000");
        row({"value=String:nan"}, "", "50000", "15000", "14000 15000");
        row({"displayScalingFactor=Double:0.5"}, "", "50000", "20000", "14000 15000");
        for (const char *act : {"script:n.%2(50000)", "script:n.%1 = 50000", "script:n.%1 = '50000'",
                 "property:%1=50000", "document:50000", "definition:%1=50000"})
            row({}, act, "50000", "20000", "14000 20000");
        row({}, "script:n.setRange ? n.setRange(50000, 60000) : n.%2(60000)", "60000", "20000", "19999 20000");
        for (const char *act : {"script:n.setMaximum(12000)", "script:n.maximum = 12000", "property:maximum=12000",
                 "definition:maximum=12000"})
            row({}, act, "15000", "12000", "11999 12000");
        for (const char *act :
            {"script:n.setMinimum(18000)", "int:18000 19000", "int64:18000 19000", "double:18000 19000"})
            row({}, act, "15000", "18000", "18000 18001");
        for (const char *act : {"int64:", "double:", "script:n.maximum = NaN; n.minimum = NaN", "script:n.%1 = NaN",
                 "script:n.%1 = -Infinity", "property:%1=inf",
                 "script:n.setDisplayScalingFactor(NaN); n.setMinimum(10000)"})
            row({}, act, "50000", "15000", "14000 15000");
        for (const char *act : {"document:nan", "document:-inf"})
            row({}, act, "50000", "10000", "14000 10001");
        // clang-format off
        QTest::newRow("DoubleSpinBox with a new factor") << 1 << QStringList() << "script:n.setDisplayScalingFactor(0.5)" << "50000" << "20000";
        QTest::newRow("BandwidthEdit with a new scale") << 2 << QStringList() << "script:n.setUnitScale(1000)" << "50000000" << "10000000";
        // clang-format on
    }

    void theNodeDecides()
    {
        const auto [index, definition, act, told, held]
            = Fetch<int, QStringList, QString, QString, QString>({"face", "definition", "act", "told", "held"});
        const NumberFace &face = Faces[index];
        LiveForm live(ControlOf(face, Limits + definition));
        live.log.Watch("n", live.Get("n"));
        Do(live, face, act);
        const QString announced = act == "document:50000" ? "n.valueChanged(50000)" : "n.valueChanged(0)";
        QCOMPARE(live.log.Take(), act.startsWith("document") && !face.IsRange() ? announced : QString());
        QVERIFY(!live.form->GetSheet().isModified());
        QCOMPARE(Held(face), held);

        live.form->EvaluateScript("n.setMinimum(0); n.setMaximum(1000000)");
        QCOMPARE(Held(face), held);
        const double factor
            = face.Class.startsWith("Frequency") ? 1 : live.Get("n")->GetDouble("displayScalingFactor", 1);
        live.Enter(face.Field, Orbel::FrequencyText::Plain(told.toDouble() * factor));
        QVERIFY2(live.log.Seen().contains(told + ')') && live.Get("n")->isModified(), "a change");
        QVERIFY(Held(face).endsWith(told));
    }

    void aRefusedNumberLeavesWhatTheNodeHeldLast()
    {
        LiveForm live(ControlOf(Faces[1], Limits));
        live.form->EvaluateScript("n.setValue(17000)");
        delete live.form->GetVTValue("n");
        live.form->EvaluateScript("n.setValue(NaN)");
        QCOMPARE(live.Get("n")->property("value").toString(), QString("17000"));
        QVERIFY(live.form->GetXmlString(false).contains(">17000<"));
    }
};

ORBEL_TEST_MAIN(TestLimits)
#include "tst_limits.moc"
