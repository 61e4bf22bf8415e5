#pragma once

#include <QByteArray>

#include <optional>

namespace Orbel
{

/// Takes a stream of bytes apart into messages, each behind a header with its length. What is no header is passed over,
/// and a message that is announced as longer than any editor sends is swallowed; whatever comes, the reader finds the
/// next header behind it.
class MessageReader
{
public:
    /// Bytes of the longest message that is taken.
    static constexpr qint64 MostBytes = 64 * 1024 * 1024;

    void Feed(const QByteArray &bytes);
    /// The next message, when all of it is there.
    std::optional<QByteArray> Next();

private:
    bool ReadHeader();
    void Drop(qint64 count);

    QByteArray Buffer;
    int At = 0; ///< Where in the buffer the rest begins.
    qint64 Length = -1; ///< Of the message that follows; negative before its header.
    qint64 Swallowed = 0; ///< Bytes that are still to be passed over.
};

} // namespace Orbel
