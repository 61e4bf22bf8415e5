// The frequency and the range of a form: both faces, the lock, the repair of ranges, and their documents.

#include "liveform.h"
#include "orbelfrequencyedit.h"
#include "orbelfrequencyrangeedit.h"
#include "vcminifrequency.h"

namespace
{

const QStringList Usable{"visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true"};

QString Frequency(const QStringList &more = {"parameterXmlTag=String:Frequency"})
{
    return Widget("f", "FrequencyEdit", Usable + QStringList{"value=String:145500000"} + more);
}

QString Range(const QStringList &more = {})
{
    return Widget("r", "FrequencyRangeEdit",
        Usable
            + QStringList{"startFrequency=String:10000", "stopFrequency=String:20000",
                "startFrequencyParameterXmlTag=String:From", "stopFrequencyParameterXmlTag=String:To"}
            + more);
}

} // namespace

class TestFrequencyEdits : public TestCase
{
    Q_OBJECT

private Q_SLOTS:

    /// In the large form and in the plain one, as tag and property say.
    void anEditReachesNodePropertyAndSignals_data()
    {
        const auto row = Columns<QString, QStringList, bool>({"tag", "more", "large"});
        row("called Frequency", "Frequency", {}, true);
        row("another spelling", "frequency", {}, false);
        row("large form wanted", "Step", {"MainFreqEdit=Bool:true"}, true);
        row("large form refused", "Frequency", {"MainFreqEdit=Bool:false"}, false);
    }
    void anEditReachesNodePropertyAndSignals()
    {
        const auto [tag, more, large] = Fetch<QString, QStringList, bool>({"tag", "more", "large"});
        LiveForm live(Frequency(more + QStringList{"parameterXmlTag=String:" + tag}));
        QCOMPARE(live.Find("FrequencyControl") != nullptr, large);
        auto *field = live.Find<QLineEdit>(large ? "frequency" : "f");
        QCOMPARE(field->text(), QString("145.500 000 MHz"));
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
        const QString document = "<Parameters><" + tag + ">%1</" + tag + "></Parameters>";
        live.form->SetXmlString(document.arg("abc"));
        QCOMPARE(live.log.Take(), QString("f.valueChanged(0)"));
        QCOMPARE(f->property("value").toString(), QString("abc"));
        QVERIFY(live.form->GetXmlString(false).contains("<" + tag + ">abc</" + tag + ">"));
        live.form->SetXmlString(document.arg("90000"));
        QCOMPARE(node->GetValue(), 90000.0);
        live.form->GetXmlString(true);
        field->setFocus();
        QTest::keyClicks(field, "1");
        QVERIFY2(live.form->GetSheet().isModified() != large, "typing marks the plain form at once");
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

    void theRangeRepairsItself_data()
    {
        QTest::addColumn<QString>("moved");
        QTest::addColumn<double>("to");
        QTest::addColumn<QString>("seen");
        // clang-format off
        QTest::newRow("start past stop") << "_1" << 30000.0 << "rangeChanged(30000, 30001)";
        QTest::newRow("start onto stop") << "_1" << 20000.0 << "rangeChanged(20000, 20001)";
        QTest::newRow("stop before start") << "_2" << 9000.0 << "rangeChanged(8999, 9000)";
        QTest::newRow("stop onto start") << "_2" << 10000.0 << "rangeChanged(9999, 10000)";
        QTest::newRow("start within") << "_1" << 15000.0 << "rangeChanged(15000, 20000)";
        QTest::newRow("start at the top") << "_1" << 1e12 << "rangeChanged(26499999999, 26500000000)";
        QTest::newRow("start beyond all integers") << "_1" << 1e30 << "rangeChanged(9223372036854775807, 9223372036854775807)";
        QTest::newRow("stop at the bottom") << "_2" << 0.0 << "rangeChanged(8000, 8001)";
        // clang-format on
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
