#include "receiverlink.h"

#include <algorithm>
#include <utility>

namespace
{

// Milliseconds; a retry waits twice as long as the one before.
const int LastRetry = 8000;
const int LongestSilence = 10000;
const int LongestLine = 65536;

} // namespace

ReceiverLink::ReceiverLink(QObject *parent) : QObject(parent)
{
    Retry.setSingleShot(true);
    Silence.setSingleShot(true);
    Silence.setInterval(LongestSilence);
    connect(&Retry, &QTimer::timeout, this, [this] {
        Silence.start();
        Socket.connectToHost(Host, Port);
    });
    connect(&Silence, &QTimer::timeout, &Socket, &QAbstractSocket::abort);
    connect(&Socket, &QAbstractSocket::stateChanged, this, &ReceiverLink::FollowState);
    connect(&Socket, &QIODevice::readyRead, this, &ReceiverLink::Hear);
}

void ReceiverLink::Open(const QString &host, quint16 port)
{
    Host = host;
    Port = port;
    Retry.start(0);
}

void ReceiverLink::Send(const QString &name, const QString &command)
{
    if (!IsUp) {
        emit refused(name, Socket.errorString());
        return;
    }
    Queue.enqueue({name, command});
    if (Queue.size() == 1)
        SendNext();
}

void ReceiverLink::FollowState(QAbstractSocket::SocketState state)
{
    if (state == QAbstractSocket::ConnectedState) {
        Socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        Socket.write("REP:RATE 20\n");
    } else if (state == QAbstractSocket::UnconnectedState) {
        IsUp = false;
        Silence.stop();
        Retry.start(Wait);
        Wait = std::min(2 * Wait, LastRetry);
        const QString reason = Socket.errorString();
        for (const Waiting &command : std::exchange(Queue, {}))
            emit refused(command.Name, reason);
        emit down(reason);
    }
}

void ReceiverLink::Hear()
{
    while (Socket.canReadLine()) {
        Silence.start();
        const QString line = QString::fromLatin1(Socket.readLine().trimmed());
        if (!line.startsWith('!')) {
            HearAnswer(line);
            continue;
        }
        Report values;
        for (const QString &field : line.mid(1).split(','))
            values.insert(field.section(' ', 0, 0), field.section(' ', 1));
        if (!std::exchange(IsUp, true)) {
            Wait = FirstRetry;
            emit up();
        }
        emit reported(values);
    }
    if (Socket.bytesAvailable() > LongestLine)
        Socket.abort();
}

/// Of a command's error, which is the only thing that is asked for: -222,"Data out of range;FREQ 30 GHz".
void ReceiverLink::HearAnswer(const QString &line)
{
    if (Queue.isEmpty())
        return;
    const Waiting command = Queue.dequeue();
    const bool isLast
        = std::none_of(Queue.cbegin(), Queue.cend(), [&](const Waiting &other) { return other.Name == command.Name; });
    SendNext();
    if (isLast && line.startsWith("0,"))
        emit accepted(command.Name);
    else if (isLast) // the catalogue has the standard's texts
        emit refused(command.Name, tr(line.section('"', 1, 1).section(';', 0, 0).toLatin1()));
}

void ReceiverLink::SendNext()
{
    if (!Queue.isEmpty())
        Socket.write(Queue.head().Command.toLatin1() + "\nSYST:ERR?\n");
}
