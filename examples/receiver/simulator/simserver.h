#pragma once

#include "receivermodel.h"
#include "simoptions.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTimer>

/// A receiver on the network: one model for all clients, and its clock, which stands still while nobody is connected.
class SimServer : public QObject
{
    Q_OBJECT

public:
    explicit SimServer(const SimOptions &options);

    /// Takes connections of this machine at a port; 0 takes one that is free. False when it cannot be had.
    bool Listen(quint16 port);
    quint16 Port() const { return Listener.serverPort(); }
    QString ErrorText() const { return Listener.errorString(); }

private:
    void Welcome();
    void PassTime();

    const SimOptions Options;
    ReceiverModel Receiver;
    QTcpServer Listener;
    QTimer Tick;
    QElapsedTimer SinceTick;
    /// The receiver's clock, and what of the time that passed it has still to make up, in milliseconds.
    qint64 Now = 0;
    double Owed = 0;
};
