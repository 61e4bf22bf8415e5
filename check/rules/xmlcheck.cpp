#include "xmlcheck.h"

namespace Orbel
{

void CheckXml(const FileText &file, const Document &document, FindingSink &sink)
{
    if (!file.ErrorText().isEmpty())
        TellMalformed(file.PlaceOfError(), file.ErrorText(), sink);
    else if (!document.IsWhole())
        TellMalformed(document.PlaceOfError(), document.ErrorText(), sink);
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
