// Objects that stand for a part of the application: what scripts and documents cause, which lists are read and written,
// and the table of frequency ranges with its dialog: texts, rows, and changes by others meanwhile.

#include "errorhandler.h"
#include "exclusiondialog.h"
#include "fieldnote.h"
#include "freqrangetable.h"
#include "liveform.h"
#include "orbeldscobject.h"
#include "valuecommentedrangemap.h"
#include "witness.h"

namespace
{

const QString Fhp("SpecialObject_FHP"), Dsc("SpecialObject_DSC"), Fft("SpecialObject_FFT");

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

/// A table on the screen and its node "/T/r".
struct Bench {
    explicit Bench(const QString &ranges)
    {
        Tree::Instance()->AddNode("/T", Node);
        Node->SetStringValue(ranges, nullptr);
        Table.AttachToValue("/T/r");
        Table.show();
    }
    ~Bench() { Tree::Instance()->RemoveNode("/T/r"); }
    QString Cells() const
    {
        QStringList texts;
        for (int i = 0; i < 2 * Table.rowCount(); ++i)
            texts << Table.item(i / 2, i % 2)->text().remove(" kHz");
        return texts.join(' ');
    }
    QLineEdit *Editor() const { return qobject_cast<QLineEdit *>(Table.indexWidget(Table.currentIndex())); }
    /// Types over a cell and ends with a key; Shift leaves the editor open.
    void Type(int row, int column, const QString &text, Qt::Key last = Qt::Key_Shift)
    {
        Table.setCurrentCell(row, column);
        QTest::keyClick(&Table, Qt::Key_F2);
        QTest::keyClicks(Editor(), text);
        QTest::keyClick(Editor(), last);
        QCoreApplication::sendPostedEvents();
    }

    ValueCommentedRangeMap *Node = new ValueCommentedRangeMap("r");
    FreqRangeTable Table{nullptr};
};

/// What a row's name says behind the colon: a text, or cells as row and column.
QString Input()
{
    return QString(QTest::currentDataTag()).section(": ", 1);
}

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
            QVERIFY(!live.Get("a")->isModified());
            live.Node()->StartTransaction(nullptr); // the host's own
            live.Read(list);
            QCOMPARE(witness.Told(), QString("7 3 3"));
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
        {
            LiveObject moved(Fhp);
            moved.form->CreateValueTree("/Other");
            QCOMPARE(Tree::Instance()->GetPaths().filter("/a").join(' '), QString("/Form/a /Other/a"));
        }
        LiveForm lone(Widget("b", Dsc)); // without the labels
        lone.form->EvaluateScript("b.sl_setScanRanges('<Scan><HFScan></HFScan></Scan>')");
    }
    void aNodeTellsAndIsTold()
    {
        for (const QString &className : {Fhp, Dsc}) {
            Witness witness;
            LiveObject live(className);
            live.Node()->AddObserver(&witness);
            witness.Once([&] { live.Read("[3,4]"); });
            live.Read("[1,2]");
            QCOMPARE(witness.Told(), QString("7 7 3 3"));

            LiveForm automatic(Widget("a", className), true, "/Automatic");
            Tree::Instance()->GetNode("/Automatic/a")->SetStringValue("1..2", nullptr);
            QTRY_COMPARE(automatic.log.Seen(), QString("sheet.si_parametersModified()"));
        }
    }

    void texts_data()
    {
        const auto row = Columns<QString, QString>({"stored", "note"}); // behind "is read as" where none is meant
        row("kHz, comma: 5,5 ", "7000..5500", "= 5.500 kHz");
        row("kHz as it is shown: 5.5 kHz", "7000..5500", QString());
        row("mega without rounding: 1.001 mhZ", "7000..1001000", "= 1 001.000 kHz");
        row("giga, negative: -2g", "7000..-2000000000", "= -2 000 000.000 kHz");
        row("kilo goes before mega: 3 MK", "7000..3000", "3.000 kHz");
        row("an exponent's letter is lost: 1e3", "7000..13000", "13.000 kHz");
        row("groups: 1.234,5", "7000..0", "0.000 kHz");
    }

    void texts()
    {
        QFETCH(QString, note);
        Bench bench("7000..8000");
        bench.Type(0, 1, Input());
        const bool isMeant = note.isEmpty() || note.startsWith('=');
        QCOMPARE(Orbel::FieldNote::TextOf(bench.Editor()), isMeant ? note : "is read as " + note);
        QTest::keyClick(bench.Editor(), Qt::Key_Return);
        QCoreApplication::sendPostedEvents();
        const QString told = isMeant ? QString() : '"' + Input() + "\" is read as " + note;
        QCOMPARE(Orbel::FieldNote::TextOf(bench.Table.viewport()), told);
        QCOMPARE(bench.Table.item(0, 1)->toolTip(), told);
        const auto *cells = qobject_cast<QStyledItemDelegate *>(bench.Table.itemDelegate());
        QVERIFY2(note.endsWith(cells->displayText(bench.Table.item(0, 1)->text(), QLocale::c())) || note.isEmpty(),
            "it is drawn as it is told");
        QVERIFY2(bench.Node->GetStringValue() == "7000..8000", "only storing stores");
        bench.Table.StoreToValue();
        QTEST(bench.Node->GetStringValue(), "stored");
    }

    void deletion_data()
    {
        const auto row = Columns<QString>({"left"});
        row("one cell: 11", "0 1 2 3 3 4");
        row("both cells take the next row along: 10 11", "0 1 3 4");
        row("both cells of the last row: 30 31", "0 1 1 2 2 3");
        row("both cells of two rows: 00 01 20 21", "");
    }

    void deletion()
    {
        Bench bench("0..1000; 1000..2000; 2000..3000; 3000..4000");
        for (const QString &cell : Input().split(' '))
            bench.Table.item(cell[0].digitValue(), cell[1].digitValue())->setSelected(true);
        auto *action = bench.Table.findChild<QAction *>("ListBoxDelete");
        action->trigger();
        QTEST(bench.Cells(), "left");
        QCOMPARE(action->isEnabled(), bench.Table.rowCount() > 0);
        bench.Table.StoreToValue();
        QCOMPARE(int(bench.Node->data().size()), bench.Table.rowCount());
    }

    void rowsTheNodeAndAnOpenEdit()
    {
        Bench bench("1000..2000; 3000..4000");
        bench.Table.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&bench.Table));
        bench.Table.setCurrentCell(1, 1);
        QTest::keyClick(&bench.Table, Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(bench.Cells(), QString("1 2 3 4 0 0"));
        QTest::keyClick(&bench.Table, Qt::Key_Delete);
        QVERIFY2(bench.Cells() == "1 2 3 4", "the new row alone");
        bench.Type(0, 0, "9", Qt::Key_Tab);
        QVERIFY2(bench.Editor() && bench.Table.currentColumn() == 1, "Tab edits the next cell");
        bench.Table.StoreToValue();
        QVERIFY2(bench.Node->data().at(0).GetID() == 1 && bench.Cells() == "9 2 3 4", "stored sorted, ids of the rows");
        bench.Type(1, 0, "8");
        bench.Table.SlotSortByStartFrequencies();
        QVERIFY2(bench.Cells() == "8 4 9 2", "an open edit counts");

        bench.Type(0, 0, "77 M", Qt::Key_Return);
        QCOMPARE(bench.Cells(), QString("77000 4 9 2"));
        bench.Type(1, 1, "2.5 M");
        bench.Node->SetAt(2, CommentedRange(), nullptr);
        QVERIFY2(bench.Cells() == "3 4 9 2 0 0", "what was typed goes");
        QVERIFY(!bench.Editor() || bench.Editor()->text() == "2 kHz");
        for (const TChangeCode code : {ekChangeItemSet, ekChangeContent, ekChangeItemErased}) {
            bench.Table.item(0, 0)->setText("99");
            bench.Node->HasChanged(code, nullptr);
            QCOMPARE(bench.Cells(), QString("3 4 9 2 0 0"));
        }
        CommentedRange endless;
        endless.SetRangeStart(qQNaN());
        endless.SetRangeStop(qInf());
        bench.Node->SetAt(2, endless, nullptr);
        QCOMPARE(bench.Cells(), QString("3 4 9 2 0 0"));
        bench.Node->Clear(nullptr);
        QVERIFY2(bench.Cells() == "0 0" && !bench.Editor(), "its row is gone");
        bench.Table.StoreToValue();
        QVERIFY2(bench.Node->data().size() == 1, "an untouched empty table stores its row");
        bench.Node->SetState(ekStateDisabled, nullptr);
        QVERIFY(bench.Table.AttachToValue("/T/r") && !bench.Table.isEnabled());
    }

    void theDialogEditsTheListItWasGiven()
    {
        Bench bench("1000..2000");
        ValueCommentedRangeMap refused("r");
        QVERIFY(!Tree::Instance()->AddNode("/T", &refused));
        refused.SetStringValue("5000..6000", nullptr);
        QWidget form;
        QTimer::singleShot(0, [&] {
            form.findChild<FreqRangeTable *>()->item(0, 1)->setText("7");
            form.findChild<QDialog *>()->accept();
        });
        EditExclusionRanges(&refused, &form, "test");
        QCOMPARE(refused.GetStringValue() + ' ' + bench.Node->GetStringValue(), QString("5000..7000 1000..2000"));
    }

private:
    QStringList Traces;
    int Refused = 0;
};

ORBEL_TEST_MAIN(TestObjects)
#include "tst_objects.moc"
