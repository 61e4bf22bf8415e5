#pragma once

#include <QLatin1String>
#include <QString>
#include <QVarLengthArray>

namespace KV218
{

/// The name of a property as QObject takes it: Latin-1 bytes with an end mark. Names of common length take no memory
/// from the heap, since properties are looked up by the ten thousand while a form is built. For arguments only: it does
/// not outlive the name it was made of.
class PropertyKey
{
public:
    PropertyKey(QLatin1String name)
    {
        Bytes.append(name.data(), name.size());
        Bytes.append('\0');
    }
    /// What is no Latin-1 becomes a question mark.
    PropertyKey(const QString &name) : Same(&name)
    {
        constexpr ushort lastLatin1 = 0xff;
        Bytes.resize(name.size() + 1);
        char *byte = Bytes.data();
        for (const QChar letter : name) {
            const bool fits = letter.unicode() <= lastLatin1 && !letter.isNull();
            *byte++ = letter.unicode() <= lastLatin1 ? char(letter.unicode()) : '?';
            if (!fits)
                Same = nullptr;
        }
        *byte = '\0';
    }
    PropertyKey(const char *name) : PropertyKey(QLatin1String(name)) { }

    /// The bytes in Latin-1, with a zero at the end; alive as long as this.
    const char *data() const { return Bytes.constData(); }
    /// The bytes as text again.
    QString toString() const { return Same ? *Same : QString::fromLatin1(data()); }

private:
    QVarLengthArray<char, 48> Bytes;
    /// The name itself, when its letters are the bytes.
    const QString *Same = nullptr;
};

} // namespace KV218
