// Frequencies under an operator's hands in the scan settings of the examples; each run checks node, property, script
// log and document.

#include "forms.h"
#include "testmain.h"
#include "tree.h"
#include "valuebase.h"
#include "xoperator.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScriptValue>
#include <QtTest>

using namespace forms;

namespace
{

/// The scan settings in a window, with what their script prints.
struct Scan {
    Scan()
    {
        form = Form(KV218::OrbelParser().ParseORBELFile(ORBEL_EXAMPLES_DIR "/forms/scan.orbel"));
        form->CreateValueTree("/Scanner");
        form->CreateGUI(true);
        window.reset(form->GetGUI());
        window->resize(620, 560);
    }

    template <class Control> Control *Find(const QString &name) const { return window->findChild<Control *>(name); }
    QString Node(const QString &path) const { return Tree::Instance()->GetNode("/Scanner/" + path)->GetStringValue(); }
    QString Property(const QString &widget, const char *name) const
    {
        return Delegate(form, widget)->property(name).toString();
    }
    QString Log() const { return form->GetScriptValues().value("log").toString(); }
    bool Documents(const QString &element) const { return form->GetXmlString(false).contains(element); }

    Form form;
    std::unique_ptr<QWidget> window;
};

/// The middle of a character of a field that shows its text at the right.
QPoint Character(const QLineEdit *field, int position)
{
    const QPoint middle(0, field->height() / 2);
    for (int x = 0; x < field->width(); ++x) {
        if (const_cast<QLineEdit *>(field)->cursorPositionAt(middle + QPoint(x, 0)) == position + 1)
            return middle + QPoint(x - 2, 0);
    }
    return middle;
}

void Focus(QWidget *field)
{
    XOperator::Click(field);
    QTRY_VERIFY(field->hasFocus());
}

} // namespace

class TestOperatorFrequency : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void theWheelTunesTheThirdDigit()
    {
        Scan scan;
        QVERIFY(XOperator::Show(scan.window.get()));
        auto *field = scan.Find<QLineEdit>("frequency");
        Focus(field);
        XOperator::ClickAt(field, Character(field, 2), 4);
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("146500000"));
        XOperator::ClickAt(field, Character(field, 2), 5);
        XOperator::ClickAt(field, Character(field, 2), 5);
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("144500000"));
        QCOMPARE(scan.Property("frequency", "value"), QString("144500000"));
        QCOMPARE(scan.Log(), QString("frequency 146500000,frequency 145500000,frequency 144500000"));
        QVERIFY(scan.Documents("<Frequency unit=\"Hz\">144500000</Frequency>"));
    }

    void aFrequencyIsTyped()
    {
        Scan scan;
        QVERIFY(XOperator::Show(scan.window.get()));
        auto *field = scan.Find<QLineEdit>("frequency");
        Focus(field);
        XOperator::Type("433.92M");
        XOperator::Press("Return");
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("433920000"));
        QTRY_COMPARE(field->text(), QString("433.920 000 MHz"));
        QCOMPARE(scan.Property("frequency", "value"), QString("433920000"));
        QCOMPARE(scan.Log(), QString("frequency 433920000"));
        QVERIFY(scan.Documents(">433920000</Frequency>"));
    }

    void theLockKeepsTheFrequencyInTheRange()
    {
        Scan scan;
        QVERIFY(XOperator::Show(scan.window.get()));
        auto *lock = scan.Find<QPushButton>("LockFrequency");
        QVERIFY(!lock->isVisible());
        auto *field = scan.Find<QLineEdit>("frequency");
        Focus(field);
        XOperator::Type("433.92M");
        XOperator::Press("Return");
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("433920000"));
        auto *keep = scan.Find<QWidget>("keepInRange");
        XOperator::ClickAt(keep, {8, keep->height() / 2});
        QTRY_VERIFY(lock->isVisible() && lock->isChecked());
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("146000000"));
        QVERIFY(scan.Documents(">146000000</Frequency>"));
        Focus(field);
        XOperator::Type("433.92M");
        XOperator::Press("Return");
        QTRY_COMPARE(scan.Node("Scan/Frequency"), QString("146000000"));
        XOperator::Click(lock);
        QTRY_COMPARE(lock->toolTip(), QString("Lock frequency range"));
        QVERIFY(!lock->isChecked());
        Focus(field);
        XOperator::Type("433.92M");
        XOperator::Press("Return");
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
        Focus(start);
        XOperator::Press("ctrl+a");
        XOperator::Type("150M");
        XOperator::Press("Tab");
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
