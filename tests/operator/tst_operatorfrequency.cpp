// Frequencies under an operator's hands in the scan settings of the examples; each run checks node, property, script
// log and document.

#include "exampleform.h"
#include "fieldnote.h"
#include "testmain.h"

#include <QLineEdit>
#include <QPushButton>

namespace
{

struct Scan : ExampleForm {
    Scan() : ExampleForm("scan.orbel", "/Scanner", {620, 560}) { }
    bool Documents(const QString &element) const { return form->GetXmlString(false).contains(element); }
};

} // namespace

class TestOperatorFrequency : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void theLockKeepsTheFrequencyInTheRange()
    {
        Scan scan;
        QVERIFY(XOperator::Show(scan.window.get()));
        auto *lock = scan.Find<QPushButton>("LockFrequency");
        QVERIFY(!lock->isVisible());
        auto *field = scan.Find<QLineEdit>("frequency");
        XOperator::Enter(field, "433.92", "Return");
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("433920000"));
        QCOMPARE(field->text(), QString("433.920 000 MHz"));
        QCOMPARE(scan.Property("frequency", "value"), QString("433920000"));
        auto *keep = scan.Find<QWidget>("keepInRange");
        XOperator::ClickAt(keep, {8, keep->height() / 2});
        QTRY_VERIFY(lock->isVisible() && lock->isChecked());
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("146000000"));
        QVERIFY(scan.Documents(">146000000</Frequency>"));
        XOperator::Enter(field, "433.92M", "Return");
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("146000000"));
        XOperator::Click(lock);
        QTRY_COMPARE(lock->toolTip(), QString("Lock frequency range"));
        QVERIFY(!lock->isChecked());
        XOperator::Enter(field, "433.92M", "Return");
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("433920000"));
        QCOMPARE(scan.Property("frequency", "FrequencyLock"), QString("false"));
        QCOMPARE(scan.Log(), QString("frequency 433920000,lock false,frequency 433920000"));
        QVERIFY(scan.Documents(">433920000</Frequency>") && scan.Documents("<KeepInRange>false</KeepInRange>"));
    }

    void theStartPushesTheStop()
    {
        Scan scan;
        QVERIFY(XOperator::Show(scan.window.get()));
        auto *start = scan.Find<QLineEdit>("range_StartFrequency");
        XOperator::Enter(start, "30 GHz", "Return");
        QTRY_COMPARE(FieldNote::TextOf(start), QString("above 26.499 999 999 GHz"));
        XOperator::Enter(start, "150", "Tab");
        auto *stop = scan.Find<QLineEdit>("range_StopFrequency");
        QTRY_COMPARE(stop->text(), QString("150.000 001 MHz"));
        QCOMPARE(scan.Node("Scan/Range_1"), QString("150000000"));
        QCOMPARE(scan.Property("range", "stopFrequency"), QString("150000001"));
        QCOMPARE(scan.Log(), QString("range 150000000 150000001"));
        QVERIFY(scan.Documents("<StartFrequency>150000000</StartFrequency>"));
        QVERIFY(scan.Documents("<StopFrequency>150000001</StopFrequency>"));
    }
};

ORBEL_TEST_MAIN(TestOperatorFrequency)
#include "tst_operatorfrequency.moc"
