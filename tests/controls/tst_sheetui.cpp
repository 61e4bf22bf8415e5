// The frame of a form: apply row, automatic apply, text size menu, root element.

#include "story.h"

namespace
{

QString Property(const QString &name, const QString &type, const QString &text)
{
    return QString("<Property name='%1'><%2>%3</%2></Property>").arg(name, type, text);
}

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

class TestSheetUi : public TestCase
{
    Q_OBJECT

public:
    /// Notes the interval of the next timer object that goes off.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *timer = qobject_cast<QTimer *>(watched);
        if (timer && event->type() == QEvent::Timer && timer->isSingleShot())
            Interval = timer->interval();
        return false;
    }
    int Interval = -1;

private Q_SLOTS:
    void frame()
    {
        LiveForm bare("", false);
        QCOMPARE(bare.window->objectName(), QString("sheetArea"));
        QVERIFY(qobject_cast<QScrollArea *>(bare.window.get()) && !bare.Find("applyButtonBox"));

        LiveForm live("");
        QCOMPARE(live.window->objectName(), QString("sheet"));
        QVERIFY(!live.Find("applyButton")->isEnabled() && live.Find<QCheckBox>("autoApply")->isChecked());
        live.form->EnableInput(false);
        QVERIFY(!live.Find("applyButtonBox")->isEnabled() && live.Find<QScrollArea>("")->isEnabled());
        live.form->EvaluateScript("sheet.setVisible(false)");
        QVERIFY(live.window->isHidden());

        const Form locked = Bind(Definition(""));
        locked->GetSheet().GetUi()->SetLockReason("why");
        const auto window = Build(locked);
        QVERIFY(window->findChild<QLabel *>("lockLine") && window->findChild<QLabel *>("lockLine")->text() == "why");
    }

    void announcements_data()
    {
        const auto row = Columns<bool, bool, QString, QString>({"applyUi", "autoApply", "script", "announced"});
        // clang-format off
        row("burst", true, true, "for (i = 0; i < 9; ++i) setModified(true)", "0, 1");
        row("off", true, false, "setModified(true)", "0, 0");
        row("turned on", true, false, "setAutoApplyEnabled(true); setModified(true)", "0, 1");
        row("turned off while counting", true, true, "setModified(true); setAutoApplyEnabled(false)", "0, 1");
        row("reset", true, true, "setModified(true); resetModified(); setModified(false)", "0, 0");
        row("killed", true, true, "setModified(true); killAutoApplyTimer()", "0, 0");
        row("no row: at once and later", false, true, "setModified(true); setModified(true)", "1, 1");
        row("no row, off: at once", false, false, "setModified(true)", "1, 0");
        row("no row, turned on: no timer", false, false, "setAutoApplyEnabled(true); setModified(true)", "1, 0");
        row("asked while clean", true, true, "applyNow(); emitParametersXml(false); emitParametersXml()", "1, 0");
        row("asked while modified", true, true, "setModified(false); applyNow(); emitParametersXml(true); emitParametersXml(false)", "3, 0");
        // clang-format on
    }

    void announcements()
    {
        const auto [applyUi, autoApply, script] = Fetch<bool, bool, QString>({"applyUi", "autoApply", "script"});
        LiveForm live(
            "<Properties>" + Property("autoApplyEnabled", "Bool", autoApply ? "true" : "false") + "</Properties>",
            applyUi);
        QSignalSpy announced(live.form.data(), &OrbelFormular::si_parametersModified);
        live.form->EvaluateScript("with (sheet) { " + script + " }");
        const int atOnce = announced.size();
        PassTime(200);
        QTEST(QString("%1, %2").arg(atOnce).arg(announced.size() - atOnce), "announced");
    }

    void timeouts()
    {
        QCoreApplication::instance()->installEventFilter(this);
        for (const auto &[stated, interval] : {std::pair("-2147483648", 100), {"130", 130}, {"soon", 1000}}) {
            LiveForm live("<Properties>" + Property("autoApplyTimeout", "Int", stated) + "</Properties>");
            live.form->EvaluateScript("sheet.setAutoApplyTimeout(7); sheet.setModified(true)");
            QTRY_COMPARE(live.log.Seen(), QString("sheet.si_parametersModified()"));
            QCOMPARE(Interval, interval);
        }
        QCoreApplication::instance()->removeEventFilter(this);
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
        Story("").Play({"click autoApply", "script sheet.setModified(true) =>", "see applyButton.enabled => true",
            "click applyButton => sheet.si_parametersModified()", "see applyButton.enabled => true", "fetch",
            "see applyButton.enabled => false", "script sheet.setAutoApplyEnabled(true)",
            "see autoApply.checked => true"});
    }

    void textSizes()
    {
        QObject configuration;
        LiveForm live("");
        live.form->SetConfigObject(&configuration, "f");
        live.form->GetSheet().SetFontSize(10);
        QStringList seen;
        const auto chooseLast = [&](QMenu *sizes) {
            seen << sizes->title();
            for (const QAction *action : sizes->actions())
                seen << action->text() + ' ' + action->data().toString() + (action->isChecked() ? " *" : "");
            sizes->actions().last()->trigger();
        };
        AnswerMenu(live, chooseLast);
        QCOMPARE(live.log.Take(), QString("sheet.si_chooseFontSize(13)"));
        AnswerMenu(live, chooseLast);
        QCOMPARE(seen.join(", "),
            QString("Text size, Normal 9, Medium 11, Large 13, Text size, Normal 9, Medium 11, Large 13 *"));
        QCOMPARE(live.window->font().pointSize(), 13);
        QCOMPARE(configuration.property("f-fontsize").toInt(), 13);
    }
};

ORBEL_TEST_MAIN(TestSheetUi)
#include "tst_sheetui.moc"
