#pragma once

#include "commandset.h"
#include "simoptions.h"

#include <QTcpSocket>
#include <QTimer>

/// One client's connection. Whatever the client sends, or does not take off, no more than a bounded amount is kept: a
/// line that does not end is thrown away, commands wait in the network while answers do, and reports that do not get
/// away are left out.
class SimClient : public QObject
{
    Q_OBJECT

public:
    /// Takes the socket over. Destroys itself when the connection is lost.
    SimClient(QTcpSocket *socket, ReceiverModel &receiver, const SimOptions &options, QObject *parent);

    /// Sends a report if one is due at this time of the receiver's clock, in milliseconds.
    void ReportAt(qint64 now);

private:
    void TakeLines();
    bool TakeLine(QByteArray &line);
    void Answer(const QByteArray &line);
    bool IsClogged() const { return Socket->bytesToWrite() > MostUnsent; }

    static const int LongestLine = 4096;
    static const int MostUnread = 4 * LongestLine;
    static const int MostUnsent = 256 * 1024;

    QTcpSocket *Socket;
    CommandSet Commands;
    const SimOptions &Options;
    QTimer Pause;
    QByteArray Unread;
    /// Whether the line that comes is too long, and thrown away up to its end.
    bool IsOverlong = false;
    int LinesTaken = 0;
    qint64 LastReport = 0;
};
