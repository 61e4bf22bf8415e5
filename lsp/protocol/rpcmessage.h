#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

namespace Orbel
{

/// The name of a member in JSON.
inline QString Key(const char *name)
{
    return QLatin1String(name);
}

/// The errors of the protocol that this server answers with.
enum class RpcError {
    ParseError = -32700,
    InvalidRequest = -32600,
    MethodNotFound = -32601,
    InvalidParams = -32602,
    NotInitialized = -32002,
    RequestFailed = -32803,
    Cancelled = -32800,
};

/// Thrown by who handles a request, and answered.
struct RpcFailure {
    RpcError Error;
    QString Text;
};

/// One message of a client.
struct RpcMessage {
    enum Kind {
        Request,
        Notification,
        Response, ///< To a request of the server's.
        Unreadable, ///< No JSON.
        Invalid, ///< JSON, but no message.
    };
    Kind What = Unreadable;
    QJsonValue Id = QJsonValue::Null;
    QString Method;
    QJsonObject Params; ///< Empty when they are missing, or no object.

    static RpcMessage Parse(const QByteArray &text);
};

/// Messages of the server.
QJsonObject RpcResult(const QJsonValue &id, const QJsonValue &result);
QJsonObject RpcErrorReply(const QJsonValue &id, const RpcFailure &failure);
QJsonObject RpcNotification(const QString &method, const QJsonObject &params);

/// A message with the header in front, as it goes over the line.
QByteArray Framed(const QJsonObject &message);

} // namespace Orbel
