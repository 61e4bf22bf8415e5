#pragma once

#include "checkexport.h"

#include <QString>
#include <QVector>

namespace Orbel
{

/// A text that knows for each of its characters where in the file it came from, through entities, CDATA sections and
/// attributes inside attributes.
class ORBEL_CHECK_INTERNAL PlacedText
{
public:
    PlacedText() = default;
    /// A whole file: each character stands at its own index.
    explicit PlacedText(const QString &file) : Characters(file) { }
    /// A text of which only one place is known.
    static PlacedText AllAt(const QString &text, int offset);

    const QString &Text() const { return Characters; }
    /// The place of a character in the file; the index may be one past the end, and larger ones count as that.
    int OffsetOf(int index) const;
    /// Makes room for that many.
    void Reserve(int characters);
    void Append(QChar character, int offset);
    /// Sets the place behind the last character.
    void Close(int offset);

private:
    QString Characters;
    /// One entry more than characters; empty for a whole file.
    QVector<int> Offsets;
};

/// What a reader makes of the content of an element, which stands in source[from, to): entities, character references,
/// CDATA sections and line ends are resolved, comments and instructions left out. Entities that the document declares
/// itself stay as they stand.
ORBEL_CHECK_INTERNAL PlacedText DecodeContent(const PlacedText &source, int from, int to);
/// The same for the value of an attribute, without its quotation marks.
ORBEL_CHECK_INTERNAL PlacedText DecodeAttribute(const PlacedText &source, int from, int to);

} // namespace Orbel
