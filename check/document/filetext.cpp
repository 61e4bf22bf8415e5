#include "filetext.h"

#include <QTextCodec>
#include <QXmlStreamReader>

#include <algorithm>

namespace Orbel
{

namespace
{

/// The encoding that the XML declaration names; empty without one.
QByteArray DeclaredEncoding(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    reader.readNext();
    return reader.documentEncoding().toString().toLatin1();
}

QTextCodec *CodecOf(const QByteArray &bytes)
{
    if (QTextCodec *marked = QTextCodec::codecForUtfText(bytes, nullptr))
        return marked;
    QTextCodec *declared = QTextCodec::codecForName(DeclaredEncoding(bytes));
    return declared ? declared : QTextCodec::codecForName("UTF-8");
}

} // namespace

FileText::FileText(const QByteArray &bytes, Reading reading)
{
    Decode(bytes);
    All = Whole.Text();
    FindLines();
    if (reading == AsForm && bytes.contains('\r')) {
        DropReturns();
        TellTorn(bytes);
    }
}

FileText::FileText(const QString &text) : All(text), Whole(text)
{
    FindLines();
    if (All.contains(QLatin1Char('\r')))
        DropReturns();
}

void FileText::Decode(const QByteArray &bytes)
{
    Codec = CodecOf(bytes);
    IsMarked = QTextCodec::codecForUtfText(bytes, nullptr);
    QTextCodec::ConverterState unicode;
    const QString asUnicode = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &unicode);
    const bool isWider
        = Codec->name() != "UTF-8" && !Codec->name().startsWith("UTF-16") && asUnicode.size() < bytes.size();
    HidesUtf8 = !IsMarked && isWider && unicode.invalidChars == 0 && unicode.remainingChars == 0;
    QTextCodec::ConverterState state;
    Whole = PlacedText(Codec->toUnicode(bytes.constData(), bytes.size(), &state));
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return;
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd())
        reader.readNext();
    // What the reader takes in its stride, the library takes, too.
    if (!reader.hasError())
        return;
    Error = reader.errorString();
    const int found = Whole.Text().indexOf(QChar(QChar::ReplacementCharacter));
    ErrorPlace = found < 0 ? Whole.Text().size() : found;
}

/// The places stay those of the file.
void FileText::DropReturns()
{
    Whole = PlacedText();
    for (int i = 0; i < All.size(); ++i) {
        if (All.at(i) != QLatin1Char('\r'))
            Whole.Append(All.at(i), i);
    }
    Whole.Close(All.size());
}

void FileText::TellTorn(const QByteArray &bytes)
{
    const QByteArray loaded = QByteArray(bytes).replace("\r", "");
    const QString read = CodecOf(loaded)->toUnicode(loaded);
    const QString &meant = Whole.Text();
    if (read == meant || !Error.isEmpty())
        return;
    const auto torn = std::mismatch(meant.cbegin(), meant.cend(), read.cbegin(), read.cend()).first;
    Error = QStringLiteral(
        "A form is loaded without the bytes 0D of its file, which tears this encoding apart; UTF-8 is safe");
    ErrorPlace = Whole.OffsetOf(int(torn - meant.cbegin()));
}

QByteArray FileText::Encoded(const QString &text) const
{
    QTextCodec::ConverterState plain(QTextCodec::IgnoreHeader);
    const QString marked = IsMarked ? QChar(QChar::ByteOrderMark) + text : text;
    return Codec->fromUnicode(marked.constData(), marked.size(), &plain);
}

void FileText::FindLines()
{
    const QString &text = Whole.Text();
    LineStarts.append(0);
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).isLowSurrogate())
            Halves.append(i);
        const bool isReturn = text.at(i) == QLatin1Char('\r');
        if (isReturn && i + 1 < text.size() && text.at(i + 1) == QLatin1Char('\n'))
            continue;
        if (isReturn || text.at(i) == QLatin1Char('\n'))
            LineStarts.append(i + 1);
    }
}

int FileText::LineOf(int offset) const
{
    return int(std::upper_bound(LineStarts.cbegin(), LineStarts.cend(), offset) - LineStarts.cbegin());
}

int FileText::ColumnOf(int offset) const
{
    const int start = LineStarts.at(LineOf(offset) - 1);
    return offset - start - (HalvesBefore(offset) - HalvesBefore(start)) + 1;
}

int FileText::HalvesBefore(int offset) const
{
    return int(std::lower_bound(Halves.cbegin(), Halves.cend(), offset) - Halves.cbegin());
}

} // namespace Orbel
