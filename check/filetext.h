#pragma once

#include "placedtext.h"

#include <QByteArray>

namespace Orbel
{

/// A file's text in the encoding that it declares, and its lines.
class FileText
{
public:
    explicit FileText(const QByteArray &bytes);

    /// With a replacement for what does not fit the encoding.
    const PlacedText &Source() const { return Whole; }
    /// Empty unless the bytes do not fit the encoding; then the library reads nothing at all.
    const QString &ErrorText() const { return Error; }
    int PlaceOfError() const { return ErrorPlace; }

    /// From 1; a column counts characters, tabs as one.
    int LineOf(int offset) const;
    int ColumnOf(int offset) const;

private:
    void Decode(const QByteArray &bytes);
    void FindLines();
    int HalvesBefore(int offset) const;

    PlacedText Whole;
    QString Error;
    int ErrorPlace = 0;
    QVector<int> LineStarts;
    /// Second halves of characters that take two.
    QVector<int> Halves;
};

} // namespace Orbel
