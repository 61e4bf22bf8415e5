// The form viewer and the plug-in entry, linked into the test.

#include "createinstance.h"
#include "errorhandler.h"
#include "forms.h"
#include "lxexception.h"
#include "orbelformular.h"
#include "orbeltest.h"
#include "orbeltestmain.h"
#include "tree.h"

#include <stdexcept>

namespace
{

QStringList Told;

void Listen(QtMsgType, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "orbel.viewer") == 0)
        Told << text;
}

const QString MuteForm = Definition(
    Widget("mute", "CheckBox", {"visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true"}));

/// Records what the error handler is given.
struct HandlerLog : IErrorHandler {
    HandlerLog() { ErrorHandler::Instance().SetInterface(this); }
    ~HandlerLog() override { ErrorHandler::Instance().SetInterface(nullptr); }
    void TakeException(const LxException &e) override { Log += "take " + e.GetMessage(); }
    void ReportException(const LxException &e, int context, unsigned int code, int severity, int flags) override
    {
        Log += QString(", report %1 %2 %3 %4 ").arg(context).arg(code, 0, 16).arg(severity).arg(flags)
            + e.GetClassName() + QString::number(e.GetCode(), 16);
    }
    QString Log;
};

} // namespace

class TestViewer : public TestCase
{
    Q_OBJECT

private:
    QByteArray Write(const QString &name, const QString &text)
    {
        return WriteFile(Folder, name, text.toUtf8()).toUtf8();
    }

    /// Calls Init with `own` behind the arguments of the frame, which are four unless some are missing.
    bool Init(const QList<QByteArray> &own, int frameArguments = 4)
    {
        QVector<const char *> arguments(frameArguments, "frame");
        for (const QByteArray &argument : own)
            arguments << argument.constData();
        return Viewer->Init(arguments.size(), arguments.data());
    }

    QTemporaryDir Folder;
    QScopedPointer<OrbelTest> Viewer;
    QtMessageHandler FormerHandler = nullptr;

private Q_SLOTS:
    void init()
    {
        Told.clear();
        FormerHandler = qInstallMessageHandler(Listen);
        Viewer.reset(new OrbelTest("viewer"));
    }

    void cleanup()
    {
        qInstallMessageHandler(FormerHandler);
        delete Viewer->GetWindow();
        delete Viewer->GetFormular();
        Viewer.reset();
    }

    void whatCannotBeReadIsNotShown()
    {
        QVERIFY2(Init({Write("a.orbel", MuteForm)}, 3) && Told.isEmpty(), "too few arguments");
        const QByteArray path = Write("bad.orbel", "<Form/>");
        QVERIFY(Init({path}));
        QCOMPARE(Told, QStringList("** LoadOrbel: Cannot load " + path + "\n"));
        QVERIFY(!Viewer->GetWindow()->isVisible());
    }

    void definitionStandsInTheWindowWithAnApplyRow()
    {
        QVERIFY(Init({Write("mute.orbel", MuteForm), "other"}));
        const QMainWindow *window = Viewer->GetWindow();
        QVERIFY(window->isVisible() && Viewer->GetFormular()->GetGUI()->isVisible());
        QVERIFY2(window->centralWidget() == Viewer->GetFormular()->GetGUI()->parentWidget(), "a holder of its own");
        QCOMPARE(Viewer->GetFormular()->GetVTPath(), QString("/OrbelTest"));
        QCOMPARE(window->sizeHint(), QSize(500, 800));
        window->findChild<QCheckBox *>("mute")->click();
        QVERIFY(Told.isEmpty());
        QTest::mouseClick(window->findChild<QPushButton *>("applyButton"), Qt::LeftButton);
        QCOMPARE(Told.size(), 1);
        QVERIFY2(Told[0].startsWith("sl_parametersModified:\n") && Told[0].endsWith("\n"), qPrintable(Told[0]));
        QVERIFY2(Told[0].contains("<mute>true</mute>"), qPrintable(Told[0]));
        QCOMPARE(Viewer->GetFormular()->GetXmlString(true), QString());
    }

    void exceptionsHaveTheirPlaceInTheFile()
    {
        const QByteArray path = Write("throws.orbel",
            QString(MuteForm).replace(
                "</Sheet>", "</Sheet>\n<Script>\nmute.toggled.connect(function () {\nnoSuch(); });</Script>"));
        QVERIFY(Init({path}));
        Viewer->GetWindow()->findChild<QCheckBox *>("mute")->click();
        QCOMPARE(Told, QStringList(path + ":4: ReferenceError: Can't find variable: noSuch"));
    }

    void componentListGetsATabForEachForm()
    {
        const auto component = [](const QString &name) { return "<Component name=\"" + name + "\"/>"; };
        const auto form
            = [](const QString &text) { return "<ValueString id=\"ORBEL\" value=\"" + text.toHtmlEscaped() + "\"/>"; };
        const QString one = component("One") + form(MuteForm), two = component("Two") + form(MuteForm);
        QVERIFY(Init({Write("list.xml", "<List>" + one + form(MuteForm) + form("<Form/>") + two + "<<")}));
        const auto *tabs = qobject_cast<QTabWidget *>(Viewer->GetWindow()->centralWidget());
        QVERIFY(tabs && Viewer->GetWindow()->isVisible());
        QString found;
        for (int i = 0; i < tabs->count(); ++i) {
            found += tabs->tabText(i) + ";";
            QVERIFY(Tree::Instance()->GetNode(QString("/OrbelTest/Form_%1/mute").arg(i + 1)));
        }
        QCOMPARE(found, QString("One;One;Two;"));
        QVERIFY(!tabs->findChild<QPushButton *>("applyButton") && !Viewer->GetFormular() && Told.isEmpty());
    }

    void failedConstructionIsHandedOver()
    {
        HandlerLog handler;
        const auto throwOwn = []() -> IDllInstance * { throw LxException("own", "file", "Class", "Method", 1, 7); };
        const auto throwOther = []() -> IDllInstance * { throw std::runtime_error("other"); };
        QVERIFY(!CreateInstance(throwOwn) && !CreateInstance(throwOther));
        QCOMPARE(handler.Log,
            QString("take own, report 0 ffffffff 1 0 Class7take other, report 0 ffffffff 1 0 classffffffff"));
    }
};

ORBEL_TEST_MAIN(TestViewer)

#include "tst_viewer.moc"
