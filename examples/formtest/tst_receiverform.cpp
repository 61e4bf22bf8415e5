// How a host tests a form: ../forms/receiver.orbel, with an operator and a device, and nobody before the screen.

#include <orbelparser/formtest.h>

#include <QtTest>

using Orbel::FormTest;
using Orbel::Session;

class TestReceiverForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsChangedIsSent()
    {
        FormTest form(Session::OpenFile(RECEIVER_FORM));
        form.Type("Station/Name", "Valley");
        form.Check("Receiver/Preamplifier");
        form.Click("applyButton");
        const Orbel::Applied sent = form.WaitForApplied();
        QCOMPARE(sent.Text(), QString("Station/Name: Hilltop -> Valley; Receiver/Preamplifier: off -> on"));
        QVERIFY(sent.Document.contains("<Preamplifier>on</Preamplifier>"));
        QCOMPARE(form.Changes(), QString());
    }

    void gainIsThereWithoutTheAutomatic()
    {
        FormTest form(Session::OpenFile(RECEIVER_FORM));
        QVERIFY(!form.IsShown("Receiver/Gain"));
        form.Check("Receiver/Agc", false);
        form.Enter("Receiver/Gain", "30");
        form.Click("defaultsButton");
        QVERIFY(!form.IsShown("Receiver/Gain"));
        QCOMPARE(form.Value("Receiver/Gain"), QVariant("20"));
    }

    void theFileNameFollowsWhatIsEntered()
    {
        FormTest form(Session::OpenFile(RECEIVER_FORM));
        form.Check("Recording/Enabled");
        form.Enter("Recording/Folder", "/data");
        form.Enter("Recording/Prefix", "test");
        QCOMPARE(form.Shown("fileName"), QString("/data/test-Hilltop.wav"));
        form.Undo();
        QCOMPARE(form.Shown("fileName"), QString("/data/rx-Hilltop.wav"));
    }

    void whatTheReceiverRefusesGoesBack()
    {
        FormTest form(Session::OpenFile(RECEIVER_FORM));
        form.Enter("Receiver/Antenna", "ANT 9");
        form.Apply();
        form.WaitForApplied();
        form->Refuse("Receiver/Antenna", "there is no such antenna");
        QCOMPARE(form.Shown("Receiver/Antenna"), QString("ANT 1"));
        QCOMPARE(form.Mark("Receiver/Antenna"), RowLabel::Refused);
        QVERIFY(form.ToolTip("Receiver/Antenna").contains("there is no such antenna"));
    }

    void aReportLeavesTheOperatorsTextAlone()
    {
        FormTest form(Session::OpenFile(RECEIVER_FORM));
        form.Type("Receiver/Antenna", "ANT 2");
        form.Report("Receiver/Antenna", "ANT 3");
        QCOMPARE(form.Shown("Receiver/Antenna"), QString("ANT 2"));
        QCOMPARE(form.Mark("Receiver/Antenna"), RowLabel::Differs);
        form.Press("Escape");
        QCOMPARE(form.Shown("Receiver/Antenna"), QString("ANT 3"));
    }

    void withoutAReceiverNothingIsTaken()
    {
        FormTest form(Session::OpenFile(RECEIVER_FORM));
        form->Lock("no connection");
        QVERIFY(!form.CanEdit("Station/Name"));
        form->Unlock();
        QVERIFY(form.CanEdit("Station/Name"));
    }
};

QTEST_MAIN(TestReceiverForm)
#include "tst_receiverform.moc"
