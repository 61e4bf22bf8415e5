// The studio: what it tells of a form that is edited, and that it disturbs nothing of it.

#include "debuggerdock.h"
#include "editorcommand.h"
#include "formoverlay.h"
#include "inspectordock.h"
#include "orbeldelegate.h"
#include "orbelformular.h"
#include "picturesdialog.h"
#include "scriptcompleter.h"
#include "scriptwatch.h"
#include "studiowindow.h"
#include "testcase.h"
#include "valuegenerator.h"

#include <QScriptEngineDebugger>
#include <QtScript>

using namespace Orbel;

namespace
{

const QByteArray Script = R"(<Script><![CDATA[
gain.valueChanged.connect(function (value) {
    hint.setText("at " + value);
    if (value == 13)
        noSuch.thing();
});
]]></Script>)";

QByteArray Widget(const QByteArray &name, const QByteArray &className, const QByteArray &properties = {})
{
    return "<Widget name='" + name + "' class='" + className
        + "'>\n<Property name='visible'><Bool>true</Bool></Property>"
        + "<Property name='enabled'><Bool>true</Bool></Property><Property name='generateParameterXml'><Bool>true</Bool>"
        + "</Property><Property name='labelText'><String>" + name + "</String></Property>" + properties
        + "\n</Widget>\n";
}

QByteArray Definition(const QByteArray &widgets, const QByteArray &script = Script)
{
    return "<ZkParamGui version='1'><Sheet name='sheet'>\n" + widgets + "</Sheet>\n" + script + "</ZkParamGui>\n";
}

const QByteArray Gain = Widget("gain", "SpinBox",
    "<Property name='value'><Int>5</Int></Property><Property name='maximum'><Int>60</Int></Property>"
    "<Property name='minimum'><Int>0</Int></Property>");
const QByteArray Note = Widget("note", "LineEdit");
const QByteArray Hint = Widget("hint", "Label");

/// Tells after how many milliseconds a form in a window was painted first.
class Painting : public QObject
{
public:
    explicit Painting(QWidget *form) : Form(form) { qApp->installEventFilter(this); }
    void Begin()
    {
        At = 0;
        Clock.start();
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isForms = event->type() == QEvent::Paint && Form->isAncestorOf(qobject_cast<QWidget *>(watched));
        if (isForms && IsOn && At == 0)
            At = Clock.nsecsElapsed() / 1e6;
        return false;
    }

    bool IsOn = true;
    double At = 0;

private:
    QWidget *const Form;
    QElapsedTimer Clock;
};

double Median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.value(values.size() / 2);
}

} // namespace

class TestStudio : public TestCase
{
    Q_OBJECT

private:
    /// A studio on a file of its own.
    struct Studio {
        explicit Studio(const QByteArray &document = Definition(Gain + Note + Hint))
            : path(WriteFile(folder, "form.orbel", document)), settings(folder.filePath("s.ini"), QSettings::IniFormat)
        {
            bench = std::make_unique<Workbench>(path);
            window = std::make_unique<StudioWindow>(*bench, settings);
            bench->Open();
            window->show();
            QApplication::setActiveWindow(window.get());
        }
        void Save(const QByteArray &document)
        {
            QSignalSpy read(bench.get(), &Workbench::formChanged);
            WriteFile(folder, "form.orbel", document);
            QVERIFY(read.wait(5000));
        }
        template <class Widget = QWidget> Widget *Find(const QString &name) const
        {
            return window->findChild<Widget *>(name);
        }
        QTreeWidget *Findings() const { return Find("findings")->findChild<QTreeWidget *>(); }
        QString TextOfFindings() const
        {
            QStringList lines;
            for (int i = 0; i < Findings()->topLevelItemCount(); ++i)
                lines << Findings()->topLevelItem(i)->text(1) + ' ' + Findings()->topLevelItem(i)->text(3);
            return lines.join(", ");
        }

        QTemporaryDir folder;
        const QString path;
        QSettings settings;
        std::unique_ptr<Workbench> bench;
        std::unique_ptr<StudioWindow> window;
    };

private Q_SLOTS:
    void aSavedFileIsShownAndKeepsWhatIsTyped()
    {
        Studio studio;
        auto *const note = studio.Find<QLineEdit>("note");
        note->setFocus();
        QTest::keyClicks(note, "half a wo");
        studio.Save(Definition(Widget("volume", "SpinBox") + Gain + Note + Hint));
        QVERIFY(studio.Find("volume"));
        QCOMPARE(studio.Find<QLineEdit>("note")->text(), QString("half a wo"));
        QTRY_VERIFY(studio.Find("note")->hasFocus());
    }

    void nothingIsLostInAHundredEdits()
    {
        Studio studio;
        auto *const note = studio.Find<QLineEdit>("note");
        note->setFocus();
        const QPointer<QWidget> form(studio.bench->GetSession()->GetWidget());
        QString typed;
        for (int i = 0; i < 100; ++i) {
            const QByteArray number = QByteArray::number(i);
            // By turns in place and as another form.
            const QByteArray label = "<String>gain" + number + "</String>";
            QByteArray document
                = Definition((i % 4 == 3 ? Widget("w" + number, "SpinBox") : QByteArray()) + Gain + Note + Hint);
            QSignalSpy read(studio.bench.get(), &Workbench::formChanged);
            WriteFile(studio.folder, "form.orbel", document.replace("<String>gain</String>", label));
            for (int tries = 0; read.isEmpty() && tries < 5000; ++tries) {
                if (tries % 20 == 0) {
                    const QChar key('a' + (typed.size() % 26));
                    QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
                    typed += key;
                }
                QTest::qWait(1);
            }
            QCOMPARE(studio.Find<QLineEdit>("note")->text(), typed);
            QVERIFY(studio.Find("note")->hasFocus());
            QCOMPARE(studio.Find<QLabel>("labelgain")->text().left(4 + number.size()), "gain" + number);
        }
        QCOMPARE(studio.bench->GetSession()->GetWidget(), form.data());
        QVERIFY(form->isVisible());
    }

    void editToPixels()
    {
        const QByteArray before = BytesOf(ORBEL_EXAMPLES_DIR "/forms/receiver.orbel");
        Studio studio(before);
        QVector<double> edits;
        QVector<double> openings;
        Painting painting(studio.bench->GetSession()->GetWidget());
        connect(studio.bench.get(), &Workbench::formChanged, &painting, [&] { painting.IsOn = true; });
        for (int i = 0; i < 7; ++i) {
            QByteArray document = before;
            document.replace("<Int>8</Int>", "<Int>" + QByteArray::number(9 + i) + "</Int>");
            painting.IsOn = false;
            painting.Begin();
            WriteFile(studio.folder, "form.orbel", document);
            QVERIFY(QTest::qWaitFor([&] { return painting.At > 0; }, 10000));
            edits << painting.At;
            const Opening anew = Session::OpenText(document);
            Painting first(anew.Opened->GetWidget());
            first.Begin();
            const Opening again = Session::OpenFile(studio.path);
            anew.Opened->GetWidget()->show();
            QVERIFY(QTest::qWaitFor([&] { return first.At > 0; }, 10000));
            openings << first.At;
        }
        qInfo("edit to pixels: %.0f ms, opened anew: %.0f ms (medians)", Median(edits), Median(openings));
    }

    void findingsTellPlaceAndControl()
    {
        Studio studio(
            Definition(Gain + Widget("note", "LineEdit", "\n<Property name='maxLenght'><Int>3</Int></Property>")));
        QVERIFY(studio.TextOfFindings().contains("property-unknown"));
        QTreeWidgetItem *const finding = studio.Findings()->findItems("property-unknown", Qt::MatchExactly, 3).first();
        QVERIFY(!studio.Find<FormOverlay>(QString())->isVisible());
        Q_EMIT studio.Findings()->itemClicked(finding, 0);
        QCOMPARE(studio.bench->GetPicked(), QString("note"));
        QVERIFY(studio.Find<FormOverlay>(QString())->isVisible());
        QSignalSpy edit(studio.bench.get(), &Workbench::editWanted);
        disconnect(studio.bench.get(), &Workbench::editWanted, studio.window.get(), nullptr);
        Q_EMIT studio.Findings()->itemDoubleClicked(finding, 0);
        QCOMPARE(edit.value(0).value(0).toInt(), 7);
    }

    void exceptionsHaveTheirLine_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("told");
        QTest::newRow("at the start") << QByteArray("<Script>\n\nnoSuch();</Script>") << "14 script-exception";
        QTest::newRow("in a handler") << Script << "16 script-exception";
    }
    void exceptionsHaveTheirLine()
    {
        QFETCH(QByteArray, script);
        QFETCH(QString, told);
        Studio studio(Definition(Gain + Note + Hint, script));
        studio.bench->GetSession()->SetValue("gain", 13);
        QTRY_VERIFY2(studio.TextOfFindings().startsWith(told), qPrintable(studio.TextOfFindings()));
    }

    void aFormWithErrorsIsShown()
    {
        Studio studio;
        const QByteArray wrong = Widget("list", "SpinBoxList", "<Property name='itemCount'><Int>2</Int></Property>");
        studio.Save(Definition(wrong));
        QVERIFY(studio.TextOfFindings().contains("item-tag"));
        QVERIFY(!studio.Find("gain"));
        studio.Save("<ZkParamGui");
        QVERIFY(!studio.bench->ShowsFile());
        QCOMPARE(studio.bench->GetSource().GetWidgets().size(), 1);
    }

    void aFileWithoutAFormIsWaitedFor()
    {
        Studio studio("<nothing>");
        QVERIFY(!studio.bench->GetSession());
        QVERIFY(studio.TextOfFindings().contains("xml-malformed"));
        studio.Save(Definition(Gain));
        QTRY_VERIFY(studio.Find("gain"));
    }

    void documentsAreEditedAndReadBack()
    {
        Studio studio;
        auto *const now = studio.Find<QPlainTextEdit>("documentNow");
        QVERIFY(now->toPlainText().contains("<gain>5</gain>"));
        QTest::mouseDClick(now->viewport(), Qt::LeftButton);
        now->setFocus();
        now->selectAll();
        QTest::keyClick(now, Qt::Key_Delete);
        QTest::keyClicks(now, "<Parameters><gain>7</gain></Parameters>");
        QTest::mouseClick(studio.Find<QPushButton>("readBack"), Qt::LeftButton);
        QCOMPARE(studio.bench->GetSession()->Value("gain"), QVariant(7));
        // What cannot be read is told and kept.
        now->selectAll();
        QTest::keyClicks(now, "<Parameters>");
        QTest::mouseClick(studio.Find<QPushButton>("readBack"), Qt::LeftButton);
        QCOMPARE(now->toPlainText(), QString("<Parameters>"));
        QVERIFY(studio.Find<QLabel>("documentWrong")->text().startsWith("Line 1: "));
        auto *const changes = studio.Find<QTreeWidget>("changesNow");
        QTRY_COMPARE(changes->topLevelItemCount(), 1);
        studio.bench->GetSession()->Apply();
        QTRY_COMPARE(changes->topLevelItemCount(), 0);
        const QString sent = studio.Find<QPlainTextEdit>("documentApplied")->toPlainText();
        QVERIFY2(sent.contains("gain: 5 → 7") && sent.contains("<gain>7</gain>"), qPrintable(sent));
    }

    void originsOfProperties_data()
    {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("property");
        QTest::addColumn<QString>("origin");
        QTest::newRow("stated") << ""
                                << "gain.maximum"
                                << "definition, line 3";
        QTest::newRow("nobody") << ""
                                << "gain.suffix"
                                << "nobody";
        QTest::newRow("operator") << "key"
                                  << "gain.value"
                                  << "operator";
        QTest::newRow("operator behind an exception") << "throw key"
                                                      << "gain.value"
                                                      << "operator";
        QTest::newRow("script") << "key"
                                << "hint.text"
                                << "script, FILE:14";
        QTest::newRow("document") << "document"
                                  << "gain.value"
                                  << "studio, a document";
        QTest::newRow("tried out") << "try"
                                   << "gain.suffix"
                                   << "studio, tried out";
    }
    void originsOfProperties()
    {
        QFETCH(QString, steps);
        QFETCH(QString, property);
        Studio studio;
        studio.bench->Pick(property.section('.', 0, 0));
        auto *const list = studio.Find<QTreeWidget>("properties");
        const auto row = [&] { return list->findItems(property.section('.', 1), Qt::MatchExactly).value(0); };
        if (steps.startsWith("throw"))
            studio.bench->GetSession()->SetValue("gain", 13);
        if (steps.endsWith("key"))
            QTest::keyClick(studio.Find("gain"), Qt::Key_Up);
        if (steps == "document") {
            studio.Find<QPlainTextEdit>("documentNow")->setPlainText("<Parameters><gain>7</gain></Parameters>");
            studio.Find<QPushButton>("readBack")->setEnabled(true);
            QTest::mouseClick(studio.Find<QPushButton>("readBack"), Qt::LeftButton);
        }
        if (steps == "try") {
            QTRY_VERIFY(row());
            row()->setText(2, " dB");
            QCOMPARE(studio.Find("gain")->property("suffix").toString(), QString(" dB"));
            QVERIFY(studio.Find<InspectorDock>("inspector")
                        ->GetElement()
                        .contains("<Property name=\"suffix\"><String> dB</String></Property>"));
        }
        QFETCH(QString, origin);
        QTRY_COMPARE(row()->text(4), origin.replace("FILE", studio.path));
    }

    void aControlIsPointedAt()
    {
        Studio studio;
        auto *const gain = studio.Find("gain");
        QTest::keyClick(studio.window.get(), Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
        QWindow *const window = studio.window->windowHandle();
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, gain->mapTo(studio.window.get(), QPoint(5, 5)));
        QCOMPARE(studio.bench->GetPicked(), QString("gain"));
        auto *const signal
            = studio.Find<QTreeWidget>("signals")->findItems("valueChanged(", Qt::MatchStartsWith).value(0);
        QVERIFY(signal);
        QCOMPARE(signal->text(2), QString("line 13: gain.valueChanged.connect(function (value) {"));
    }

    void linesRunInTheFormsEngine_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("told");
        QTest::newRow("value") << "gain.maximum"
                               << "> gain.maximum|\"60\"";
        QTest::newRow("print") << "print(1 + 1)"
                               << "> print(1 + 1)|2";
        QTest::newRow("exception") << "noSuch()"
                                   << "> noSuch()|console:1: ReferenceError: Can't find variable: noSuch";
        QTest::newRow("exception of a handler") << "gain.setValue(13)"
                                                << "> gain.setValue(13)";
    }
    void linesRunInTheFormsEngine()
    {
        QFETCH(QString, line);
        Studio studio;
        auto *const input = studio.Find<QLineEdit>("consoleInput");
        input->setText(line);
        QTest::keyClick(input, Qt::Key_Return);
        QFETCH(QString, told);
        const QString text = studio.Find<QPlainTextEdit>("consoleOutput")->toPlainText().replace('\n', '|');
        QVERIFY2(text.startsWith(told), qPrintable(text));
        QTest::keyClick(input, Qt::Key_Up);
        QCOMPARE(input->text(), line);
    }

    void namesAreCompleted_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("name");
        QTest::newRow("global") << "1 + ga"
                                << "gain";
        QTest::newRow("slot") << "gain.set"
                              << "setReadOnly";
        QTest::newRow("property of the definition") << "gain.max"
                                                    << "maximum";
        QTest::newRow("member of the language") << "Math.s"
                                                << "sin";
    }
    void namesAreCompleted()
    {
        QFETCH(QString, line);
        QFETCH(QString, name);
        Studio studio;
        QVERIFY(ScriptCompleter::Candidates(*studio.bench->GetEngine(), line).contains(name));
    }

    void signalsAreToldInTheirOrder()
    {
        Studio studio;
        studio.Find<QCheckBox>("recordSignals")->setChecked(true);
        QTest::keyClick(studio.Find("gain"), Qt::Key_Up);
        const QString log = studio.Find<QPlainTextEdit>("signalLog")->toPlainText();
        QVERIFY2(log.contains("gain.valueChanged(6)"), qPrintable(log));
    }

    void theDebuggerKnowsFileAndLine()
    {
        Studio studio;
        auto *const dock = studio.Find<DebuggerDock>("debugger");
        QString place;
        QTimer stopped;
        connect(&stopped, &QTimer::timeout, this, [&] {
            if (!dock->IsSuspended())
                return;
            auto *const stack = dock->GetDebugger()->widget(QScriptEngineDebugger::StackWidget);
            const QAbstractItemModel *model = stack->findChild<QAbstractItemView *>()->model();
            place = model->index(0, 2).data().toString();
            if (!place.isEmpty())
                dock->LetGo();
        });
        stopped.start(10);
        studio.Find<QCheckBox>("stopAtStart")->setChecked(true);
        studio.Find<QCheckBox>("debugScript")->setChecked(true);
        QTRY_COMPARE(place, QString("form.orbel:13"));
        studio.Find<QCheckBox>("debugScript")->setChecked(false);
        QVERIFY(studio.Find("gain"));
    }

    void breakpointsStayWithTheirLines()
    {
        Studio studio;
        auto *const dock = studio.Find<DebuggerDock>("debugger");
        const auto list = [&] {
            return dock->GetDebugger()
                ->widget(QScriptEngineDebugger::BreakpointsWidget)
                ->findChild<QAbstractItemView *>()
                ->model();
        };
        const auto asking = [&] {
            for (auto *each :
                dock->GetDebugger()->widget(QScriptEngineDebugger::BreakpointsWidget)->findChildren<QWidget *>()) {
                if (each->inherits("QScriptNewBreakpointWidget"))
                    return each;
            }
            return static_cast<QWidget *>(nullptr);
        };
        studio.Find<QCheckBox>("debugScript")->setChecked(true);
        // That of the handler's first line, which a widget in front moves down by three.
        QVERIFY(
            QMetaObject::invokeMethod(asking(), "newBreakpointRequest", Q_ARG(QString, studio.path), Q_ARG(int, 14)));
        QTRY_COMPARE(list()->rowCount(), 1);
        studio.Save(Definition(Widget("volume", "SpinBox") + Gain + Note + Hint));
        QTRY_COMPARE(list()->rowCount(), 1);
        QVERIFY(list()->index(0, 1).data().toString().endsWith("form.orbel:17"));
        int stops = 0;
        QTimer stopped;
        connect(&stopped, &QTimer::timeout, this, [&] {
            stops += dock->IsSuspended();
            // Off while the script waits.
            studio.Find<QCheckBox>("debugScript")->setChecked(!dock->IsSuspended() && stops == 0);
        });
        stopped.start(10);
        QTest::keyClick(studio.Find("gain"), Qt::Key_Up);
        QTRY_VERIFY(!dock->GetDebugger());
        QVERIFY(stops > 0);
    }

    void linesMoveWithTheText_data()
    {
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("line");
        QTest::newRow("a line in front") << "z|a|b|c|d" << 3;
        QTest::newRow("a line behind") << "a|b|c|d|z" << 2;
        QTest::newRow("among others that change") << "x|y| b|q|d" << 3;
        QTest::newRow("another text") << "a|x|c|d" << 2;
        QTest::newRow("gone") << "a|c|d" << 0;
    }
    void linesMoveWithTheText()
    {
        QFETCH(QString, after);
        QTEST(Breakpoints::Moved(2, QString("a|b|c|d").split('|'), after.split('|')), "line");
    }

    void whatTakesTooLongIsEnded_data()
    {
        QTest::addColumn<QString>("script");
        QTest::newRow("empty loop") << "while (true) { }";
        QTest::newRow("loop that catches") << "while (true) { try { for (;;); } catch (e) { } }";
    }
    void whatTakesTooLongIsEnded()
    {
        QFETCH(QString, script);
        QScriptEngine engine;
        QVector<int> lines;
        auto *const watch = new ScriptWatch(&engine, 50, [&](const ScriptWatch::Place &place) { lines << place.Line; });
        engine.setAgent(watch);
        engine.evaluate("\n" + script);
        QTRY_COMPARE(lines, QVector<int>{2});
        QCOMPARE(engine.evaluate("1 + 1").toInt32(), 2);
        engine.setAgent(nullptr);
    }

    void aHostIsSimulated()
    {
        Studio studio;
        auto *const nodes = studio.Find<QTableWidget>("simulatedNodes");
        QCOMPARE(nodes->item(0, 0)->text(), QString("gain"));
        nodes->item(0, 2)->setText("30");
        QCOMPARE(studio.bench->GetSession()->Value("gain"), QVariant(30));
        QVERIFY(studio.bench->GetSession()->Changes().isEmpty());
        studio.Find<QCheckBox>("simulatedLock")->setChecked(true);
        QVERIFY(!studio.Find("gain")->isEnabled());
        studio.Find<QCheckBox>("simulatedLock")->setChecked(false);
        nodes->item(0, 4)->setText("1");
        auto *const kinds = qobject_cast<QComboBox *>(nodes->cellWidget(0, 3));
        kinds->setCurrentText("constant");
        Q_EMIT kinds->activated(kinds->currentIndex());
        QTRY_COMPARE(studio.bench->GetSession()->Value("gain"), QVariant(1));
    }

    void generatorsGiveWhatTheControlTakes_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("what");
        QTest::addColumn<double>("least");
        QTest::addColumn<double>("most");
        QTest::newRow("constant") << int(ValueGenerator::Constant) << int(ControlInfo::Real) << 2.5 << 2.5;
        QTest::newRow("ramp") << int(ValueGenerator::Ramp) << int(ControlInfo::Whole) << 4.0 << 4.0;
        QTest::newRow("noise") << int(ValueGenerator::Noise) << int(ControlInfo::Real) << 2.5 << 6.5;
        QTest::newRow("choice") << int(ValueGenerator::Constant) << int(ControlInfo::OneOf) << 30.0 << 30.0;
    }
    void generatorsGiveWhatTheControlTakes()
    {
        QFETCH(int, kind);
        QFETCH(int, what);
        QFETCH(double, least);
        QFETCH(double, most);
        ControlInfo control;
        control.What = ControlInfo::Kind(what);
        control.Choices = {{"10", {}}, {"20", {}}, {"30", {}}};
        const double value = ValueGenerator{ValueGenerator::Kind(kind), 2.5, 6.5}.At(12000, control).toDouble();
        QVERIFY2(value >= least && value <= most, qPrintable(QString::number(value)));
    }

    void picturesAreDrawn()
    {
        Studio studio;
        QString error;
        const QPalette before = QApplication::palette();
        const QStringList files = PicturesDialog::Write(
            *studio.bench, {{200, 300}, {"light", "dark"}, {"en"}, studio.folder.filePath("pictures")}, &error);
        QCOMPARE(error, QString());
        QCOMPARE(files.size(), 4);
        QCOMPARE(QImage(files.last()).width(), 300);
        QVERIFY(QImage(files.last()).pixel(2, 2) != QImage(files.first()).pixel(2, 2));
        QCOMPARE(QApplication::palette(), before);
    }

    void aComponentsFormIsShown()
    {
        QTemporaryDir folder;
        const QByteArray list = BytesOf(ORBEL_EXAMPLES_DIR "/forms/components.xml");
        Workbench bench(WriteFile(folder, "list.xml", list));
        QSettings settings(folder.filePath("s.ini"), QSettings::IniFormat);
        StudioWindow window(bench, settings);
        bench.Open();
        const QString first = bench.GetSource().GetWidgets().value(0).Name;
        QVERIFY(window.findChild<QWidget *>(first));
        bench.Pick(first);
        QVERIFY(window.findChild<InspectorDock *>("inspector")->GetElement().contains(first));
        bench.Restart();
        QVERIFY(window.findChild<QWidget *>(first));
    }

    void docksAreKept()
    {
        Studio studio;
        studio.Find<QDockWidget>("findings")->close();
        studio.window->close();
        StudioWindow again(*studio.bench, studio.settings);
        QVERIFY(again.findChild<QDockWidget *>("findings")->isHidden());
    }

    void editors_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("words");
        QTest::newRow("stated") << "ed --at={line} {file}"
                                << "ed|--at=7|/a b";
        QTest::newRow("known") << "/usr/bin/code -r"
                               << "/usr/bin/code|-r|--goto|/a b:7";
        QTest::newRow("in a terminal") << "vim"
                                       << "x-terminal-emulator|-e|vim|+7|/a b";
        QTest::newRow("unknown") << "my-editor"
                                 << "my-editor|/a b";
    }
    void editors()
    {
        QFETCH(QString, command);
        QTEST(EditorCommand::Words(command, "/a b", 7).join('|'), "words");
    }
};

ORBEL_TEST_MAIN(TestStudio)
#include "tst_studio.moc"
