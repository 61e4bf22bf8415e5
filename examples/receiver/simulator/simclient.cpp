#include "simclient.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace
{

/// How many lines of one client are carried out before the others get their turn.
const int LinesAtOnce = 100;

CommandSet::Refusal RefusalOf(const QStringList &patterns)
{
    QVector<QRegularExpression> expressions;
    for (const QString &pattern : patterns)
        expressions << QRegularExpression(
            QRegularExpression::wildcardToRegularExpression(pattern), QRegularExpression::CaseInsensitiveOption);
    return [expressions](const QByteArray &command) {
        const QString text = QString::fromLatin1(command);
        return std::any_of(expressions.cbegin(), expressions.cend(),
            [&](const QRegularExpression &expression) { return expression.match(text).hasMatch(); });
    };
}

} // namespace

SimClient::SimClient(QTcpSocket *socket, ReceiverModel &receiver, const SimOptions &options, QObject *parent)
    : QObject(parent), Socket(socket), Commands(receiver, RefusalOf(options.Refused)), Options(options)
{
    socket->setParent(this);
    // What is more waits with its sender.
    socket->setReadBufferSize(MostUnread);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    Commands.SetReportRate(options.Rate);
    Pause.setSingleShot(true);
    connect(&Pause, &QTimer::timeout, this, &SimClient::TakeLines);
    const auto go = [this] {
        if (!Pause.isActive())
            Pause.start(Options.Slow);
    };
    connect(socket, &QTcpSocket::readyRead, this, go);
    connect(socket, &QTcpSocket::bytesWritten, this, go);
    connect(socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

void SimClient::ReportAt(qint64 now)
{
    if (Commands.ReportRate() <= 0 || double(now - LastReport) < 1000 / Commands.ReportRate())
        return;
    LastReport = now;
    if (Socket->state() == QAbstractSocket::ConnectedState && !IsClogged())
        Socket->write(Commands.Report() + '\n');
}

void SimClient::TakeLines()
{
    QByteArray line;
    for (int taken = 0; taken < (Options.Slow > 0 ? 1 : LinesAtOnce); ++taken) {
        if (IsClogged() || !TakeLine(line))
            return;
        Answer(line);
        if (Socket->state() != QAbstractSocket::ConnectedState)
            return;
    }
    Pause.start(Options.Slow);
}

bool SimClient::TakeLine(QByteArray &line)
{
    for (;;) {
        const int end = Unread.indexOf('\n');
        if ((end < 0 ? Unread.size() : end) > LongestLine && !std::exchange(IsOverlong, true))
            Commands.AddError(ScpiError::InputBufferOverrun);
        if (end >= 0) {
            line = Unread.left(end);
            Unread.remove(0, end + 1);
            if (!std::exchange(IsOverlong, false))
                return true;
            continue;
        }
        if (IsOverlong)
            Unread.clear();
        // A socket whose buffer was full takes in more only when it has been emptied, so nothing may stay there.
        const QByteArray more = Socket->read(MostUnread - Unread.size());
        if (more.isEmpty())
            return false;
        Unread += more;
    }
}

void SimClient::Answer(const QByteArray &line)
{
    const QByteArray answer = Commands.Execute(line.trimmed());
    if (!answer.isEmpty())
        Socket->write(answer + '\n');
    if (++LinesTaken == Options.DropAfter)
        Socket->abort();
}
