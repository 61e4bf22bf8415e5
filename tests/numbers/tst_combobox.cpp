// Combo box: value texts, display names and items, and what operator, script, node and document each cause.

#include "liveform.h"
#include "orbelcombobox.h"
#include "testmain.h"
#include "tree.h"
#include "valueselection.h"

#include <QtTest>

using namespace KV218;
using namespace forms;

namespace
{

QString Enum(const QString &name, const QString &rows)
{
    QString text = "<Enum name='" + name + "'>";
    for (const QString &row : rows.split(' ', Qt::SkipEmptyParts))
        text += QString("<EnumValue><DisplayName>%1</DisplayName><Value>%2</Value></EnumValue>")
                    .arg(row.section('=', 0, 0), row.section('=', 1));
    return text + "</Enum>";
}

/// A form with one combo box "c" over the enumeration "modes", whose rows are "display=value".
struct Choice {
    explicit Choice(const QString &rows, const QStringList &properties = {"enumName=String:modes"})
        : form(Bind(Definition(Widget("c", "ComboBox", properties + QStringList{"generateParameterXml=Bool:true"}),
            "<Enums>" + Enum("modes", rows) + "</Enums>")))
    {
        form->CreateGUI(true);
        window.reset(form->GetGUI());
        window->show();
        combo = qobject_cast<OrbelComboBox *>(Delegate(form, "c"));
        box = window->findChild<QComboBox *>("c");
        node = dynamic_cast<ValueSelection *>(form->GetVTValue("c"));
        log.Watch("c", combo);
    }
    QString Found() const { return combo->property("currentValue").toString() + ' ' + box->currentText(); }

    Form form;
    std::unique_ptr<QWidget> window;
    OrbelComboBox *combo = nullptr;
    QComboBox *box = nullptr;
    ValueSelection *node = nullptr;
    EventLog log;
};

} // namespace

class TestComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void scriptChoice_data()
    {
        QTest::addColumn<QString>("rows");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("found");
        const QString numbers("Low=-5 Mid=2.5 High=10"), words("Am=a Fm=f Cw=c");
        QTest::newRow("unknown in the definition is the first") << words << ""
                                                                << "a Am";
        QTest::newRow("known") << words << "c.setCurrentValue('f')"
                               << "f Fm";
        QTest::newRow("first despite its name") << words << "c.setFirstValueAsCurrent('c')"
                                                << "c Cw";
        QTest::newRow("a number becomes the row not below it") << numbers << "c.setCurrentValue('3')"
                                                               << "10 High";
        QTest::newRow("an unknown text counts as 0") << numbers << "c.setCurrentValue('x')"
                                                     << "2.5 Mid";
        QTest::newRow("cleared counts as 0") << numbers << "c.clearCurrentValue()"
                                             << "2.5 Mid";
        QTest::newRow("cleared among words") << words << "c.setCurrentValue('f'); c.clearCurrentValue()"
                                             << "a Am";
        QTest::newRow("a number above all rows stays without effect") << numbers << "c.setCurrentValue('11')"
                                                                      << "11 Low";
        QTest::newRow("rows without numbers count from 0") << words << "c.setCurrentValue('1.5')"
                                                           << "c Cw";
        QTest::newRow("equal value texts") << "Am=a Fm=f Bm=f"
                                           << "c.setCurrentValue('f')"
                                           << "f Fm";
        QTest::newRow("no rows") << ""
                                 << "c.setCurrentValue('3'); c.clearCurrentValue()"
                                 << " ";
    }

    void scriptChoice()
    {
        QFETCH(QString, rows);
        QFETCH(QString, script);
        Choice choice(rows, {"enumName=String:modes", "currentValue=String:unknown"});
        choice.form->EvaluateScript(script);
        QTEST(choice.Found(), "found");
        QCOMPARE(choice.log.Take(), QString());
        QVERIFY(!choice.combo->isModified());
        const QString document = choice.form->GetXmlString(false);
        QVERIFY(document.contains("<c>" + choice.combo->property("currentValue").toString() + "</c>"));
    }

    void itemsOfRows()
    {
        const ContextTranslator translator("modes");
        Choice choice("Am=a Fm=2.5");
        QCOMPARE(choice.box->itemText(1), QString("modes:Fm"));
        QCOMPARE(choice.node->GetItemIndex(0)->GetValue(), 0.0);
        QCOMPARE(choice.node->GetItem(2L)->GetValue(), 2.5);
        QCOMPARE(choice.combo->itemValue(1) + choice.combo->itemValue(-1) + choice.combo->itemValue(2), QString("2.5"));
        choice.form->EvaluateScript("c.setCurrentValue(c.itemValue(c.firstIndexOfValue('2.5')))");
        QCOMPARE(choice.combo->getCurrentValue(), 2.5);
    }

    void otherChoices_data()
    {
        QTest::addColumn<QString>("rows");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("found");
        QTest::newRow("another row") << "Am=a Fm=f Cw=c" << 2 << "c.currentValueChanged(c)"
                                     << "c Cw";
        QTest::newRow("the chosen one") << "Am=a Fm=f Cw=c" << 0 << ""
                                        << "a Am";
        QTest::newRow("equal display names are the first") << "Am=a Fm=f Fm=c" << 2 << "c.currentValueChanged(f)"
                                                           << "f Fm";
        QTest::newRow("equal value texts tell nothing") << "Am=a Fm=a" << 1 << ""
                                                        << "a Fm";
    }

    void otherChoices()
    {
        QFETCH(QString, rows);
        QFETCH(int, position);
        QFETCH(QString, told);
        Choice choice(rows);
        QVERIFY(QTest::qWaitForWindowActive(choice.window.get()));
        choice.form->EvaluateScript("c.setFocus()");
        for (int i = 0; i < position; ++i)
            QTest::keyClick(choice.box, Qt::Key_Down);
        QCOMPARE(choice.log.Take().section(' ', -1), told);
        QTEST(choice.Found(), "found");
        QCOMPARE(choice.combo->isModified(), !told.isEmpty());

        Choice other(rows);
        other.node->SelectIndex(position, nullptr);
        QCOMPARE(other.log.Take(), told);
    }

    void hostChoice()
    {
        Choice choice("Low=1 Mid=5 High=9");
        QVERIFY(choice.combo->setMinValueGreaterThanOrEqualTo(1.5));
        QCOMPARE(choice.log.Take() + choice.Found(), QString("c.currentValueChanged(5)5 Mid"));
        QVERIFY(!choice.combo->setMinValueGreaterThanOrEqualTo(9.5));
        QCOMPARE(choice.log.Take() + choice.Found(), QString("5 Mid"));
        choice.node->DeleteItems(choice.combo);
        choice.node->AddItem("Own", 3, 1, nullptr);
        QCOMPARE(choice.log.Take() + choice.Found(), QString("c.currentValueChanged(1)1 Own"));
    }

    void documents()
    {
        Choice choice("Low=1 Mid=5", {"enumName=String:modes", "unit=String:dB"});
        choice.form->SetXmlString("<Parameters><c>2</c></Parameters>");
        QCOMPARE(choice.log.Take() + choice.Found(), QString("c.currentValueChanged(2)5 Mid"));
        choice.form->SetXmlString("<Parameters><c>5</c></Parameters>");
        QCOMPARE(choice.log.Take(), QString("c.currentValueChanged(5)"));
        QVERIFY(!choice.combo->isModified());
        QVERIFY(choice.form->GetXmlString(false).contains("<c unit=\"dB\">5</c>"));
    }

    void changedDefinition_data()
    {
        QTest::addColumn<QString>("enums");
        QTest::addColumn<QString>("found");
        QTest::newRow("the name still exists") << Enum("modes", "New=n Fm=x") << "f Fm";
        QTest::newRow("the name is gone") << Enum("modes", "New=n") << "f New";
        QTest::newRow("another enumeration") << Enum("others", "Own=o Fm=y") << "f Fm";
        QTest::newRow("no rows") << Enum("modes", "") << "f ";
    }

    void changedDefinition()
    {
        QFETCH(QString, enums);
        Choice choice("Am=a Fm=f");
        choice.form->EvaluateScript("c.setCurrentValue('f')");
        if (enums.contains("others"))
            choice.form->EvaluateScript("c.setEnumName('others')");
        choice.form->SetChangedORBEL("<ZkParamGui><Enums>" + enums + "</Enums></ZkParamGui>");
        QTEST(choice.Found(), "found");
        QCOMPARE(choice.log.Take(), QString());
        choice.form->EvaluateScript("c.setEnumName('unknown')");
        choice.form->SetChangedORBEL("<ZkParamGui/>");
        QTEST(choice.Found(), "found");
    }

    void withoutEnumeration()
    {
        Choice choice("Am=a", {"enumName=String:unknown", "currentValue=String:kept"});
        QVERIFY(!choice.node && choice.box->count() == 0);
        QCOMPARE(choice.combo->itemValue(0), QString());
        QCOMPARE(choice.combo->firstIndexOfValue("a"), -1);
        QCOMPARE(choice.combo->getCurrentValue(), 0.0);
        QVERIFY(!choice.combo->setMinValueGreaterThanOrEqualTo(0));
        choice.form->SetChangedORBEL("<ZkParamGui/>");
        QVERIFY(choice.form->GetXmlString(false).contains("<c>kept</c>"));
    }

    void tooltips()
    {
        QCOMPARE(Choice("").box->toolTip(), QString("c"));
        QCOMPARE(Choice("", {"labelText=String:label"}).box->toolTip(), QString("label"));
        QCOMPARE(Choice("", {"labelText=String:label", "toolTip=String:own"}).box->toolTip(), QString("own"));
    }

    void ends()
    {
        for (const char *signal : {"c.currentValueChanged", "node"}) {
            Choice choice("Am=a Fm=f");
            choice.log.Watch("node", choice.node);
            choice.log.On(signal, [&] { choice.form.reset(); });
            choice.node->SelectIndex(1, nullptr);
            QVERIFY(!choice.form);
        }
        Choice choice("Am=a Fm=f");
        Tree::Instance()->RemoveNode("/Form/c");
        choice.window.reset();
        choice.form->EvaluateScript("c.setCurrentValue('f'); c.setFocus()");
        QVERIFY(choice.form->GetXmlString(false).contains("<c>f</c>"));
    }
};

ORBEL_TEST_MAIN(TestComboBox)
#include "tst_combobox.moc"
