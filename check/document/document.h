#pragma once

#include "checkexport.h"
#include "placedtext.h"

#include <QHash>
#include <QString>
#include <QVector>

class QXmlStreamReader;

namespace Orbel
{

struct Attribute {
    QString Name; ///< Without a prefix.
    QString Value;
    bool IsForeign; ///< Stands in a namespace, and is no business of the dialect.
    int Offset; ///< Of the name, in the document's own text, like all offsets here.
    int ValueFrom;
    int ValueTo;
};

struct Element {
    QString Name;
    int Offset = 0;
    int Parent = -1;
    int FirstChild = -1;
    int NextSibling = -1;
    int Last = 0; ///< The last element inside, or the element itself.
    int ContentFrom = 0;
    int ContentTo = 0;
    QString Text; ///< What stands directly inside, up to the first child.
    QVector<Attribute> Attributes;
};

/// A start or end tag.
struct Tag {
    int Element;
    bool IsStart;
};

/// An XML document as elements and tags with their places, as far as it is well-formed. Elements stand in the order of
/// their start tags.
class ORBEL_CHECK_INTERNAL Document
{
public:
    explicit Document(const PlacedText &source);

    const QString &Text() const { return Source.Text(); }
    const QVector<Element> &Elements() const { return All; }
    const Element &At(int element) const { return All.at(element); }
    const QVector<Tag> &Tags() const { return TagList; }
    /// False when the reader met an error, or the text ended early.
    bool IsWhole() const { return Error.isEmpty(); }
    const QString &ErrorText() const { return Error; }

    /// The value of an attribute; a missing one reads as an empty text.
    QString AttributeOf(int element, QLatin1String name) const;
    const Attribute *FindAttribute(int element, QLatin1String name) const;

    /// Places in the file.
    int PlaceOf(int element) const { return Source.OffsetOf(At(element).Offset); }
    int PlaceOfAttribute(int element, QLatin1String name) const;
    int PlaceOfText(int element) const;
    int PlaceOf(const Attribute &attribute) const { return Source.OffsetOf(attribute.Offset); }
    /// Of an offset in the document's own text.
    int PlaceAt(int offset) const { return Source.OffsetOf(offset); }
    int PlaceOfError() const { return Source.OffsetOf(ErrorOffset); }

    /// Texts with the place of each character.
    PlacedText ContentOf(int element) const;
    PlacedText ValueOf(const Attribute &attribute) const;

private:
    void Read();
    void Open(int from, int to, const QXmlStreamReader &reader);
    void ReadAttributes(Element &element, int to, const QXmlStreamReader &reader);
    void Close(int from);

    PlacedText Source;
    QVector<Element> All;
    QVector<Tag> TagList;
    QVector<int> Stack;
    QString Error;
    int ErrorOffset = 0;
};

} // namespace Orbel
