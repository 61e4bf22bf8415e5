#include "orbelparser.h"

#include "formfactory.h"

#include <QFile>
#include <QXmlStreamReader>

namespace KV218
{

OrbelParser::~OrbelParser() = default;

OrbelFormular *OrbelParser::ParseORBELFile(const QString &path)
{
    QByteArray document;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly | QIODevice::Text))
        document = file.readAll();
    return document.isEmpty() ? nullptr : ParseORBEL(document);
}

OrbelFormular *OrbelParser::ParseORBEL(const QByteArray &document)
{
    QXmlStreamReader reader(document);
    return ParseORBEL(reader);
}

OrbelFormular *OrbelParser::ParseORBEL(const QString &document)
{
    QXmlStreamReader reader(document);
    return ParseORBEL(reader);
}

OrbelFormular *OrbelParser::ParseORBEL(const char *document)
{
    return ParseORBEL(QByteArray(document));
}

OrbelFormular *OrbelParser::ParseORBEL(QXmlStreamReader &reader)
{
    return NewFormular(reader);
}

} // namespace KV218
