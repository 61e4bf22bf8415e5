// Combo box: value texts, display names and items, and what operator, script, node and document each cause.

#include "liveform.h"
#include "orbelcombobox.h"
#include "valueselection.h"

namespace
{

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

class TestComboBox : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void scriptChoice_data()
    {
        const auto row = Columns<QString, QString, QString>({"rows", "script", "found"});
        const QString numbers("Low=-5 Mid=2.5 High=10"), words("Am=a Fm=f Cw=c");
        row("unknown in the definition is the first", words, "", "|a|Am");
        row("known", words, "c.setCurrentValue('f')", "|f|Fm");
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

    void operatorsChoice_data()
    {
        const auto row = Columns<QString, QString>({"rows", "found"});
        row("another row", "Am=a Fm=f", "c.currentValueChanged(f)|f|Fm");
        row("of equal names the first", "Fm=f Cw=c Fm=c", "c.currentValueChanged(f)|f|Fm");
        row("an equal value text tells nothing", "Am=a Fm=a", "|a|Fm");
    }

    void operatorsChoice()
    {
        QFETCH(QString, rows);
        Choice choice(rows);
        QVERIFY(QTest::qWaitForWindowActive(choice.window.get()));
        choice.form->EvaluateScript("c.setCurrentValue('c'); c.setFocus()");
        choice.log.Take();
        QTest::keyClick(choice.box, rows.startsWith("Fm") ? Qt::Key_End : Qt::Key_Down);
        QTEST(choice.Found(), "found");
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

ORBEL_TEST_MAIN(TestComboBox)
#include "tst_combobox.moc"
