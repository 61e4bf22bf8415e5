#include "xmlcheck.h"

namespace Orbel
{

namespace
{

void TellDocument(const FileText &file, const Document &document, FindingSink &sink)
{
    TellMalformed(document.PlaceOfError(), document.ErrorText(), sink);
    // Two ends of one section: the first is the mistake.
    const QString end = QStringLiteral("]]>");
    const int second = document.ErrorText().contains(end) ? file.Text().lastIndexOf(end, document.PlaceOfError()) : -1;
    const int first = second > 0 ? file.Text().lastIndexOf(end, second - 1) : -1;
    if (first >= 0 && first > file.Text().lastIndexOf(QLatin1String("<![CDATA["), second))
        sink.Add(Code::XmlMalformed, first, QStringLiteral("A section ends here; part the three characters by blanks"));
}

} // namespace

void CheckXml(const FileText &file, const Document &document, FindingSink &sink)
{
    if (!file.ErrorText().isEmpty())
        TellMalformed(file.PlaceOfError(), file.ErrorText(), sink);
    else if (!document.IsWhole())
        TellDocument(file, document, sink);
    else if (file.IsHiddenUtf8())
        sink.Add(Code::EncodingDoubtful, qMax(0, file.Text().indexOf(QLatin1String("encoding"))),
            QStringLiteral("The document declares another encoding than UTF-8, which it is written in"));
}

void TellMalformed(int place, QString text, FindingSink &sink)
{
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    sink.Add(Code::XmlMalformed, place, text);
}

} // namespace Orbel
