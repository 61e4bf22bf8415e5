// The main job on a real window: an operator edits a form, its script reacts, Apply hands out the parameter document.

#include "exampleform.h"
#include "testmain.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace forms;

namespace
{

/// The receiver form with what it hands out.
struct Receiver : ExampleForm {
    Receiver() : ExampleForm("receiver.orbel", "/Receiver", {600, 900})
    {
        QObject::connect(form.data(), &KV218::OrbelFormular::si_parametersModified,
            [this] { documents << form->GetXmlString(true); });
    }

    QStringList documents;
};

} // namespace

class TestOperator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void applyHandsOutWhatWasEdited()
    {
        Receiver receiver;
        QVERIFY(XOperator::Show(receiver.window.get()));
        auto *station = receiver.Find<QLineEdit>("stationName");
        XOperator::Enter(station, "Summit 7", "End");
        QTRY_COMPARE(station->text(), QString("Summit 7"));
        QVERIFY(Delegate(receiver.form, "stationName")->isModified());

        auto *preamplifier = receiver.Find<QCheckBox>("preamplifier");
        XOperator::Click(preamplifier);
        QTRY_VERIFY(preamplifier->isChecked());
        QCOMPARE(receiver.form->GetVTValue("Station/Name")->GetStringValue(), QString("Summit 7"));

        QVERIFY(receiver.documents.isEmpty());
        auto *apply = receiver.Find<QPushButton>("applyButton");
        QVERIFY(apply->isEnabled());
        XOperator::Click(apply);
        QTRY_COMPARE(receiver.documents.size(), 1);
        QVERIFY2(receiver.documents.first().contains("<Name>Summit 7</Name>"), qPrintable(receiver.documents.first()));
        QVERIFY(receiver.documents.first().contains("<Preamplifier>on</Preamplifier>"));
        QVERIFY2(!receiver.documents.first().contains("Antenna"), "nobody touched the antenna");
        QVERIFY(!apply->isEnabled());
    }

    void theScriptReacts()
    {
        Receiver receiver;
        QVERIFY(XOperator::Show(receiver.window.get()));
        auto *gain = receiver.Find<QLineEdit>("gain");
        QVERIFY(gain->isHidden());
        XOperator::Click(receiver.Find<QCheckBox>("agc"));
        QTRY_VERIFY(gain->isVisible());
        QVERIFY(receiver.Find<QLabel>("labelgain")->isVisible());

        auto *record = receiver.Find<QCheckBox>("recording");
        XOperator::Click(record);
        auto *prefix = receiver.Find<QLineEdit>("prefix");
        QTRY_VERIFY(prefix->isVisible());
        XOperator::Enter(prefix, "north", "Return");
        QTRY_COMPARE(receiver.Find<QLabel>("fileName")->text(), QString("captures/north-Hilltop.wav"));
        // Return pushes the parameters out at once.
        QTRY_COMPARE(receiver.documents.size(), 1);
        QVERIFY(receiver.documents.first().contains("<Prefix>north</Prefix>"));

        XOperator::Click(receiver.Find<QPushButton>("defaultsButton"));
        QTRY_VERIFY(gain->isHidden());
    }
};

ORBEL_TEST_MAIN(TestOperator)
#include "tst_operator.moc"
