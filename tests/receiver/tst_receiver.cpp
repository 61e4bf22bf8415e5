// The receiver that hosts are tried with: what it answers to lines, how its level comes about, and what bad connections
// do.

#include "commandset.h"
#include "simserver.h"
#include "testcase.h"

#include <QtNetwork>

using Model = ReceiverModel;

namespace
{

/// The numbers of the errors that wait, parted by blanks; takes them away.
QByteArray TakeErrors(CommandSet &commands)
{
    QByteArrayList numbers;
    while (commands.Execute(":SYST:ERR:COUN?") != "0")
        numbers << commands.Execute(":SYST:ERR?").split(',').first();
    return numbers.join(' ');
}

/// A client of a receiver; what is written before the connection stands is sent then.
struct Connection : QTcpSocket {
    explicit Connection(const SimServer &server) { connectToHost(QHostAddress::LocalHost, server.Port()); }

    /// Whether the server has closed it; may take what it sent before.
    bool IsLost()
    {
        Heard += readAll();
        return state() == UnconnectedState;
    }
    QByteArray Hear() { return Heard += readAll(); }

    QByteArray Heard;
};

} // namespace

class TestReceiver : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data()
    {
        const auto row = Columns<QByteArray, QByteArray, QByteArray>({"line", "answer", "errors"});
        // clang-format off
        row("short form", "FREQ 7 MHz;FREQ?", "7000000", "");
        row("long form, optional nodes, any case", ":sense:Frequency:CW 7 mhz;:SENS:FREQ?", "7000000", "");
        row("neither form", "FREQU 7 MHz", "", "-113");
        row("number of the receiver", "SENS1:FREQ1 7e6;FREQ?", "7000000", "");
        row("number of another receiver", "SENS2:FREQ?", "", "-114");
        row("two names for one", "BWID 15 kHz;BAND?;BANDWIDTH:RES?", "15000;15000", "");
        row("the next command stays in its branch", "SCAN:STAR 1 GHz;STOP 2 GHz;:SCAN:STAR?;STOP?", "1000000000;2000000000", "");
        row("a common command leaves the branch", "SCAN:STOP 2 GHz;*OPC?;STOP?", "1;2000000000", "");
        row("without a colon it is no root", "SCAN:STOP?;SCAN:STOP?", "108000000", "-113");
        row("empty commands", " ; ;FREQ?; ", "98500000", "");
        row("blank before exponent and unit", "FREQ +.1455 E3\tMHz;FREQ?", "145500000", "");
        row("E begins no exponent", "FREQ 1 EHZ", "", "-131");
        row("time in another unit", "SCAN:DWEL 250 ms;DWEL?", "0.25", "");
        row("unit of something else", "FREQ 7 dB", "", "-131");
        row("unit of a switch", "GAIN:AUTO 1 dB", "", "-138");
        row("words for numbers", "FREQ MIN;FREQ?;FREQ? MAX;FREQ? DEFAULT", "9000;26500000000;98500000", "");
        row("steps", "FREQ:STEP 10 kHz;:FREQ UP;FREQ UP;FREQ DOWN;FREQ?", "98510000", "");
        row("steps through choices", "BAND DOWN;BAND?;BAND UP;BAND UP;BAND?", "50000;150000", "");
        row("a step beyond the limits", "FREQ MAX;FREQ UP;FREQ?;BAND MIN;BAND DOWN;BAND?", "26500000000;100", "-222 -222");
        row("limits", "FREQ 9 kHz;FREQ 8999;FREQ?;FREQ 26.5 GHz;FREQ 26500000001;FREQ?", "9000;26500000000", "-222 -222");
        row("too large for any number", "FREQ 1E400", "", "-222");
        row("exponent too large", "FREQ 1E32001", "", "-123");
        row("rounded to its resolution", "FREQ 98500000.4;FREQ?;:OUTP:SQU:THR 3.14 DBUV;THR?", "98500000;3.1", "");
        row("no such bandwidth", "BAND 16 kHz;BAND?", "120000", "-224");
        row("no such demodulation", "DEM FMX;DEM?;DEM 1;DEM 'FM'", "FM", "-224 -128");
        row("string for a number", "FREQ \"a;b\"\"c\"", "", "-158");
        row("string without an end", "FREQ 'a", "", "-151");
        row("word for a number", "FREQ HIGH", "", "-141");
        row("switches", "OUTP:SQU ON;SQU?;SQU 0;SQU?;SQU 0.4;SQU?;SQU -1;SQU?;SQU YES", "1;0;0;1", "-224");
        row("nothing given", "FREQ", "", "-109");
        row("too much given", "FREQ 1 MHz,2 MHz", "", "-108");
        row("a query with a number", "FREQ? 3", "", "-224");
        row("no query, no command", "*RST?;*IDN", "", "-113");
        row("no separator", "FREQ 1 MHz 2", "", "-103");
        row("number run into letters", "FREQ 1.2.3", "", "-121");
        row("a comma too many", "FREQ 7 MHz,", "", "-102");
        row("mnemonic too long", "FREQUENCYFREQ 1", "", "-112");
        row("control characters", QByteArray("FREQ\0 1", 7), "", "-101");
        row("letters of another code", "FREQ 7 \xC2\xB5Hz", "", "-101");
        row("what is not understood ends its line", "FREQ 7 MHz;FREK 8 MHz;FREQ?", "", "-113");
        row("what is refused does not", "FREQ 99 GHz;BAND 15 kHz;BAND?", "15000", "-222");
        row("protected", "OUTP:SQU:THR 66;THR?", "6.0", "-203");
        row("manual gain ends the automatic one", "GAIN:AUTO?;:GAIN 12;GAIN?;GAIN:AUTO?", "1;12;0", "");
        row("no tuning while a scan runs", "SCAN:RUN ON;:FREQ 7 MHz;FREQ?;SCAN:STOP 1 GHz;RUN OFF;:FREQ 7 MHz;FREQ?", "88000000;7000000", "-221 -221");
        row("no scan backwards", "SCAN:STAR 2 GHz;RUN ON;RUN?", "0", "-221");
        row("reset", "FREQ 7 MHz;GAIN 3;*RST;FREQ?;GAIN:AUTO?", "98500000;1", "");
        row("errors are kept in order", "FREQ 99 GHz;BAND 101;:SYST:ERR?;ERR:NEXT?;:SYST:ERR?",
            "-222,\"Data out of range;FREQ 99 GHz\";-224,\"Illegal parameter value;BAND 101\";0,\"No error\"", "");
        row("errors without end", QByteArray("FREQ 0;").repeated(30), "", "-222 " + QByteArray("-222 ").repeated(18) + "-350");
        row("errors cleared", "FREQ 0;*CLS", "", "");
        row("rate of reports", "REP:RATE 20;RATE?;RATE 101;RATE -1 Hz;RATE FAST", "20", "-222 -222 -104");
        // clang-format on
    }
    void answers()
    {
        const auto [line, answer, errors] = Fetch<QByteArray, QByteArray, QByteArray>({"line", "answer", "errors"});
        Model receiver;
        CommandSet commands(receiver, [](const QByteArray &command) { return command.endsWith("66"); });
        QCOMPARE(commands.Execute(line), answer);
        QCOMPARE(TakeErrors(commands), errors);
    }

    void whatAReportTellsCanBeSent()
    {
        Model receiver(1), other(1);
        CommandSet teller(receiver), hearer(other);
        teller.Execute("DEM USB;:BAND 2400;:FREQ 14.25 MHz;:GAIN 33;:SYST:AUD:VOL 45;:SCAN:STEP 12.5 kHz");
        for (const QByteArray &field : teller.Report().mid(1).split(',')) {
            if (!field.startsWith("MEAS:") && !field.startsWith("GAIN:AUTO"))
                hearer.Execute(field);
        }
        QCOMPARE(TakeErrors(hearer), QByteArray());
        QCOMPARE(hearer.Report(), teller.Report());
    }

    void theLevelFollowsWhatTransmits_data()
    {
        const auto row = Columns<double, double, double, double>({"frequency", "bandwidth", "lowest", "highest"});
        row("noise", 200e6, 15e3, -20, -5);
        row("more noise in more bandwidth", 200e6, 2e6, 3, 15);
        row("the whole of a transmitter", 98.5e6, 250e3, 51, 57);
        row("a tenth of it", 98.5e6, 15e3, 41, 47);
        row("beside it", 98.7e6, 15e3, -20, -5);
    }
    void theLevelFollowsWhatTransmits()
    {
        const auto [frequency, bandwidth, lowest, highest]
            = Fetch<double, double, double, double>({"frequency", "bandwidth", "lowest", "highest"});
        Model receiver(7), same(7), other(8);
        bool differs = false;
        for (Model *model : {&receiver, &same, &other}) {
            QCOMPARE(model->Set(Model::Frequency, frequency), Model::Answer::Done);
            QCOMPARE(model->Set(Model::Bandwidth, bandwidth), Model::Answer::Done);
        }
        for (int time = 0; time < 100; ++time) {
            for (Model *model : {&receiver, &same, &other})
                model->Advance(10);
            QVERIFY2(
                receiver.Level() > lowest && receiver.Level() < highest, qPrintable(QString::number(receiver.Level())));
            QCOMPARE(receiver.Level(), same.Level());
            differs = differs || receiver.Level() != other.Level();
        }
        QVERIFY(differs);
    }

    void aScanTunes()
    {
        Model receiver;
        CommandSet commands(receiver);
        commands.Execute("SCAN:STAR 100 MHz;STOP 101 MHz;STEP 400 kHz;DWEL 100 ms;RUN ON");
        QByteArrayList seen;
        for (int step = 0; step < 5; ++step) {
            seen << commands.Execute("FREQ?");
            receiver.Advance(60);
        }
        QCOMPARE(seen.join(' '), QByteArray("100000000 100000000 100400000 100400000 100800000"));
        receiver.Advance(10);
        QCOMPARE(commands.Execute("FREQ?"), QByteArray("100000000"));
    }

    void reportsComeAtTheRateThatIsAskedFor()
    {
        SimOptions options;
        options.Speed = 50;
        SimServer server(options);
        QVERIFY(server.Listen(0));
        Connection asking(server), silent(server);
        asking.write("REP:RATE 20\n");
        silent.write("*IDN?\n");
        QTRY_VERIFY(asking.Hear().count('\n') >= 200);
        QVERIFY(asking.Heard.startsWith("!FREQ 98500000,"));
        QCOMPARE(silent.Hear(), QByteArray("Orbel,SimReceiver,1,1.0\n"));
        asking.write("REP:RATE 0;*IDN?\n");
        QTRY_VERIFY(asking.Hear().endsWith("1.0\n"));
    }

    void connectionsThatAreDropped()
    {
        SimOptions options;
        options.DropAfter = 3;
        options.Slow = 5;
        options.Refused = QStringList{"freq 6*", "dem ?m"};
        SimServer server(options);
        QVERIFY(server.Listen(0));
        Connection first(server);
        first.write("FREQ 7 MHz;FREQ 6 MHz;DEM AM;DEM USB\nFREQ?;DEM?;:SYST:ERR:COUN?\r\n*OPC?\n*IDN?\n");
        QTRY_VERIFY(first.IsLost());
        QCOMPARE(first.Heard, QByteArray("7000000;USB;2\n"));
        Connection second(server);
        second.write("FREQ?\n");
        QTRY_COMPARE(second.Hear(), QByteArray("7000000\n"));
    }

    void whatFloodsIsHeldOff()
    {
        SimServer server{SimOptions()};
        QVERIFY(server.Listen(0));
        Connection endless(server), greedy(server), binary(server);
        for (Connection *connection : {&endless, &greedy, &binary})
            QTRY_COMPARE(connection->state(), QAbstractSocket::ConnectedState);
        const QByteArray queries = QByteArray("*IDN?\n").repeated(1000);
        greedy.setReadBufferSize(1000); // takes nothing off
        QByteArray noise(100000, '\0');
        for (int i = 0; i < noise.size(); ++i)
            noise[i] = char(i * 7 + i / 256);
        for (int i = 0; i < 100; ++i) {
            endless.write(QByteArray(100000, 'x'));
            greedy.write(queries);
            binary.write(noise);
        }
        endless.write("\nSYST:ERR?\nSYST:ERR?\n");
        binary.write("\n*CLS;*OPC?\n");
        QTRY_COMPARE(endless.Hear(), QByteArray("-363,\"Input buffer overrun\"\n0,\"No error\"\n"));
        QTRY_VERIFY(binary.Hear().endsWith("1\n"));
        qint64 unsent = 0;
        for (const QTcpSocket *socket : server.findChildren<QTcpSocket *>())
            unsent = qMax(unsent, socket->bytesToWrite());
        QVERIFY2(unsent < 300000, qPrintable(QString::number(unsent)));
        greedy.setReadBufferSize(0);
        QTRY_COMPARE(greedy.Hear().count('\n'), 100000);
    }
};

ORBEL_TEST_MAIN(TestReceiver)
#include "tst_receiver.moc"
