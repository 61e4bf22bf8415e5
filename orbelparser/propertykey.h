#pragma once

#include <QLatin1String>
#include <QString>
#include <QVarLengthArray>

namespace KV218
{

/// The name of a property as QObject takes it: Latin-1 bytes with an end mark. Names of common length take no memory
/// from the heap, since properties are looked up by the ten thousand while a form is built.
class PropertyKey
{
public:
    PropertyKey(QLatin1String name)
    {
        Bytes.append(name.data(), name.size());
        Bytes.append('\0');
    }
    /// What is no Latin-1 becomes a question mark.
    PropertyKey(const QString &name) : PropertyKey(name.midRef(0)) {}
    PropertyKey(const QStringRef &name)
    {
        constexpr ushort lastLatin1 = 0xff;
        Bytes.reserve(name.size() + 1);
        for (const QChar &letter : name)
            Bytes.append(letter.unicode() > lastLatin1 ? '?' : char(letter.unicode()));
        Bytes.append('\0');
    }
    PropertyKey(const char *name) : PropertyKey(QLatin1String(name)) {}

    const char *data() const { return Bytes.constData(); }

private:
    QVarLengthArray<char, 48> Bytes;
};

} // namespace KV218
