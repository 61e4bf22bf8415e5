#include "languageserver.h"

#include "orbelversion.h"

#include <QJsonArray>

#include <algorithm>

namespace Orbel
{

namespace
{

/// Milliseconds without a change before a document is checked, and before it is run as well.
constexpr int TypingPause = 150;
constexpr int RunPause = 1000;

QJsonObject Capabilities()
{
    const QJsonObject sync{{Key("openClose"), true}, {Key("change"), 2}};
    const QJsonObject completion{
        {Key("triggerCharacters"), QJsonArray{Key("<"), Key("\""), Key("'"), Key("."), Key(">"), Key("/")}}};
    const QJsonArray actions{Key("quickfix"), Key("source.fixAll.orbel")};
    return {{Key("positionEncoding"), Key("utf-16")}, {Key("textDocumentSync"), sync},
        {Key("completionProvider"), completion}, {Key("hoverProvider"), true}, {Key("definitionProvider"), true},
        {Key("referencesProvider"), true}, {Key("documentHighlightProvider"), true},
        {Key("renameProvider"), QJsonObject{{Key("prepareProvider"), true}}}, {Key("documentSymbolProvider"), true},
        {Key("documentFormattingProvider"), true},
        {Key("codeActionProvider"), QJsonObject{{Key("codeActionKinds"), actions}}}};
}

} // namespace

LanguageServer::LanguageServer(const Sender &send, QObject *parent) : QObject(parent), Send(send)
{
    Turn.setSingleShot(true);
    connect(&Turn, &QTimer::timeout, this, &LanguageServer::Work);
    Pause.setSingleShot(true);
    Pause.setInterval(TypingPause);
    connect(&Pause, &QTimer::timeout, this, QOverload<>::of(&LanguageServer::Publish));
    LongPause.setSingleShot(true);
    LongPause.setInterval(RunPause);
    connect(&LongPause, &QTimer::timeout, this, &LanguageServer::RunChanged);
}

void LanguageServer::Take(const QByteArray &text)
{
    const RpcMessage message = RpcMessage::Parse(text);
    if (message.What == RpcMessage::Notification && message.Method == QLatin1String("$/cancelRequest"))
        return Cancel(message.Params.value(Key("id")));
    Waiting.push_back(message);
    Turn.start(0);
}

void LanguageServer::Settle()
{
    while (!Waiting.empty())
        Work();
    Publish();
}

void LanguageServer::Work()
{
    if (Waiting.empty())
        return;
    const RpcMessage message = Waiting.front();
    Waiting.pop_front();
    if (!Waiting.empty())
        Turn.start(0);
    WorkOn(message);
}

void LanguageServer::WorkOn(const RpcMessage &message)
{
    switch (message.What) {
    case RpcMessage::Request:
        return Answer(message);
    case RpcMessage::Notification:
        return Hear(message);
    case RpcMessage::Response:
        return;
    case RpcMessage::Unreadable:
        return Send(RpcErrorReply(message.Id, {RpcError::ParseError, QStringLiteral("The message is no JSON")}));
    case RpcMessage::Invalid:
        return Send(RpcErrorReply(message.Id, {RpcError::InvalidRequest, QStringLiteral("The message is no request")}));
    }
}

void LanguageServer::Answer(const RpcMessage &request)
{
    try {
        Send(RpcResult(request.Id, ResultOf(request)));
    } catch (const RpcFailure &failure) {
        Send(RpcErrorReply(request.Id, failure));
    }
}

QJsonValue LanguageServer::ResultOf(const RpcMessage &request)
{
    if (request.Method == QLatin1String("initialize"))
        return Initialize(request.Params);
    if (State == Fresh)
        throw RpcFailure{RpcError::NotInitialized, QStringLiteral("The first request is \"initialize\"")};
    if (State == ShutDown)
        throw RpcFailure{RpcError::InvalidRequest, QStringLiteral("The server is shut down")};
    if (request.Method == QLatin1String("shutdown")) {
        State = ShutDown;
        return QJsonValue::Null;
    }
    if (!Workspace::Knows(request.Method))
        throw RpcFailure{RpcError::MethodNotFound, QStringLiteral("There is no request \"%1\"").arg(request.Method)};
    return Documents.Answer(request.Method, request.Params);
}

QJsonValue LanguageServer::Initialize(const QJsonObject &params)
{
    if (State != Fresh)
        throw RpcFailure{RpcError::InvalidRequest, QStringLiteral("The server is initialized already")};
    State = Running;
    const QJsonValue completion = params.value(Key("capabilities"))[Key("textDocument")][Key("completion")];
    Documents.SetTakesSnippets(completion[Key("completionItem")][Key("snippetSupport")].toBool());
    const QJsonObject server{{Key("name"), Key("orbel")}, {Key("version"), Key(ORBEL_VERSION_STRING)}};
    return QJsonObject{{Key("capabilities"), Capabilities()}, {Key("serverInfo"), server}};
}

/// Nobody waits for an answer; what is not known is passed over.
void LanguageServer::Hear(const RpcMessage &notification)
{
    if (notification.Method == QLatin1String("exit"))
        Q_EMIT ended(IsShutDown() ? 0 : 1);
    if (State != Running)
        return;
    if (notification.Method == QLatin1String("textDocument/didOpen"))
        Await(Documents.Open(notification.Params));
    else if (notification.Method == QLatin1String("textDocument/didChange"))
        Await(Documents.Change(notification.Params));
    else if (notification.Method == QLatin1String("textDocument/didClose"))
        Await(Documents.Close(notification.Params));
}

void LanguageServer::Cancel(const QJsonValue &id)
{
    const auto request = std::find_if(Waiting.begin(), Waiting.end(),
        [&](const RpcMessage &message) { return message.What == RpcMessage::Request && message.Id == id; });
    if (request == Waiting.end())
        return;
    Waiting.erase(request);
    Send(RpcErrorReply(id, {RpcError::Cancelled, QStringLiteral("The request is cancelled")}));
}

void LanguageServer::Await(const QString &uri)
{
    if (uri.isEmpty())
        return;
    Changed.insert(uri);
    Unrun.insert(uri);
    Pause.start();
    LongPause.start();
}

void LanguageServer::Publish()
{
    const QSet<QString> changed = std::exchange(Changed, {});
    for (const QString &uri : changed)
        Publish(uri);
}

void LanguageServer::Publish(const QString &uri)
{
    Send(RpcNotification(QStringLiteral("textDocument/publishDiagnostics"), Documents.Diagnostics(uri)));
}

void LanguageServer::RunChanged()
{
    const QSet<QString> unrun = std::exchange(Unrun, {});
    for (const QString &uri : unrun) {
        const OpenDocument *document = RunElsewhere ? Documents.Runnable(uri) : nullptr;
        if (!document)
            continue;
        const QByteArray bytes = document->Bytes();
        RunElsewhere(bytes, document->What(), [this, uri, bytes](const Findings &findings) {
            if (Documents.TakeRun(uri, bytes, findings))
                Publish(uri);
        });
    }
}

} // namespace Orbel
