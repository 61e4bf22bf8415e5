#pragma once

#include "placedtext.h"

#include <QByteArray>

class QTextCodec;

namespace Orbel
{

/// A file's text in the encoding that it declares, and its lines.
class FileText
{
public:
    enum Reading {
        AsBytes,
        AsForm, ///< As the library loads a form's file: without its bytes 0D.
    };
    explicit FileText(const QByteArray &bytes, Reading reading = AsBytes);
    /// A text that is not encoded any more, as the library loads a form.
    explicit FileText(const QString &text);

    /// With a replacement for what does not fit the encoding.
    const PlacedText &Source() const { return Whole; }
    /// All of it, also where the library reads less.
    const QString &Text() const { return All; }
    /// Empty unless the bytes that are read do not fit the encoding; then the library reads nothing to rely on.
    const QString &ErrorText() const { return Error; }
    int PlaceOfError() const { return ErrorPlace; }
    /// Whether the bytes beyond ASCII are those of UTF-8, and another encoding is declared.
    bool IsHiddenUtf8() const { return HidesUtf8; }

    /// Another text as bytes of the same encoding, with a byte order mark where the file has one.
    QByteArray Encoded(const QString &text) const;

    /// From 1; a column counts characters, tabs as one.
    int LineOf(int offset) const;
    int ColumnOf(int offset) const;

private:
    void Decode(const QByteArray &bytes);
    void DropReturns();
    void TellTorn(const QByteArray &bytes);
    void FindLines();
    int HalvesBefore(int offset) const;

    QTextCodec *Codec = nullptr;
    bool IsMarked = false; ///< By a byte order mark.
    bool HidesUtf8 = false;
    QString All;
    PlacedText Whole;
    QString Error;
    int ErrorPlace = 0;
    QVector<int> LineStarts;
    /// Second halves of characters that take two.
    QVector<int> Halves;
};

} // namespace Orbel
