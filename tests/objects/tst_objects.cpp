// Objects that stand for a part of the application: what scripts and documents cause, which lists are read and written.

#include "errorhandler.h"
#include "liveform.h"
#include "orbeldscobject.h"

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
    LiveObject(const QString &name, const QString &inside)
        : LiveForm("<Widget name='a' class='" + name + "'><Property name='labelText'><String>l</String></Property>"
                + inside + "</Widget>" + Widget("lbScanHF", "LineEdit") + Widget("lbScanVUHF", "Label")
                + Widget("lbScanSHF", "Label"),
            false),
          className(name)
    {
        log.Watch("a", Get("a"));
        if (ValueBase *node = form->GetVTValue("lbScanHF"))
            log.Watch("hf", node);
    }
    explicit LiveObject(const QString &name, const QStringList & = {}) : LiveObject(name, QString()) { }
    auto *Node() const { return dynamic_cast<ValueCommentedRangeMap *>(Tree::Instance()->GetNode("/Form/a")); }
    void Read(const QString &list)
    {
        form->SetXmlString("<Parameters><a>" + Expand(className, list) + "</a></Parameters>");
    }
    void SetScanRanges(const QString &xml) { Get<OrbelDSCObject>("a")->sl_setScanRanges(Expand(Dsc, xml)); }
    void Edit() const { form->EvaluateScript("a.emitEditExclusionRangesBtnClicked()"); }
    /// The body of the document, with ranges in brackets.
    QString Written() const
    {
        const QString xml = form->GetXmlString(false).remove(QRegularExpression("\\n *"));
        return xml.section("<Parameters>", 1)
            .section("</Parameters>", 0, 0)
            .replace(QRegularExpression("<ExclusionRange><StartFreq>(.*?)</StartFreq><StopFreq>(.*?)</StopFreq></.*?>"),
                "[\\1,\\2]")
            .replace(QRegularExpression("<ExclusionFrequency index=\"(.*?)\"><Start unit=\"Hz\">(.*?)</Start>"
                                        "<Stop unit=\"Hz\">(.*?)</Stop></.*?>"),
                "[\\1;\\2,\\3]");
    }

    QString className;
};

} // namespace

class TestObjects : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ErrorHandler::Instance().SetTraceMask(ekTraceFailure);
        ErrorHandler::Instance().SetSink([this](const QString &line) {
            if (line.startsWith("No node of a form can stand at /Form/a:"))
                ++Refused;
            else if (!line.startsWith("No node"))
                Traces << line.section(" (", 0, 0);
        });
    }
    void cleanup()
    {
        QCOMPARE(std::exchange(Traces, {}), QStringList());
        QCOMPARE(LeftOver(), QString());
    }

    void objects_data()
    {
        const auto row
            = Columns<QString, QString, QString, QString, QString>({"className", "inside", "script", "list", "result"});
        // clang-format off
        row("audio, the same twice", "SpecialObject_Audio", "", "a.setAudioSourceToAnalog(); a.setAudioSourceToAnalog(); a.setAudioSourceToDigital(); a.setAudioSourceToNone()", nullptr, "audioSourceAnalog() audioSourceAnalog() audioSourceDigital() audioSourceNone()");
        row("tuner, no bandwidth", "SpecialObject_Tuner", "", "a.setIFPanSpectrumEnabled(true); a.setPIFPanSpectrumEnabled(false); a.emitSegment(9000000000, 0)", nullptr, "IFPanSpectrumEnabled(true) PIFPanSpectrumEnabled(false) segmentChanged(9000000000, 0)");
        row("buttons", Dsc, "", "a.emitEditScriptBtnClicked(); a.emitLoadProdCriteriaBtnClicked(); a.emitLoadSpectralDetectorDataClicked(); a.emitSpectralDetectorProcStatusToggled(true)", nullptr, "editScriptBtnClicked() loadProdCriteriaBtnClicked() loadSpectralDetectorDataClicked() spectralDetectorProcStatusToggled(true)");

        row("the resolution before the rate", Fft, "", "a.setSignalSampleRate(8); a.setFFTLength(2); a.setFFTLength(2); a.setSignalSampleRate(8)", nullptr, "spectralResolutionChanged(0, 0) signalSampleRateChanged(8) spectralResolutionChanged(4, 250000)");
        const QString resolution("a.setFFTLength(%1); a.setSignalSampleRate(%2); r = a.frequencyResolutionString() + ',' + a.timeResolutionString() + ',' + (a.signalSampleRate() / a.frequencyResolution() - %1)");
        row("no length", Fft, "", resolution.arg(0).arg(8000), nullptr, "-,-,Infinity");
        row("negative rate", Fft, "", resolution.arg(1024).arg(-1024), nullptr, "-,-,0");
        row("not above a thousand", Fft, "", resolution.arg(1024).arg(1024000), nullptr, "1000 Hz,1000 \u00b5s,0");
        row("megahertz", Fft, "", resolution.arg(2).arg(3000001), nullptr, "1.5000005 MHz,1 \u00b5s,0");
        row("seconds stay milliseconds", Fft, "", resolution.arg(2).arg(1), nullptr, "0.5 Hz,2000 ms,0");

        const QString scan("a.sl_setScanRanges('<s><sh><p>1</p><a>1</a></sh></s>'); a.sl_setScanRanges('%1'); r = lbScanHF.text + ',' + lbScanVUHF.text + ',' + lbScanSHF.text");
        row("no scan ranges", Dsc, "", scan.arg(""), nullptr, "-,-,-");
        row("all", Dsc, "", scan.arg("<x><s><hf><p>1</p><a>1500000</a><z>30000000</z></hf><o><hf></hf></o><vu><p>2</p><a>1000000</a></vu><sh><p>1</p><z>1000</z></sh></s></x>"), nullptr, "1.5 MHz...30 MHz,1000 kHz,...1000 Hz");
        row("not possible, or not told to be", Dsc, "", scan.arg("<s><hf><p>0</p><a>1</a></hf><vu><a>1</a></vu><sh><p>-1</p><a>1</a></sh></s>"), nullptr, "-,-,-");
        row("the stop before its start", Dsc, "", scan.arg("<s><hf><z>1000001</z><a>2000000</a><p>1</p></hf></s>"), nullptr, "...1.000001 MHz2 MHz,-,-");
        row("an unknown child ends band and scan", Dsc, "", scan.arg("<s><hf><p>1</p><a>1</a><o/><z>2</z></hf><vu><p>1</p><a>3</a></vu></s>"), nullptr, "1 Hz,-,-");
        row("no numbers", Dsc, "", scan.arg("<s><hf><p>1</p><a>x</a><z>1e999</z></hf><vu><p>99999999999</p><a>1</a></vu></s>"), nullptr, "0 Hz...inf MHz,-,-");
        row("deep", Dsc, "", scan.arg("<s>DEEP<sh><p>1</p><a>5</a></sh><hf>OPEN"), nullptr, "-,-,5 Hz");

        row("two decimals, no index", Fhp, "", "", "[7;200000.126,1e5][0;1,-2]", "<a>[200000.13,100000.00][1.00,-2.00]</a>");
        row("no decimals", Dsc, "", "", "[100000.6,2]", "<a>[0;100001,2]</a>");
        row("by key, numbered anew", Dsc, "", "", "[5;1,1][2,2][2;3,3][4,4]", "<a>[0;3,3][1;4,4][2;1,1][3;2,2]</a>");
        row("an absurd index is 0", Dsc, "", "", "[0;2,2][-1;1,1]", "<a>[0;1,1]</a>");
        row("behind the greatest index is 0", Dsc, "", "", "[4294967295;1,1][2,2]", "<a>[0;2,2][1;1,1]</a>");
        row("an unknown element ends the list", Fhp, "", "", "[1,2]<o/>[3,4]", "<a>[1.00,2.00]</a>");
        row("an unknown child is skipped", Fhp, "", "", "[1</StartFreq>DEEP<StartFreq>3,2]", "<a>[3.00,2.00]</a>");
        row("truncated", Dsc, "", "", "[1,2]OPEN", "<a>[0;1,2]</a>");

        row("always written", Fhp, "<Property name='generateParameterXml'><Bool>false</Bool></Property>", "a.setGenerateParameterXml(false)", "", "<a/>");
        row("empty custom properties", Fhp, "<CustomProperties/>", "", "", "<ExclusionRanges/>");
        row("a tag with a path", Dsc, "<CustomProperties><Property name='customXmlTag'><String>x/y</String></Property></CustomProperties>", "", "", "<x><y/></x>");
        row("an empty tag", Fhp, "<CustomProperties><Property name='customXmlTag'><String/></Property></CustomProperties>", "", "", "<a/>");
        row("the later tag counts", Fhp, "<CustomProperties/><Property name='parameterXmlTag'><String>z</String></Property>", "", "", "<z/>");
        // clang-format on
    }
    void objects()
    {
        const auto [className, inside, script, list]
            = Fetch<QString, QString, QString, QString>({"className", "inside", "script", "list"});
        Witness witness;
        LiveObject live(className, inside);
        live.form->EvaluateScript("var r = ''; " + Expand(className, script));
        const QString events = live.log.Take().remove("a.si_"),
                      answer = live.form->GetScriptValues().value("r").toString();
        const bool hasList = className == Fhp || className == Dsc;
        // Meant: the objects with a list make no row.
        QCOMPARE(bool(live.Find("labela")), !hasList);
        if (live.Node()) {
            live.Node()->SetAt(99, {}, nullptr);
            live.Get("a")->resetModified();
            live.Node()->AddObserver(&witness);
            live.Read(list);
            QCOMPARE(witness.codes, QString("73"));
            QVERIFY(!live.Get("a")->isModified());
            live.Node()->StartTransaction(nullptr); // the host's own
            live.Read(list);
            QCOMPARE(witness.codes, QString("733"));
        }
        QTEST(hasList && !list.isNull() ? live.Written() : answer.isEmpty() ? events : answer, "result");
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
            QCOMPARE(std::exchange(Refused, 0), 1);
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
        LiveForm lone(Widget("b", Dsc)); // without the labels
        lone.form->EvaluateScript("b.sl_setScanRanges('<Scan><HFScan></HFScan></Scan>')");
    }
    void aNodeTellsAndIsTold()
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

            LiveForm automatic(Widget("a", className));
            Tree::Instance()->GetNode("/Form/a")->SetStringValue("1..2", nullptr);
            QTRY_COMPARE(automatic.log.Seen(), QString("sheet.si_parametersModified()"));
            automatic.form.reset();

            LiveObject other(className);
            other.Node()->AddObserver(&witness);
            witness.action = [&] { other.form.reset(); };
            other.Read("[1,2]");
            QCOMPARE(witness.codes, QString("77337272"));
        }
    }

private:
    QStringList Traces;
    int Refused = 0;
};

ORBEL_TEST_MAIN(TestObjects)
#include "tst_objects.moc"
