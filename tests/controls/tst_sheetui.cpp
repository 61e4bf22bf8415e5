// The frame of a form: apply row, automatic apply, text size menu, root element.

#include "liveform.h"
#include "testmain.h"

#include <QLayout>
#include <QMenu>
#include <QScrollArea>
#include <QtTest>

using namespace KV218;
using namespace forms;

namespace
{

QString Property(const QString &name, const QString &type, const QString &text)
{
    return QString("<Property name='%1'><%2>%3</%2></Property>").arg(name, type, text);
}

/// Notes the interval of the next timer object that goes off.
class TimerWatch : public QObject
{
public:
    TimerWatch() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *timer = qobject_cast<QTimer *>(watched);
        if (timer && event->type() == QEvent::Timer && timer->isSingleShot())
            Interval = timer->interval();
        return false;
    }
    int Interval = -1;
};

/// Asks for the text size menu of the form where its window has it, and answers it.
void AnswerMenu(const LiveForm &live, const std::function<void(QMenu *)> &answer)
{
    QTimer::singleShot(0, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        answer(menu->actions().first()->menu());
        if (QWidget *open = QApplication::activePopupWidget())
            open->close();
    });
    auto *area = live.Find<QScrollArea>("");
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), area->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(area->viewport(), &event);
}

} // namespace

class TestSheetUi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void frame()
    {
        LiveForm bare("", false);
        QCOMPARE(bare.window->objectName(), QString("sheetArea"));
        QVERIFY(qobject_cast<QScrollArea *>(bare.window.get()) && !bare.Find("applyButtonBox"));

        LiveForm live("");
        QCOMPARE(live.window->objectName(), QString("sheet"));
        QCOMPARE(live.window->layout()->contentsMargins(), QMargins());
        QCOMPARE(live.window->layout()->itemAt(1)->widget()->objectName(), QString("applyButtonBox"));
        QVERIFY(!live.Find("applyButton")->isEnabled() && live.Find<QCheckBox>("autoApply")->isChecked());
        live.form->CreateGUI(false);
        QVERIFY2(live.form->GetGUI() == live.window.get(), "built once");
        live.form->EnableInput(false);
        QVERIFY(!live.Find("applyButtonBox")->isEnabled() && live.Find<QScrollArea>("")->isEnabled());
        live.form->EvaluateScript("sheet.setVisible(false)");
        QVERIFY(live.window->isHidden());
    }

    void announcements_data()
    {
        QTest::addColumn<bool>("applyUi");
        QTest::addColumn<bool>("autoApply");
        QTest::addColumn<QString>("script");
        QTest::addColumn<int>("atOnce");
        QTest::addColumn<int>("later");
        const auto row = [](const char *name, bool applyUi, bool autoApply, const char *script, int atOnce, int later) {
            QTest::newRow(name) << applyUi << autoApply << script << atOnce << later;
        };
        row("finished change", true, true, "sheet.setModified(true)", 0, 1);
        row("edit in progress", true, true, "sheet.setModified(false)", 0, 0);
        row("burst", true, true, "for (i = 0; i < 9; ++i) sheet.setModified(true)", 0, 1);
        row("off", true, false, "sheet.setModified(true)", 0, 0);
        row("turned on", true, false, "sheet.setAutoApplyEnabled(true); sheet.setModified(true)", 0, 1);
        row("turned off while counting", true, true, "sheet.setModified(true); sheet.setAutoApplyEnabled(false)", 0, 1);
        row("reset", true, true, "sheet.setModified(true); sheet.resetModified(); sheet.setModified(false)", 0, 0);
        row("killed", true, true, "sheet.setModified(true); sheet.killAutoApplyTimer()", 0, 0);
        row("no row: at once and later", false, true, "sheet.setModified(true); sheet.setModified(true)", 1, 1);
        row("no row, off: at once", false, false, "sheet.setModified(true)", 1, 0);
        row("no row, turned on: no timer", false, false, "sheet.setAutoApplyEnabled(true); sheet.setModified(true)", 1,
            0);
        row("asked for while clean", true, true, "sheet.applyNow(); sheet.emitParametersXml(false)", 0, 0);
        row("asked for in any case", true, true, "sheet.emitParametersXml()", 1, 0);
        row("asked for while modified", true, true,
            "sheet.setModified(false); sheet.applyNow(); sheet.emitParametersXml(true); sheet.emitParametersXml(false)",
            3, 0);
    }

    void announcements()
    {
        QFETCH(bool, applyUi);
        QFETCH(bool, autoApply);
        QFETCH(QString, script);
        LiveForm live(
            "<Properties>" + Property("autoApplyEnabled", "Bool", autoApply ? "true" : "false") + "</Properties>",
            applyUi);
        QSignalSpy announced(live.form.data(), &OrbelFormular::si_parametersModified);
        live.form->EvaluateScript(script);
        QTEST(announced.size(), "atOnce");
        announced.clear();
        PassTimersBelow(200);
        QTEST(announced.size(), "later");
    }

    void timeouts_data()
    {
        QTest::addColumn<QString>("timeout");
        QTest::addColumn<int>("interval");
        QTest::newRow("below the least") << "50" << 100;
        QTest::newRow("negative") << "-2147483648" << 100;
        QTest::newRow("as stated") << "130" << 130;
        QTest::newRow("no number") << "soon" << 1000;
    }

    void timeouts()
    {
        QFETCH(QString, timeout);
        LiveForm live("<Properties>" + Property("autoApplyTimeout", "Int", timeout) + "</Properties>");
        TimerWatch timer;
        live.form->EvaluateScript("sheet.setAutoApplyTimeout(7); sheet.setModified(true)");
        QTRY_COMPARE(live.log.Seen(), QString("sheet.si_parametersModified()"));
        QTEST(timer.Interval, "interval");
    }

    void aFurtherChangeRestartsTheCountdown()
    {
        LiveForm live("");
        live.form->EvaluateScript("sheet.setModified(true)");
        // All in timers, which go off in the order of their dues: 50, 100 if not restarted, 120, 150.
        QString before("not asked");
        QTimer::singleShot(50, Qt::PreciseTimer, this, [&] {
            live.form->EvaluateScript("sheet.setModified(true)");
            QTimer::singleShot(70, Qt::PreciseTimer, this, [&] { before = live.log.Seen(); });
        });
        QTRY_COMPARE(live.log.Seen(), QString("sheet.si_parametersModified()"));
        QCOMPARE(before, QString());
    }

    void applyRow()
    {
        LiveForm live("");
        auto *button = live.Find<QPushButton>("applyButton");
        auto *box = live.Find<QCheckBox>("autoApply");
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
        QCOMPARE(live.form->GetSheet().GetDelegate()->property("autoApplyEnabled"), QVariant(false));
        live.form->EvaluateScript("sheet.setModified(true)");
        QVERIFY(button->isEnabled());
        QTest::mousePress(button, Qt::LeftButton);
        QCOMPARE(live.log.Take(), QString("sheet.si_parametersModified()"));
        QTest::mouseRelease(button, Qt::LeftButton);
        QVERIFY2(live.log.Take().isEmpty() && button->isEnabled(), "the host has not fetched anything yet");
        live.form->GetXmlString(true);
        QVERIFY(!button->isEnabled());
        live.form->EvaluateScript("sheet.setAutoApplyEnabled(true)");
        QVERIFY(box->isChecked());
    }

    void rootElement_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("root");
        const QString site = "<CustomProperties>" + Property("Attribute_Site", "String", "ignored")
            + Property("Attribute_Area", "Int", "1") + Property("attribute_x", "Int", "1") + "</CustomProperties>";
        const QString named = "<Properties>" + Property("parametersXmlRootTag", "String", "Rx")
            + Property("parametersXmlTypeAttribute", "String", "Foo") + Property("Attribute_Site", "String", "Hill");
        QTest::newRow("nothing stated") << QString() << "<Parameters/>";
        QTest::newRow("declared attributes have no value of their own") << site << "<Parameters Area=\"\" Site=\"\"/>";
        QTest::newRow("property without a declaration") << named + "</Properties>"
                                                        << "<Rx type=\"Foo\"/>";
        QTest::newRow("declared and stated")
            << named + "</Properties>" + site << "<Rx type=\"Foo\" Area=\"\" Site=\"Hill\"/>";
        QTest::newRow("declared inside the list") << named + site + "</Properties>"
                                                  << "<Rx type=\"Foo\" Area=\"\" Site=\"Hill\"/>";
    }

    void rootElement()
    {
        QFETCH(QString, body);
        QTEST(Parse(Definition(body))->GetEmptyXmlElement().simplified(), "root");
    }

    void textSizes_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("choices");
        QTest::newRow("application's size") << 9 << "Text size: Normal 9 *, Medium 11, Large 13";
        QTest::newRow("none of the three") << 10 << "Text size: Normal 9, Medium 11, Large 13";
    }

    void textSizes()
    {
        QFETCH(int, size);
        QObject configuration;
        LiveForm live("");
        live.form->SetConfigObject(&configuration, "f");
        live.form->GetSheet().SetFontSize(size);
        QString choices;
        AnswerMenu(live, [&](QMenu *sizes) {
            QStringList texts;
            for (const QAction *action : sizes->actions())
                texts << action->text() + ' ' + action->data().toString() + (action->isChecked() ? " *" : "");
            choices = sizes->title() + ": " + texts.join(", ");
            sizes->actions().last()->trigger();
        });
        QTEST(choices, "choices");
        QCOMPARE(live.log.Take(), QString("sheet.si_chooseFontSize(13)"));
        QCOMPARE(live.window->font().pointSize(), 13);
        QCOMPARE(configuration.property("f-fontsize").toInt(), 13);
    }

    void aHandlerMayEndTheForm()
    {
        const auto endOn = [](LiveForm &live, const char *event) { live.log.On(event, [&] { live.form.reset(); }); };
        LiveForm pressed("");
        pressed.form->GetSheet().setModified(false);
        endOn(pressed, "sheet.si_parametersModified");
        QTest::mouseClick(pressed.Find("applyButton"), Qt::LeftButton);
        LiveForm timer("");
        endOn(timer, "sheet.si_parametersModified");
        timer.form->GetSheet().setModified(true);
        LiveForm menu("");
        endOn(menu, "sheet.si_chooseFontSize");
        AnswerMenu(menu, [](QMenu *sizes) { sizes->actions().first()->trigger(); });
        QTRY_VERIFY(!pressed.form && !timer.form && !menu.form);
    }

    void theWindowMayGoFirst()
    {
        LiveForm live(Widget("c", "CheckBox"));
        AnswerMenu(live, [&](QMenu *) { live.window.reset(); });
        live.form->EvaluateScript("sheet.setModified(true); sheet.setAutoApplyEnabled(false); sheet.setVisible(true);"
                                  "sheet.showContextMenu(null); sheet.resetModified()");
        live.form->EnableInput(false);
        QVERIFY(!live.form->GetGUI());
        live.form->CreateGUI(true);
        live.window.reset(live.form->GetGUI());
        QVERIFY2(live.Find("c") && live.Find("applyButton"), "another window may be built");
    }
};

ORBEL_TEST_MAIN(TestSheetUi)
#include "tst_sheetui.moc"
