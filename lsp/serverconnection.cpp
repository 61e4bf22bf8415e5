#include "serverconnection.h"

#include <QCoreApplication>

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <unistd.h>

namespace Orbel
{

ServerConnection::ServerConnection(int input, int output)
    : Input(input), Output(output), Server([this](const QJsonObject &message) { Write(message); }),
      Notifier(input, QSocketNotifier::Read)
{
    // A client that has gone is told by the write itself.
    std::signal(SIGPIPE, SIG_IGN);
    connect(&Notifier, &QSocketNotifier::activated, this, &ServerConnection::Read);
    connect(&Server, &LanguageServer::ended, this, &ServerConnection::End);
}

void ServerConnection::Read()
{
    char bytes[65536];
    const ssize_t count = ::read(Input, bytes, sizeof(bytes));
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0) {
        Notifier.setEnabled(false);
        Server.Settle();
        End(Server.IsShutDown() ? 0 : 1);
        return;
    }
    Reader.Feed(QByteArray(bytes, int(count)));
    while (const std::optional<QByteArray> message = Reader.Next())
        Server.Take(*message);
}

void ServerConnection::Write(const QJsonObject &message)
{
    const QByteArray bytes = Framed(message);
    for (int written = 0; written < bytes.size();) {
        const ssize_t count = ::write(Output, bytes.constData() + written, size_t(bytes.size() - written));
        if (count < 0 && errno == EAGAIN)
            AwaitRoom();
        else if (count < 0 && errno != EINTR)
            return End(1);
        written += int(qMax<ssize_t>(0, count));
    }
}

/// A client may share a descriptor that does not block.
void ServerConnection::AwaitRoom() const
{
    pollfd room{Output, POLLOUT, 0};
    ::poll(&room, 1, -1);
}

void ServerConnection::End(int status)
{
    Notifier.setEnabled(false);
    QCoreApplication::exit(status);
}

} // namespace Orbel
