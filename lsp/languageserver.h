#pragma once

#include "rpcmessage.h"
#include "workspace.h"

#include <QObject>
#include <QSet>
#include <QTimer>

#include <deque>
#include <functional>

namespace Orbel
{

/// A server of the Language Server Protocol 3.17 for form definitions: messages in, messages out. Messages wait in a
/// row and are taken one for each turn of the event loop, so that a request that is cancelled in time is never worked
/// on. Diagnostics follow when the typing pauses. Belongs to the GUI thread, and needs a QApplication.
class LanguageServer : public QObject
{
    Q_OBJECT

public:
    using Sender = std::function<void(const QJsonObject &message)>;

    /// Runs the forms of a document elsewhere and tells later what the checker and the run have found.
    using Run = std::function<void(
        const QByteArray &document, OpenDocument::Kind kind, std::function<void(const Findings &)> done)>;

    explicit LanguageServer(const Sender &send, QObject *parent = nullptr);

    /// With it, a form that is clean but for its script is run when the typing has paused for longer.
    void SetRun(const Run &run) { RunElsewhere = run; }

    /// A message of the client, without its header.
    void Take(const QByteArray &message);
    /// Answers at once all that waits, and publishes what has changed.
    void Settle();
    /// Whether the client has asked for the end properly.
    bool IsShutDown() const { return State == ShutDown; }

Q_SIGNALS:
    /// The client wants the process to end. The status is 0 after a proper shutdown, or else 1.
    void ended(int status);

private:
    enum States { Fresh, Running, ShutDown };

    void Work();
    void WorkOn(const RpcMessage &message);
    void Answer(const RpcMessage &request);
    QJsonValue ResultOf(const RpcMessage &request);
    QJsonValue Initialize(const QJsonObject &params);
    void Hear(const RpcMessage &notification);
    void Cancel(const QJsonValue &id);
    void Await(const QString &uri);
    void Publish();
    void Publish(const QString &uri);
    void RunChanged();

    Sender Send;
    Run RunElsewhere;
    Workspace Documents;
    States State = Fresh;
    std::deque<RpcMessage> Waiting;
    QSet<QString> Changed; ///< Documents whose diagnostics are to be published.
    QSet<QString> Unrun; ///< Documents that are to be run.
    QTimer Turn;
    QTimer Pause;
    QTimer LongPause;
};

} // namespace Orbel
