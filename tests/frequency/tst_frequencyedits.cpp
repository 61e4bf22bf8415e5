// The frequency and the range of a form: both faces, the lock, the repair of ranges, and their documents.

#include "liveform.h"
#include "testmain.h"

#include "orbelfrequencyedit.h"
#include "orbelfrequencyrangeedit.h"
#include "tree.h"
#include "vcminifrequency.h"

#include <QtTest>

using namespace KV218;

namespace
{

const QStringList Usable{"visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true"};

QString Frequency(const QStringList &more = {"parameterXmlTag=String:Frequency"})
{
    return forms::Widget("f", "FrequencyEdit", Usable + QStringList{"value=String:145500000"} + more);
}

QString Range(const QStringList &more = {})
{
    return forms::Widget("r", "FrequencyRangeEdit",
        Usable
            + QStringList{"startFrequency=String:10000", "stopFrequency=String:20000",
                "startFrequencyParameterXmlTag=String:From", "stopFrequencyParameterXmlTag=String:To"}
            + more);
}

} // namespace

class TestFrequencyEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void theFormOfTheControl_data()
    {
        QTest::addColumn<QStringList>("properties");
        QTest::addColumn<bool>("mainForm");
        const QString tag = "parameterXmlTag=String:";
        QTest::newRow("called Frequency") << QStringList{tag + "Rx/Frequency"} << true;
        QTest::newRow("another spelling") << QStringList{tag + "frequency"} << false;
        QTest::newRow("called otherwise") << QStringList{tag + "Step"} << false;
        QTest::newRow("main form wanted") << QStringList{tag + "Step", "MainFreqEdit=Bool:true"} << true;
        QTest::newRow("main form refused") << QStringList{tag + "Frequency", "MainFreqEdit=Bool:false"} << false;
    }
    void theFormOfTheControl()
    {
        QFETCH(QStringList, properties);
        QFETCH(bool, mainForm);
        LiveForm live(Frequency(properties));
        QCOMPARE(live.Find("FrequencyControl") != nullptr, mainForm);
        QCOMPARE(live.Find("f") != nullptr, !mainForm);
        auto *field = mainForm ? live.Find<QLineEdit>("frequency") : live.Find<QLineEdit>("f");
        QCOMPARE(field->text(), QString("145.500 000 MHz"));
    }

    void anEditReachesNodePropertyAndSignals()
    {
        for (const QString tag : {"Frequency", "Step"}) {
            LiveForm live(Frequency({"parameterXmlTag=String:" + tag}));
            auto *f = live.Get<OrbelFrequencyEdit>("f");
            live.log.Watch("f", f);
            auto *node = dynamic_cast<ValueDouble *>(f->GetVTValue());
            node->SetValue(1000000.9, nullptr);
            QCOMPARE(live.log.Take(), QString("f.valueChanged(1000000) f.editingFinished()"));
            QCOMPARE(f->property("value"), QVariant(qint64(1000000)));
            QVERIFY(f->isModified());
            node->SetValue(1000000.2, nullptr);
            f->setValue(7000);
            f->setProperty("minimum", 8000);
            f->setUnitScale("kHz");
            f->autosetUnitScale();
            QCOMPARE(live.log.Take(), QString());
            QCOMPARE(node->GetValue(), 8000.0);
            QCOMPARE(f->property("value").toInt(), 8000);
            live.form->SetXmlString("<Parameters><" + tag + ">abc</" + tag + "></Parameters>");
            QCOMPARE(live.log.Take(), QString("f.valueChanged(0)"));
            QCOMPARE(f->property("value").toString(), QString("abc"));
            QVERIFY(live.form->GetXmlString(false).contains("<" + tag + ">abc</" + tag + ">"));
            live.form->SetXmlString("<Parameters><" + tag + ">90000</" + tag + "></Parameters>");
            QCOMPARE(node->GetValue(), 90000.0);
        }
    }

    void typingMarksThePlainFormAtOnceOnly()
    {
        LiveForm plain(Frequency({"parameterXmlTag=String:Step"}));
        QTest::keyClicks(plain.Find("f"), "1");
        QVERIFY(plain.form->GetSheet().isModified());
        plain.Get("f")->forceFinishEditing();
        LiveForm main(Frequency(), true, "/Main");
        QTest::keyClicks(main.Find("frequency"), "1");
        QVERIFY(!main.form->GetSheet().isModified());
        main.Get("f")->forceFinishEditing();
        QCOMPARE(main.Find<QLineEdit>("frequency")->text(), QString("1"));
    }

    void theLockWaitsForTheScript()
    {
        LiveForm live(Frequency());
        auto *f = live.Get<OrbelFrequencyEdit>("f");
        live.log.Watch("f", f);
        auto *lock = live.Find<QPushButton>("LockFrequency");
        QVERIFY(!lock->isVisible());
        f->setVisible(false);
        f->setVisible(true);
        QVERIFY(!lock->isVisible());
        f->setProperty("FrequencyLock", false);
        QVERIFY(lock->isVisible());
        QCOMPARE(lock->toolTip(), QString("Lock frequency range"));
        const qint64 open = lock->icon().cacheKey();
        QTest::mouseClick(lock, Qt::LeftButton);
        QCOMPARE(live.log.Take(), QString("f.si_lockButtonToggled(true)"));
        QCOMPARE(lock->toolTip(), QString("Lock frequency range"));
        QCOMPARE(lock->icon().cacheKey(), open);
        f->setProperty("FrequencyLock", true);
        QCOMPARE(lock->toolTip(), QString("Unlock frequency range"));
        QVERIFY(lock->icon().cacheKey() != open);
        f->setVisible(false);
        QVERIFY(lock->isHidden());
        f->EnableInput(false, true);
        QVERIFY(lock->isEnabled());
        f->EnableInput(false, false);
        QVERIFY(!lock->isEnabled());
        QCOMPARE(live.log.Take(), QString());
    }

    void lockedFromTheStart_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("freed");
        QTest::newRow("read-only") << "readOnly=Bool:true"
                                   << "readOnly";
        QTest::newRow("disabled") << "enabled=Bool:false"
                                  << "enabled";
    }
    void lockedFromTheStart()
    {
        QFETCH(QString, name);
        QFETCH(QString, freed);
        LiveForm live(Frequency({"parameterXmlTag=String:Frequency", name}));
        auto *control = live.Find<VCFrequency>("FrequencyControl");
        QVERIFY(control->GetTuneButton() && !control->GetFrequencyButtonCtrl()->isEnabled());
        QVERIFY(!control->GetHistoryButtonCtrl()->isEnabled());
        QVERIFY(live.Find<QLineEdit>("frequency")->isReadOnly());
        live.Get("f")->setProperty(freed.toLatin1(), freed == "enabled");
        QVERIFY(control->GetHistoryButtonCtrl()->isEnabled());
        QVERIFY(!live.Find<QLineEdit>("frequency")->isReadOnly());
    }

    void theRangeRepairsItself_data()
    {
        QTest::addColumn<QString>("moved");
        QTest::addColumn<double>("to");
        QTest::addColumn<QString>("seen");
        QTest::newRow("start past stop") << "_1" << 30000.0 << "rangeChanged(30000, 30001)";
        QTest::newRow("start onto stop") << "_1" << 20000.0 << "rangeChanged(20000, 20001)";
        QTest::newRow("stop before start") << "_2" << 9000.0 << "rangeChanged(8999, 9000)";
        QTest::newRow("stop onto start") << "_2" << 10000.0 << "rangeChanged(9999, 10000)";
        QTest::newRow("start within") << "_1" << 15000.0 << "rangeChanged(15000, 20000)";
        QTest::newRow("start at the top") << "_1" << 1e12 << "rangeChanged(26499999999, 26500000000)";
        QTest::newRow("start beyond all integers")
            << "_1" << 1e30 << "rangeChanged(9223372036854775807, 9223372036854775807)";
        QTest::newRow("stop at the bottom") << "_2" << 0.0 << "rangeChanged(8000, 8001)";
    }
    void theRangeRepairsItself()
    {
        QFETCH(QString, moved);
        QFETCH(double, to);
        QFETCH(QString, seen);
        LiveForm live(Range(to > 1e20 ? QStringList{"maximum=String:1e308"} : QStringList()));
        auto *r = live.Get<OrbelFrequencyRangeEdit>("r");
        live.log.Watch("r", r);
        auto *node = dynamic_cast<ValueDouble *>(Tree::Instance()->GetNode("/Form/r" + moved));
        node->SetValue(to, nullptr);
        QCOMPARE(live.log.Take(), "r." + seen + " r.editingFinished()");
        const auto [start, stop] = r->getCurrentRange();
        QVERIFY(live.form->GetXmlString(false).simplified().contains(
            QString("<From>%1</From> <To>%2</To>").arg(start).arg(stop)));
        QVERIFY(seen.contains(QString("(%1, %2)").arg(start).arg(stop)));
    }

    void scriptsAndDocumentsSetTheRangeAsItIs()
    {
        LiveForm live(Range());
        auto *r = live.Get<OrbelFrequencyRangeEdit>("r");
        live.log.Watch("r", r);
        r->setRange(50000, 40000);
        r->addValidBand("x", 1, 2);
        r->clearValidBands();
        live.form->SetXmlString("<Parameters><To>9000</To><Other>1</Other><From>60000</From></Parameters>");
        QCOMPARE(r->getCurrentRange(), (QPair<qint64, qint64>(60000, 9000)));
        r->setMaximum(30000);
        QCOMPARE(r->getCurrentRange(), (QPair<qint64, qint64>(29999, 9000)));
        r->setStartFrequencyParameterXmlTag("Begin");
        QVERIFY(r->ContainsXmlTag("From") && r->ContainsXmlTag("Begin"));
        live.form->SetXmlString("<Parameters><From>1</From><To>9500</To></Parameters>");
        QCOMPARE(r->getCurrentRange(), (QPair<qint64, qint64>(29999, 9000)));
        QVERIFY(!live.log.Seen().contains("rangeChanged"));
        QCOMPARE(live.Find("r_StartFrequency")->toolTip(), QString("Start Frequency"));
        QCOMPARE(live.Find("r_StopFrequency")->property("startFrequencyParameterXmlTag"), QVariant("Begin"));
    }

    void passingThroughMarksTheRange()
    {
        LiveForm live(Range());
        live.Find("r_StartFrequency")->setFocus();
        QTRY_VERIFY(live.Find("r_StartFrequency")->hasFocus());
        live.Find("r_StopFrequency")->setFocus();
        QVERIFY(live.Get("r")->isModified());
    }

    void nodesAndFormsEndInAnyOrder()
    {
        LiveForm live(Frequency() + Range());
        auto *f = live.Get<OrbelFrequencyEdit>("f");
        auto *r = live.Get<OrbelFrequencyRangeEdit>("r");
        for (const char *path : {"/Form/Frequency", "/Form/r_2"})
            Tree::Instance()->RemoveNode(path);
        QVERIFY(!f->GetVTValue());
        f->setValue(5);
        r->setRange(9000, 9500);
        dynamic_cast<ValueDouble *>(r->GetVTValue())->SetValue(10000, nullptr);
        QVERIFY(live.form->GetXmlString(false).contains("<Frequency>5</Frequency>"));
        Tree::Instance()->RemoveNode("/Form/r_1");
        live.window.reset();
        f->setProperty("FrequencyLock", true);
        r->forceFinishEditing();
    }
};

ORBEL_TEST_MAIN(TestFrequencyEdits)
#include "tst_frequencyedits.moc"
