// A monitoring receiver to try hosts with: answers over TCP as docs/receiver-protocol.md tells, and misbehaves as the
// options tell.

#include "simserver.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

namespace
{

/// The number that an option states; ends the program with a message where it is none or beyond the limits.
double NumberOf(const QCommandLineParser &parser, const QString &name, double lowest, double highest)
{
    bool isNumber = false;
    const double number = parser.value(name).toDouble(&isNumber);
    if (isNumber && number >= lowest && number <= highest)
        return number;
    QTextStream(stderr) << QStringLiteral("--%1 takes a number from %2 to %3\n").arg(name).arg(lowest).arg(highest);
    exit(2);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("simreceiver");
    QCommandLineParser parser;
    parser.setApplicationDescription("Plays a monitoring receiver over TCP, for this machine alone.");
    parser.addHelpOption();
    parser.addOptions({
        {"port", "Listens at port <P>; 0 takes any that is free. The port is printed.", "P", "5025"},
        {"slow", "Waits <MS> milliseconds before each line is carried out.", "MS", "0"},
        {"refuse", "Refuses commands that match <PATTERN>, as \"FREQ 666*\"; may be given more than once.", "PATTERN"},
        {"drop-after", "Drops each connection after <N> lines.", "N", "0"},
        {"rate", "Sends <HZ> reports a second to clients that did not ask for any.", "HZ", "0"},
        {"speed", "Lets <X> seconds of the receiver pass in one.", "X", "1"},
        {"seed", "Makes the noise from the number <SEED>.", "SEED", "1"},
    });
    parser.process(application);

    SimOptions options;
    options.Slow = int(NumberOf(parser, "slow", 0, 60000));
    options.Refused = parser.values("refuse");
    options.DropAfter = int(NumberOf(parser, "drop-after", 0, 1e9));
    options.Rate = NumberOf(parser, "rate", 0, 100);
    options.Speed = NumberOf(parser, "speed", 0.01, 1000);
    options.Seed = quint32(NumberOf(parser, "seed", 0, 4294967295.0));

    SimServer server(options);
    if (!server.Listen(quint16(NumberOf(parser, "port", 0, 65535)))) {
        QTextStream(stderr) << server.ErrorText() << '\n';
        return 1;
    }
    QTextStream(stdout) << "port " << server.Port() << '\n' << Qt::flush;
    return QCoreApplication::exec();
}
