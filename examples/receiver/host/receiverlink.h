#pragma once

#include <QMap>
#include <QQueue>
#include <QTcpSocket>
#include <QTimer>

/// The way to a receiver that speaks as docs/receiver-protocol.md tells: connects, comes back after a loss, asks for
/// reports, and sends one command after the other, each when the one before is answered.
class ReceiverLink : public QObject
{
    Q_OBJECT

public:
    /// Header and text of each value of a report.
    using Report = QMap<QString, QString>;

    explicit ReceiverLink(QObject *parent = nullptr);
    ~ReceiverLink() override { Socket.blockSignals(true); }

    /// Connects now, and again whenever there is no connection.
    void Open(const QString &host, quint16 port);
    /// Sends the command, when its turn comes. `name` is what its outcome is told of.
    void Send(const QString &name, const QString &command);

Q_SIGNALS:
    /// The receiver reports.
    void up();
    /// The connection is lost, or did not come about.
    void down(const QString &reason);
    void reported(const ReceiverLink::Report &values);
    /// What became of a command, unless another one of that name waits, whose outcome is then told.
    void accepted(const QString &name);
    void refused(const QString &name, const QString &reason);

private:
    struct Waiting {
        QString Name;
        QString Command;
    };

    void FollowState(QAbstractSocket::SocketState state);
    void Hear();
    void HearAnswer(const QString &line);
    void SendNext();

    static const int FirstRetry = 250;

    QString Host;
    quint16 Port = 0;
    QTcpSocket Socket;
    QTimer Retry;
    int Wait = FirstRetry;
    bool IsUp = false;
    /// Goes off when nothing is heard for too long.
    QTimer Silence;
    /// The first one is sent and not answered yet.
    QQueue<Waiting> Queue;
};
