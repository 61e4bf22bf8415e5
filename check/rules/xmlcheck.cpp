#include "xmlcheck.h"

namespace Orbel
{

void CheckXml(const FileText &file, const Document &document, FindingSink &sink)
{
    if (!file.ErrorText().isEmpty())
        TellMalformed(file.PlaceOfError(), file.ErrorText(), sink);
    else if (!document.IsWhole())
        TellMalformed(document.PlaceOfError(), document.ErrorText(), sink);
}

void TellMalformed(int place, QString text, FindingSink &sink)
{
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    sink.Add(Code::XmlMalformed, place, text);
}

} // namespace Orbel
