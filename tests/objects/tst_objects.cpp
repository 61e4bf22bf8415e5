// Objects that stand for a part of the application: what scripts and documents cause, which lists are read and written.

#include "errorhandler.h"
#include "orbeldscobject.h"
#include "orbelfftobject.h"
#include "storecase.h"
#include "testmain.h"
#include "tree.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QScriptEngine>
#include <QTableWidget>

using namespace KV218;

namespace
{

const QString Fhp("SpecialObject_FHP"), Dsc("SpecialObject_DSC"), Fft("SpecialObject_FFT");

/// The codes that a node tells, and what is done at the first.
struct Witness : IObserver {
    void Update(Observable *, TChangeCode code) override
    {
        codes += QString::number(code);
        if (action)
            std::exchange(action, nullptr)();
    }
    QString codes;
    std::function<void()> action;
};

/// Writes out tags, OPEN as many start tags, DEEP as many elements in each other, and [index;start,stop] as a range.
QString Expand(const QString &className, QString text)
{
    const QString range = className == Dsc
        ? "<ExclusionFrequency index='\\1'><Start unit='kHz'>\\2</Start><Stop>\\3</Stop></ExclusionFrequency>"
        : "<ExclusionRange index='\\1'><StartFreq>\\2</StartFreq><StopFreq>\\3</StopFreq></ExclusionRange>";
    text.replace(QRegularExpression("\\[(?:([^;,]*);)?([^,]*),(.*?)\\]"), range);
    for (const auto &[tag, name] : {std::pair("hf", "HFScan"), {"vu", "VUHFScan"}, {"sh", "SHFScan"}, {"s", "Scan"},
             {"p", "ScanPossible"}, {"a", "ScanStartFrequency"}, {"z", "ScanStopFrequency"}})
        text.replace(QRegularExpression(QString("(</?)%1>").arg(tag)), QString("\\1%1>").arg(name));
    text.replace("DEEP", "OPEN" + QString("</o>").repeated(200000));
    return text.replace("OPEN", QString("<o>").repeated(200000));
}

/// An object "a" among the texts of the scan ranges. A log watches the object, and "hf", the text of the first.
struct LiveObject : LiveForm {
    explicit LiveObject(const QString &name, const QStringList &properties = {}, const QString &path = "/Form")
        : LiveForm(forms::Widget("a", name, properties) + forms::Widget("lbScanHF", "LineEdit")
                  + forms::Widget("lbScanVUHF", "Label") + forms::Widget("lbScanSHF", "Label"),
            false, path),
          className(name)
    {
        log.Watch("a", Get("a"));
        if (ValueBase *node = form->GetVTValue("lbScanHF"))
            log.Watch("hf", node);
    }
    auto *Node() const { return dynamic_cast<ValueCommentedRangeMap *>(Tree::Instance()->GetNode("/Form/a")); }
    void Read(const QString &list) { form->SetXmlString("<Parameters><a>" + Expand(className, list) + "</a></Parameters>"); }
    void SetScanRanges(const QString &xml) { Get<OrbelDSCObject>("a")->sl_setScanRanges(Expand(Dsc, xml)); }
    void Edit() const { form->EvaluateScript("a.emitEditExclusionRangesBtnClicked()"); }
    /// The body of the document, with ranges in brackets.
    QString Written() const
    {
        const QString xml = form->GetXmlString(false).remove(QRegularExpression("\\n *"));
        return xml.section("<Parameters>", 1).section("</Parameters>", 0, 0)
            .replace(QRegularExpression("<ExclusionRange><StartFreq>(.*?)</StartFreq><StopFreq>(.*?)</StopFreq></.*?>"), "[\\1,\\2]")
            .replace(QRegularExpression("<ExclusionFrequency index=\"(.*?)\"><Start unit=\"Hz\">(.*?)</Start>"
                                        "<Stop unit=\"Hz\">(.*?)</Stop></.*?>"), "[\\1;\\2,\\3]");
    }

    QString className;
};

const std::vector<End<LiveObject>> Ends{
    {Fft, "a.si_spectralResolutionChanged", [](LiveObject &l) { l.Get<OrbelFFTObject>("a")->setSignalSampleRate(8); }},
    {Dsc, "hf=-", [](LiveObject &l) { l.SetScanRanges("<s><hf><p>1</p></hf></s>"); }},
    {Dsc, "hf=1 Hz", [](LiveObject &l) { l.SetScanRanges("<s><hf><p>1</p><a>1</a></hf><vu/></s>"); }},
    {Dsc, "sheet", [](LiveObject &l) { l.Node()->SetAt(0, {}, nullptr); }},
};

/// Answers the next modal dialog: types into the first row of its table and accepts.
void AnswerDialog(QWidget *parent)
{
    QTimer::singleShot(0, qApp, [=] {
        const QWidget *dialog = QApplication::activeModalWidget();
        QVERIFY(dialog && dialog->parentWidget() == parent);
        dialog->findChild<QTableWidget *>()->item(0, 0)->setText("5");
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
}

void Columns(std::initializer_list<const char *> names)
{
    for (const char *name : names)
        QTest::addColumn<QString>(name);
}

} // namespace

class TestObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ErrorHandler::Instance().SetTraceMask(ekTraceFailure);
        ErrorHandler::Instance().SetSink([this](const QString &line) { Traces << line.section(" (", 0, 0); });
    }
    void cleanup()
    {
        QCOMPARE(std::exchange(Traces, {}), QStringList());
        QCOMPARE(LeftOver(), QString());
    }

    void callsArePassedOn_data()
    {
        Columns({"className", "script", "events"});
        // clang-format off
        QTest::newRow("audio, the same twice") << "SpecialObject_Audio" << "setAudioSourceToAnalog() setAudioSourceToAnalog() setAudioSourceToDigital() setAudioSourceToNone()"
            << "audioSourceAnalog() audioSourceAnalog() audioSourceDigital() audioSourceNone()";
        QTest::newRow("tuner, no bandwidth") << "SpecialObject_Tuner" << "setIFPanSpectrumEnabled(true) setPIFPanSpectrumEnabled(false) emitSegment(9000000000,0)"
            << "IFPanSpectrumEnabled(true) PIFPanSpectrumEnabled(false) segmentChanged(9000000000, 0)";
        QTest::newRow("dsc") << Dsc << "emitEditScriptBtnClicked() emitLoadProdCriteriaBtnClicked() emitLoadSpectralDetectorDataClicked() emitSpectralDetectorProcStatusToggled(true)"
            << "editScriptBtnClicked() loadProdCriteriaBtnClicked() loadSpectralDetectorDataClicked() spectralDetectorProcStatusToggled(true)";
        QTest::newRow("fft: the resolution before the rate") << Fft << "setSignalSampleRate(8) setFFTLength(2) setFFTLength(2) setSignalSampleRate(8)"
            << "spectralResolutionChanged(0, 0) signalSampleRateChanged(8) spectralResolutionChanged(4, 250000)";
        // clang-format on
    }
    void callsArePassedOn()
    {
        QFETCH(QString, className);
        QFETCH(QString, script);
        LiveObject live(className, {"labelText=String:shown", "visible=Bool:true"});
        live.form->EvaluateScript("a." + script.replace(' ', "; a."));
        QTEST(live.log.Take().remove("a.si_"), "events");
        // Meant: the objects with a list make no row.
        QCOMPARE(bool(live.Find("labela")), className != Dsc);
    }

    void resolutions_data()
    {
        QTest::addColumn<quint32>("length");
        QTest::addColumn<qint64>("rate");
        Columns({"texts"});
        QTest::newRow("no length") << 0u << 8000ll << "- -";
        QTest::newRow("negative rate") << 1024u << -1024ll << "- -";
        QTest::newRow("not above a thousand") << 1024u << 1024000ll << "1000 Hz 1000 \u00b5s";
        QTest::newRow("not above a million") << 1u << 1000000ll << "1000 kHz 1 \u00b5s";
        QTest::newRow("megahertz") << 2u << 3000001ll << "1.5000005 MHz 1 \u00b5s";
        QTest::newRow("zeros without a point stay") << 1000u << 10000000ll << "10 kHz 100 \u00b5s";
        QTest::newRow("seconds stay milliseconds") << 2u << 1ll << "0.5 Hz 2000 ms";
        QTest::newRow("greatest") << 1u << std::numeric_limits<qint64>::max() << "9223372036854.775390625 MHz 0 \u00b5s";
    }
    void resolutions()
    {
        QFETCH(quint32, length);
        QFETCH(qint64, rate);
        OrbelFFTObject fft(nullptr);
        fft.setFFTLength(length);
        fft.setSignalSampleRate(rate);
        QTEST(fft.frequencyResolutionString() + ' ' + fft.timeResolutionString(), "texts");
        QVERIFY(qFuzzyCompare(fft.frequencyResolution() * fft.timeResolution(), length && rate ? 1e6 : 0.0));
    }

    void scanRanges_data()
    {
        Columns({"xml", "texts"});
        // clang-format off
        QTest::newRow("nothing") << "" << "- | - | -";
        QTest::newRow("all") << "<x><s><hf><p>1</p><a>1500000</a><z>30000000</z></hf><o><hf/></o><vu><p>2</p><a>1000000</a></vu><sh><p>1</p><z>1000</z></sh></s></x>"
            << "1.5 MHz...30 MHz | 1000 kHz | ...1000 Hz";
        QTest::newRow("not possible, or not told to be") << "<s><hf><p>0</p><a>1</a></hf><vu><a>1</a></vu><sh><p>-1</p><a>1</a></sh></s>" << "- | - | -";
        QTest::newRow("the stop before its start") << "<s><hf><z>1000001</z><a>2000000</a><p>1</p></hf></s>" << "...1.000001 MHz2 MHz | - | -";
        QTest::newRow("an unknown child ends band and scan") << "<s><hf><p>1</p><a>1</a><o/><z>2</z></hf><vu><p>1</p><a>3</a></vu></s>" << "1 Hz | - | -";
        QTest::newRow("outside of a scan, truncated") << "<x><vu><p>1</p><a>1</a></vu><s><hf><p>1</p><a>7</a><z>8" << "7 Hz...0 Hz | - | -";
        QTest::newRow("no numbers") << "<s><hf><p>1</p><a>x</a><z>1e999</z></hf><vu><p>99999999999</p><a>1</a></vu></s>" << "0 Hz...inf MHz | - | -";
        QTest::newRow("deep") << "<s>DEEP<sh><p>1</p><a>5</a></sh><hf>OPEN" << "- | - | 5 Hz";
        // clang-format on
    }
    void scanRanges()
    {
        QFETCH(QString, xml);
        LiveObject live(Dsc);
        live.SetScanRanges("<s><sh><p>1</p><a>1</a></sh></s>");
        live.SetScanRanges(xml);
        live.form->EvaluateScript("var r = [lbScanHF, lbScanVUHF, lbScanSHF].map(function (l) { return l.text; }).join(' | ')");
        QTEST(live.form->GetScriptValues().value("r").toString(), "texts");
        const forms::Form bare = forms::Bind(forms::Definition(forms::Widget("a", Dsc)));
        qobject_cast<OrbelDSCObject *>(forms::Delegate(bare, "a"))->sl_setScanRanges(Expand(Dsc, xml));
    }

    void lists_data()
    {
        Columns({"className", "read", "written"});
        QTest::newRow("two decimals, no order") << Fhp << "[200000.126,1e5][7;1,-2]" << "[200000.13,100000.00][1.00,-2.00]";
        QTest::newRow("no numbers") << Fhp << "[x,nan][,1e999]" << "[0.00,0.00][0.00,inf]";
        QTest::newRow("no decimals") << Dsc << "[100000.6,2]" << "[0;100001,2]";
        QTest::newRow("by key, numbered anew") << Dsc << "[5;1,1][2,2][2;3,3][4,4]" << "[0;3,3][1;4,4][2;1,1][3;2,2]";
        QTest::newRow("an absurd index is 0") << Dsc << "[0;2,2][-1;1,1]" << "[0;1,1]";
        QTest::newRow("behind the greatest index is 0") << Dsc << "[4294967295;1,1][2,2]" << "[0;2,2][1;1,1]";
        QTest::newRow("an unknown element ends the list") << Fhp << "[1,2]<o/>[3,4]" << "[1.00,2.00]";
        QTest::newRow("one with a range inside, too") << Dsc << "<o>[1,2]</o>[3,4]" << "[0;1,2]";
        QTest::newRow("an unknown child is skipped") << Fhp << "[1</StartFreq>DEEP<StartFreq>3,2]" << "[3.00,2.00]";
        QTest::newRow("truncated") << Dsc << "[1,2]OPEN" << "[0;1,2]";
    }
    void lists()
    {
        QFETCH(QString, className);
        QFETCH(QString, read);
        QFETCH(QString, written);
        Witness witness;
        LiveObject live(className);
        QCOMPARE(live.Written(), QString("<a/>"));
        live.Node()->SetAt(99, {}, nullptr);
        QVERIFY(live.Get("a")->isModified());
        live.Get("a")->resetModified();
        live.Node()->AddObserver(&witness);
        live.Read(read);
        QCOMPARE(witness.codes, QString("73"));
        QVERIFY(!live.Get("a")->isModified());
        QCOMPARE(live.Written(), "<a>" + written + "</a>");
        live.Node()->StartTransaction(nullptr); // the host's own
        live.Read(read);
        QCOMPARE(witness.codes, QString("733"));
    }

    void tags_data()
    {
        Columns({"inside", "written"});
        const QString tag("<Property name='%1'><String>%2</String></Property>"), custom("<CustomProperties>%1</CustomProperties>");
        QTest::newRow("no custom properties") << tag.arg("generateParameterXml", "") << "<a/>";
        QTest::newRow("empty ones") << custom.arg("") << "<%1/>";
        QTest::newRow("a tag with a path") << custom.arg(tag.arg("customXmlTag", "x/y")) << "<x><y/></x>";
        QTest::newRow("an empty tag") << custom.arg(tag.arg("customXmlTag", "")) << "<a/>";
        QTest::newRow("the later one counts") << custom.arg("") + tag.arg("parameterXmlTag", "z") << "<z/>";
    }
    void tags()
    {
        QFETCH(QString, inside);
        QFETCH(QString, written);
        for (const auto &[name, tag] : {std::pair(Fhp, "ExclusionRanges"), {Dsc, "ExclusionFrequencyList"}}) {
            const forms::Form form = forms::Bind(forms::Definition(
                "<Widget name='a' class='" + name + "'>" + inside + "</Widget>"));
            form->EvaluateScript("a.setGenerateParameterXml(false)");
            const QString xml = form->GetXmlString(false).remove(QRegularExpression("\\n *"));
            QCOMPARE(xml, "<Parameters>" + QString(written).replace("%1", tag) + "</Parameters>");
        }
    }

    void twoFormsOnOnePath()
    {
        for (const bool firstGoesFirst : {true, false}) {
            LiveObject first(Fhp);
            first.Read("[1,2]");
            LiveObject second(Fhp);
            QCOMPARE(std::exchange(Traces, {}),
                QStringList("OrbelFHPObject::CreateValueTree: exclusion ranges map already existing in VT"));
            QVERIFY(first.Get("a")->isModified() && !second.Get("a")->isModified());
            QCOMPARE(second.Written() + first.Written(), QString("<a/><a/>"));
            first.Read("[1,2]");
            QCOMPARE(second.Written(), QString("<a>[1.00,2.00]</a>"));
            (firstGoesFirst ? first : second).form.reset();
            LiveObject &left = firstGoesFirst ? second : first;
            left.Read("[3,4]");
            QCOMPARE(left.Written(), QString());

            LiveObject third(Dsc), fourth(Dsc); // each with a list of its own
            third.Read("[1,2]");
            QCOMPARE(fourth.Written(), QString("<a/>"));
            (firstGoesFirst ? third : fourth).form.reset();
            QCOMPARE(bool(fourth.Node()), !firstGoesFirst);
        }
    }

    void anObjectLetsOtherNodesBe()
    {
        for (const QString &className : {Fhp, Dsc}) {
            LiveObject live(className);
            Tree::Instance()->RemoveNode("/Form/a");
            live.Read("[1,2]");
            live.Edit();
            QCOMPARE(live.Written(), QString());
        }
        ValueInt taken("a"), bare("a"); // what the tree refuses has the path of the other
        QVERIFY(Tree::Instance()->AddNode("/Form", &taken) && Tree::Instance()->AddNode("", &bare));
        for (const QString &className : {Fhp, Dsc}) {
            LiveObject live(className);
            live.Read("[1,2]");
            QVERIFY(live.Written().contains(",2"));
        }
        QCOMPARE(Tree::Instance()->GetPaths().join(' '), QString("/Form/a a"));
    }

    void aHandlerMayEndTheForm_data() { AddEnds(Ends); }
    void aHandlerMayEndTheForm() { CheckEnd(Ends, {}); }
    void anObserverMayEndTheFormOrReadAgain()
    {
        for (const QString &className : {Fhp, Dsc}) {
            Witness witness;
            LiveObject live(className);
            live.Node()->AddObserver(&witness);
            witness.action = [&] { live.Read("[3,4]"); };
            live.Read("[1,2]");
            QCOMPARE(witness.codes, QString("7733"));
            witness.action = [&] { Tree::Instance()->RemoveNode("/Form/a"); };
            live.Read("[5,6]");
            QCOMPARE(witness.codes, QString("773372"));

            LiveObject other(className);
            other.Node()->AddObserver(&witness);
            witness.action = [&] { other.form.reset(); };
            other.Read("[1,2]");
            QCOMPARE(witness.codes, QString("773372732"));
        }
    }

    /// The examples run without a script error, also when all their controls are used.
    void examples_data()
    {
        Columns({"texts", "document"});
        QTest::newRow("audio") << "sourceState=from the demodulator,width=3100 Hz" << "<Source>1</Source>";
        QTest::newRow("spectrum") << "segment=93.5 MHz to 103.5 MHz,frequencyResolution=25 kHz" << "<Length>512</Length>";
        QTest::newRow("detection") << "lbScanHF=1.5 MHz...30 MHz,lbScanSHF=-,lastAction=excluded ranges"
                                   << "<Start unit=\"Hz\">5000</Start>.*<StartFreq>5000.00</StartFreq>";
    }
    void examples()
    {
        QFETCH(QString, texts);
        QFETCH(QString, document);
        const forms::Form form(
            OrbelParser().ParseORBELFile(QString(ORBEL_EXAMPLES_DIR "/forms/%1.orbel").arg(QTest::currentDataTag())));
        form->CreateValueTree("/Form");
        form->CreateGUI(false);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        connect(form->GetScriptValues().value("sheet").engine(), &QScriptEngine::signalHandlerException, this,
            [this](const QScriptValue &exception) { Traces << exception.toString(); });
        for (auto *combo : window->findChildren<QComboBox *>())
            QTest::keyClick(combo, Qt::Key_Home);
        for (auto *button : window->findChildren<QAbstractButton *>()) {
            if (button->objectName().contains("Exclusion"))
                AnswerDialog(window.get());
            button->click();
        }
        for (const QString &text : texts.split(','))
            QCOMPARE(window->findChild<QLabel *>(text.section('=', 0, 0))->text(), text.section('=', 1));
        QVERIFY(form->GetXmlString(true).contains(
            QRegularExpression(document, QRegularExpression::DotMatchesEverythingOption)));
    }

private:
    QStringList Traces;
};

ORBEL_TEST_MAIN(TestObjects)
#include "tst_objects.moc"
