// The example host and the simulated receiver as two programs: what is typed into the window arrives at the receiver,
// and what becomes of it there is what the operator goes on with.

#include "testcase.h"
#include "xoperator.h"

#include <QtNetwork>

using Orbel::XOperator;

class TestReceiverHost : public QObject
{
    Q_OBJECT

private:
    /// Starts the receiver, at the port where it was before.
    void StartReceiver(const QStringList &options = {})
    {
        Receiver.start(ORBEL_SIMRECEIVER, QStringList{"--port", Port, "--refuse", "FREQ 666*"} + options);
        QVERIFY(Receiver.waitForStarted());
        QTRY_VERIFY(Receiver.canReadLine());
        Port = Receiver.readLine().trimmed().mid(5);
        Client.connectToHost(QHostAddress::LocalHost, Port.toUShort());
        QTRY_COMPARE(Client.state(), QAbstractSocket::ConnectedState);
    }
    void StopReceiver()
    {
        Client.abort();
        Receiver.kill();
        Receiver.waitForFinished();
    }
    /// What the receiver answers to another client.
    QByteArray Ask(const QByteArray &query)
    {
        Client.write(query + '\n');
        while (!Client.canReadLine() && Client.waitForReadyRead(5000)) { }
        return Client.readLine().trimmed();
    }
    double Frequency() { return Ask("FREQ?").toDouble(); }
    QString Title() const { return XOperator::Run({"getwindowname", Window}); }
    bool IsConnected() const { return Title().endsWith("(connected)"); }
    /// Types over the large frequency field, which has the focus.
    void Tune(const QString &text)
    {
        XOperator::Type(text);
        XOperator::Press("Return");
    }
    /// Steps the digit that is marked; gives what the receiver had before.
    void StepFrom(double frequency)
    {
        QTRY_COMPARE(Frequency(), frequency);
        XOperator::Press("Up");
        QTRY_VERIFY(Frequency() != frequency);
        QVERIFY2(Frequency() - frequency <= 1e6, "a step from what is shown");
    }

    QTemporaryDir Home;
    QProcess Receiver;
    QProcess Host;
    QTcpSocket Client;
    QString Port = "0";
    QString Window;
    /// What the host has told since it was looked at last.
    QByteArray Told;

private Q_SLOTS:
    void initTestCase()
    {
        connect(&Host, &QProcess::readyRead, this, [this] { Told += Host.readAll(); });
    }
    void init()
    {
        StartReceiver();
        for (const QString form : {"/tuning.orbel", "/scan.orbel"}) {
            QFile::remove(Home.path() + form);
            QVERIFY(QFile::copy(ORBEL_EXAMPLES_DIR "/receiver/forms" + form, Home.path() + form));
        }
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", Home.path());
        environment.insert("XDG_CONFIG_HOME", Home.path() + "/config");
        Host.setProcessEnvironment(environment);
        Host.setProcessChannelMode(QProcess::MergedChannels);
        Host.start(ORBEL_RECEIVERHOST, {"--port", Port, "--forms", Home.path(), "--presets", Home.path() + "/presets"});
        QVERIFY(Host.waitForStarted());
        const QStringList search{"search", "--onlyvisible", "--name", Port};
        QTRY_VERIFY_WITH_TIMEOUT(!(Window = XOperator::Run(search)).isEmpty(), 30000);
        XOperator::Run({"windowfocus", "--sync", Window});
        QTRY_VERIFY2(IsConnected(), qPrintable(Title()));
    }
    void cleanup()
    {
        QDir(Home.path() + "/config").removeRecursively();
        Host.kill();
        Host.waitForFinished();
        StopReceiver();
    }

    void whatIsTunedArrives()
    {
        Tune("145.5 MHz");
        StepFrom(145.5e6);
    }

    void whatIsRefusedGoesBack()
    {
        Tune("7 MHz");
        QTRY_COMPARE(Frequency(), 7e6);
        Tune("666 MHz");
        QTRY_VERIFY(Told.contains("Tuning/Frequency: Command protected"));
        StepFrom(7e6);
    }

    void aLostConnectionLocksUntilItIsBack()
    {
        Tune("7 MHz");
        QTRY_COMPARE(Frequency(), 7e6);
        StopReceiver();
        QTRY_VERIFY2(Title().contains("(not connected"), qPrintable(Title()));
        Tune("8 MHz");
        StartReceiver();
        QTRY_VERIFY_WITH_TIMEOUT(IsConnected(), 20000);
        StepFrom(98.5e6);
    }

    void aPresetIsStoredAndRecalled()
    {
        Tune("145.5 MHz");
        QTRY_COMPARE(Frequency(), 145.5e6);
        XOperator::Press("ctrl+s");
        QString dialog;
        QTRY_VERIFY(!(dialog = XOperator::Run({"search", "--onlyvisible", "--name", "Store a preset"})).isEmpty());
        XOperator::Run({"windowfocus", "--sync", dialog});
        Tune("Relay/2 m");
        const QString file = Home.path() + "/presets/tuning/Relay%2F2%20m.xml";
        QTRY_VERIFY(QFile::exists(file));
        XOperator::Run({"windowfocus", "--sync", Window});
        Ask("FREQ 7 MHz;DEM AM;*OPC?");
        const auto recall = [this] {
            XOperator::Press("ctrl+1");
            return Ask("FREQ?;DEM?");
        };
        QTRY_COMPARE(recall(), QByteArray("145500000;FM"));
    }

    void anEditedDefinitionTakesItsPlace()
    {
        QFile file(Home.path() + "/tuning.orbel");
        QVERIFY(file.open(QIODevice::ReadWrite));
        QString text = QString::fromUtf8(file.readAll());
        const QString volume = QRegularExpression("    <Widget name=\"volume\".*</Widget>\n",
            QRegularExpression::DotMatchesEverythingOption | QRegularExpression::InvertedGreedinessOption)
                                   .match(text)
                                   .captured();
        QVERIFY(!volume.isEmpty());
        text.remove(volume);
        text.replace("    <Widget name=\"frequency\"", volume + "    <Widget name=\"frequency\"");
        Told.clear();
        file.resize(0);
        file.write(text.toUtf8());
        file.close();
        QTRY_COMPARE(Told, QByteArray("tuning: read\n"));
        StepFrom(98.5e6);
        XOperator::Press("shift+Tab");
        Tune("55");
        QTRY_COMPARE(Ask("SYST:AUD:VOL?"), QByteArray("55"));
    }

    void languageAndColoursChange()
    {
        for (const char *keys : {"alt+v", "Down", "Down", "Return"})
            XOperator::Press(keys);
        QTRY_VERIFY2(Title().endsWith("(verbunden)"), qPrintable(Title()));
        Tune("666 MHz");
        QTRY_VERIFY2(Told.contains("Tuning/Frequency: Einstellung ist gesch"), Told);
        const auto darkness = [] {
            return 255
                - QGuiApplication::primaryScreen()->grabWindow(0, 5, 100, 1, 1).toImage().pixelColor(0, 0).lightness();
        };
        const int light = darkness();
        XOperator::Press("alt+a");
        XOperator::Press("Return");
        QTRY_VERIFY(darkness() > light + 100);
    }

    void whatIsSetIsKeptAtTheEnd()
    {
        Tune("145.5 MHz");
        QTRY_COMPARE(Frequency(), 145.5e6);
        QTRY_VERIFY(IsConnected());
        XOperator::Press("ctrl+q");
        QTRY_COMPARE(Host.state(), QProcess::NotRunning);
        QVERIFY(Host.exitStatus() == QProcess::NormalExit && Host.exitCode() == 0);
        const QSettings kept(Home.path() + "/config/OrbelParser/receiverhost.conf", QSettings::IniFormat);
        QVERIFY(kept.contains("geometry") && kept.value("tuning/values").toString().contains(">145500000<"));
    }

    void anHourOfReports()
    {
        const auto memory = [this] {
            QFile file(QString("/proc/%1/statm").arg(Host.processId()));
            return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toInt() * 4096 : 0;
        };
        StopReceiver();
        StartReceiver({"--speed", QString::number(FromEnvironment("ORBEL_HOUR_SPEED", 120))});
        QTRY_VERIFY_WITH_TIMEOUT(IsConnected(), 20000);
        // The scan's place tells the receiver's time: 10 seconds a step.
        Ask("SCAN:STAR 100 MHz;STOP 1 GHz;STEP 1 MHz;DWEL 10;RUN ON;*OPC?");
        QTRY_VERIFY_WITH_TIMEOUT(Frequency() >= 130e6, 300000);
        const int before = memory();
        for (int minute = 5; minute < 60; ++minute) {
            QTRY_VERIFY_WITH_TIMEOUT(Frequency() >= 100e6 + 6e6 * minute, 300000);
            Ask("DEM " + QByteArray(minute % 2 ? "AM" : "FM") + ";GAIN:AUTO " + QByteArray::number(minute % 3)
                + ";*OPC?");
        }
        Ask("SCAN:RUN OFF;*OPC?");
        StepFrom(Frequency());
        QVERIFY2(memory() - before < 4000000, qPrintable(QString::number(memory() - before)));
    }
};

ORBEL_TEST_MAIN(TestReceiverHost)
#include "tst_receiverhost.moc"
