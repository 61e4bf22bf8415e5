#pragma once

#include "xmlwalk.h"

#include <limits>
#include <QXmlStreamWriter>

namespace KV218
{

/// Attribute names of the entries of lists and tables in parameter documents.
namespace attribute
{

inline constexpr QLatin1String Index = Latin1("index");
inline constexpr QLatin1String Key = Latin1("key");
inline constexpr QLatin1String Row = Latin1("row");
inline constexpr QLatin1String Column = Latin1("column");

} // namespace attribute

/// Reads the list element on whose start `reader` stands: `onEntry(attributes, text)` gets each element inside,
/// whatever its name. One that returns false ends the reading at once.
template <class OnEntry> void ReadEntries(QXmlStreamReader &reader, OnEntry onEntry)
{
    ForEachStart(reader, [&](const QStringRef &) {
        const QXmlStreamAttributes attributes = reader.attributes();
        return onEntry(attributes, reader.readElementText());
    });
}

/// The same for entries that count: `onEntry(index, text)`. An entry without the attribute `index` follows the one
/// before it; the first is 0. The index may lie outside every list.
template <class OnEntry> void ReadIndexedEntries(QXmlStreamReader &reader, OnEntry onEntry)
{
    qint64 next = 0;
    ReadEntries(reader, [&](const QXmlStreamAttributes &attributes, const QString &text) {
        if (attributes.hasAttribute(attribute::Index))
            next = attributes.value(attribute::Index).toInt();
        const qint64 index = next++;
        return index > std::numeric_limits<int>::max() || onEntry(int(index), text);
    });
}

/// Writes a list element with `count` elements `entryName` in it; `writeEntry(i)` writes the attributes and the text of
/// entry `i`, from 0.
template <class WriteEntry>
void WriteEntries(
    QXmlStreamWriter &writer, const QString &name, const QString &entryName, int count, WriteEntry writeEntry)
{
    writer.writeStartElement(name);
    for (int i = 0; i < count; ++i) {
        // Meant: where the definition names no entries, theirs are elements without a name, which no reader takes.
        writer.writeStartElement(entryName);
        writeEntry(i);
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

} // namespace KV218
