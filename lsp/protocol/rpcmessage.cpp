#include "rpcmessage.h"

#include <QJsonDocument>

namespace Orbel
{

namespace
{

const QString ProtocolVersion = QStringLiteral("2.0");

bool IsId(const QJsonValue &value)
{
    return value.isDouble() || value.isString();
}

RpcMessage::Kind KindOf(const QJsonObject &message)
{
    const QJsonValue id = message.value(Key("id"));
    if (message.value(Key("method")).isString())
        return id.isUndefined() ? RpcMessage::Notification : IsId(id) ? RpcMessage::Request : RpcMessage::Invalid;
    return IsId(id) && (message.contains(Key("result")) || message.contains(Key("error"))) ? RpcMessage::Response
                                                                                           : RpcMessage::Invalid;
}

} // namespace

RpcMessage RpcMessage::Parse(const QByteArray &text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    RpcMessage message;
    if (error.error != QJsonParseError::NoError)
        return message;
    const QJsonObject object = document.object();
    message.What = KindOf(object);
    if (IsId(object.value(Key("id"))))
        message.Id = object.value(Key("id"));
    message.Method = object.value(Key("method")).toString();
    message.Params = object.value(Key("params")).toObject();
    return message;
}

QJsonObject RpcResult(const QJsonValue &id, const QJsonValue &result)
{
    return {{Key("jsonrpc"), ProtocolVersion}, {Key("id"), id}, {Key("result"), result}};
}

QJsonObject RpcErrorReply(const QJsonValue &id, const RpcFailure &failure)
{
    const QJsonObject error{{Key("code"), int(failure.Error)}, {Key("message"), failure.Text}};
    return {{Key("jsonrpc"), ProtocolVersion}, {Key("id"), id}, {Key("error"), error}};
}

QJsonObject RpcNotification(const QString &method, const QJsonObject &params)
{
    return {{Key("jsonrpc"), ProtocolVersion}, {Key("method"), method}, {Key("params"), params}};
}

QByteArray Framed(const QJsonObject &message)
{
    const QByteArray text = QJsonDocument(message).toJson(QJsonDocument::Compact);
    return "Content-Length: " + QByteArray::number(text.size()) + "\r\n\r\n" + text;
}

} // namespace Orbel
