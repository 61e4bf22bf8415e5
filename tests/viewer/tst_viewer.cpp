// The form viewer and the plug-in entry, linked into the test.

#include "createinstance.h"
#include "errorhandler.h"
#include "forms.h"
#include "lxexception.h"
#include "orbelformular.h"
#include "orbeltest.h"
#include "orbeltestmain.h"
#include "rows.h"
#include "testmain.h"
#include "tree.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

#include <stdexcept>

using namespace KV218;

namespace
{

QStringList Told;

void Listen(QtMsgType, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "orbel.viewer") == 0)
        Told << text;
}

const QString MuteForm = forms::Definition(
    forms::Widget("mute", "CheckBox", {"visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true"}));

QString Component(const QString &name)
{
    return QString("<Component name=\"%1\"/>").arg(name);
}

QString Definition(const QString &id, const QString &text)
{
    return QString("<ValueString id=\"%1\" value=\"%2\"/>").arg(id, text.toHtmlEscaped());
}

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

class TestViewer : public QObject
{
    Q_OBJECT

private:
    QByteArray Write(const QString &name, const QString &text)
    {
        QFile file(Folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 ? file.fileName().toUtf8()
                                                                                 : QByteArray();
    }

    /// Calls Init with `own` behind the arguments of the frame, which are four unless some are missing.
    bool Init(const QList<QByteArray> &own, int frameArguments = 4)
    {
        QVector<const char *> arguments(frameArguments, "frame");
        for (const QByteArray &argument : own)
            arguments << argument.constData();
        return Viewer->Init(arguments.size(), arguments.data());
    }

    QTabWidget *Tabs() const { return qobject_cast<QTabWidget *>(Viewer->GetWindow()->centralWidget()); }

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

    void componentListGetsATabForEachForm_data()
    {
        Columns<QString, QString, QString>({"name", "list", "titles"});

        const QString form = Definition("ORBEL", MuteForm);
        const QString one = Component("One");
        const QString two = Component("Two");
        const QString other = Definition("orbel", MuteForm);
        const QString noForm = Definition("ORBEL", "<Form/>");
        // clang-format off
        QTest::newRow("two components")                  << "list.xml"   << one + form + two + form   << "One;Two;";
        QTest::newRow("two forms of one component")      << "list.xml"   << one + form + form         << "One;One;";
        QTest::newRow("what is no form")                 << "list.xml"   << one + noForm + two + form << "Two;";
        QTest::newRow("malformed behind the first form") << "list.xml"   << one + form + "<<"         << "One;";
        QTest::newRow("missing file opens the window")   << ""           << ""                        << "";
        // clang-format on
    }

    void componentListGetsATabForEachForm()
    {
        const auto [name, list, titles] = Fetch<QString, QString, QString>({"name", "list", "titles"});
        QVERIFY(Init({name.isEmpty() ? "missing.xml" : Write(name, "<List>" + list + "</List>")}));
        QVERIFY(Viewer->GetWindow()->isVisible());
        QVERIFY(Tabs());
        QString found;
        for (int i = 0; i < Tabs()->count(); ++i) {
            found += Tabs()->tabText(i) + ";";
            QVERIFY(Tree::Instance()->GetNode(QString("/OrbelTest/Form_%1/mute").arg(i + 1)));
        }
        QCOMPARE(found, titles);
        QVERIFY(!Tabs()->findChild<QPushButton *>("applyButton"));
        QVERIFY(!Viewer->GetFormular());
        QVERIFY(Told.isEmpty());
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
