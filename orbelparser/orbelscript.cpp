#include "orbelscript.h"

#include "xmlwalk.h"

namespace KV218
{

OrbelScript::~OrbelScript() = default;

void OrbelScript::ParseORBEL(QXmlStreamReader &reader)
{
    Language = reader.attributes().value(attribute::Language).toString();
    Line = int(reader.lineNumber());
    Code = reader.readElementText();
    Code.replace(QLatin1String("{{CR}}"), QLatin1String("\r"));
    Code.replace(QLatin1String("{{LF}}"), QLatin1String("\n"));
}

} // namespace KV218
