#include "simserver.h"

#include "simclient.h"

namespace
{

const int MostClients = 32;
/// The receiver's clock goes in steps of so many milliseconds; no report is due more often.
const int Step = 10;
/// A machine that slept does not make up for all of it.
const int MostSteps = 2000;

} // namespace

SimServer::SimServer(const SimOptions &options) : Options(options), Receiver(options.Seed)
{
    connect(&Listener, &QTcpServer::newConnection, this, &SimServer::Welcome);
    connect(&Tick, &QTimer::timeout, this, &SimServer::PassTime);
    Tick.setTimerType(Qt::PreciseTimer);
    Tick.setInterval(Step);
}

bool SimServer::Listen(quint16 port)
{
    return Listener.listen(QHostAddress::LocalHost, port);
}

void SimServer::Welcome()
{
    while (QTcpSocket *socket = Listener.nextPendingConnection()) {
        if (findChildren<SimClient *>().size() >= MostClients) {
            delete socket;
            continue;
        }
        new SimClient(socket, Receiver, Options, this);
        if (!Tick.isActive()) {
            SinceTick.start();
            Tick.start();
        }
    }
}

void SimServer::PassTime()
{
    const auto clients = findChildren<SimClient *>();
    if (clients.isEmpty()) {
        Tick.stop();
        return;
    }
    Owed = std::min(Owed + double(SinceTick.restart()) * Options.Speed, double(MostSteps * Step));
    for (; Owed >= Step; Owed -= Step) {
        Now += Step;
        Receiver.Advance(Step);
        for (SimClient *client : clients)
            client->ReportAt(Now);
    }
}
