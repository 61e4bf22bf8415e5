#pragma once

#include "languageserver.h"
#include "messagereader.h"

#include <QSocketNotifier>

namespace Orbel
{

/// A language server on two file descriptors. It ends the application's event loop when the client wants that, and when
/// it has gone.
class ServerConnection : public QObject
{
public:
    ServerConnection(int input, int output);

    LanguageServer &GetServer() { return Server; }

private:
    void Read();
    void Write(const QJsonObject &message);
    void AwaitRoom() const;
    void End(int status);

    int Input;
    int Output;
    MessageReader Reader;
    LanguageServer Server;
    QSocketNotifier Notifier;
};

} // namespace Orbel
