// The main job on a real window: an operator edits a form, its script reacts, Apply hands out the parameter document.

#include "forms.h"
#include "testmain.h"
#include "xoperator.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace forms;

namespace
{

/// The receiver form of the examples in a window, with what it hands out.
struct Receiver {
    Receiver()
    {
        form = Form(KV218::OrbelParser().ParseORBELFile(ORBEL_EXAMPLES_DIR "/forms/receiver.orbel"));
        form->CreateValueTree("/Receiver");
        form->CreateGUI(true);
        window.reset(form->GetGUI());
        window->resize(600, 900);
        QObject::connect(form.data(), &KV218::OrbelFormular::si_parametersModified,
            [this] { documents << form->GetXmlString(true); });
    }

    template <class Widget> Widget *Find(const QString &name) const { return window->findChild<Widget *>(name); }

    Form form;
    std::unique_ptr<QWidget> window;
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
        XOperator::Click(station);
        QTRY_VERIFY(station->hasFocus());
        XOperator::Press("ctrl+a");
        XOperator::Type("Summit 7");
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
        XOperator::Click(prefix);
        QTRY_VERIFY(prefix->hasFocus());
        XOperator::Press("ctrl+a");
        XOperator::Type("north");
        XOperator::Press("Return");
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
