#include "messagereader.h"

namespace Orbel
{

namespace
{

/// A header longer than this is none.
constexpr int MostHeaderBytes = 8192;
const char HeaderEnd[] = "\r\n\r\n";
const char LengthField[] = "content-length:";

/// The length that a header states; negative without one. What stands in front of the field, the rest of a message cut
/// short for instance, does not matter.
qint64 StatedLength(const QByteArray &header)
{
    const int field = header.toLower().lastIndexOf(LengthField);
    if (field < 0)
        return -1;
    const int from = field + int(qstrlen(LengthField));
    const int lineEnd = header.indexOf('\r', from);
    const QByteArray digits = header.mid(from, lineEnd < 0 ? -1 : lineEnd - from).trimmed();
    bool isNumber = false;
    const qint64 length = digits.toLongLong(&isNumber);
    return isNumber ? length : -1;
}

} // namespace

void MessageReader::Feed(const QByteArray &bytes)
{
    if (At > 0) {
        Buffer.remove(0, At);
        At = 0;
    }
    Buffer += bytes;
}

std::optional<QByteArray> MessageReader::Next()
{
    do {
        Drop(Swallowed);
        if (Length < 0 && !ReadHeader())
            return std::nullopt;
    } while (Length < 0);
    if (Buffer.size() - At < Length)
        return std::nullopt;
    const QByteArray message = Buffer.mid(At, int(Length));
    At += int(Length);
    Length = -1;
    return message;
}

void MessageReader::Drop(qint64 count)
{
    const int dropped = int(qMin(count, qint64(Buffer.size() - At)));
    At += dropped;
    Swallowed = count - dropped;
}

/// False when there is no whole header.
bool MessageReader::ReadHeader()
{
    if (Swallowed > 0)
        return false;
    const int end = Buffer.indexOf(HeaderEnd, At);
    if (end < 0) {
        // The end of a header may have come in part.
        const int pending = Buffer.size() - At;
        if (pending > MostHeaderBytes)
            At += pending - MostHeaderBytes;
        return false;
    }
    const qint64 length = StatedLength(Buffer.mid(At, end - At));
    At = end + int(qstrlen(HeaderEnd));
    if (length > MostBytes)
        Swallowed = length;
    else
        Length = length;
    return true;
}

} // namespace Orbel
