#include "checkjson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

const QLatin1String File("file");
const QLatin1String LineKey("line");
const QLatin1String Column("column");
const QLatin1String SeverityKey("severity");
const QLatin1String Code("code");
const QLatin1String Text("text");

Orbel::Severity SeverityOf(const QString &name)
{
    for (const Orbel::Severity severity : {Orbel::Severity::Error, Orbel::Severity::Warning}) {
        if (Orbel::NameOf(severity) == name)
            return severity;
    }
    return Orbel::Severity::Note;
}

} // namespace

QJsonObject ToJson(const Orbel::Finding &finding, const QString &path)
{
    return {{File, path}, {LineKey, finding.Line}, {Column, finding.Column},
        {SeverityKey, Orbel::NameOf(finding.Level)}, {Code, finding.Code}, {Text, finding.Text}};
}

QString JsonText(const QJsonArray &array)
{
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Indented));
}

QString FindingsToJson(const Orbel::Findings &findings)
{
    QJsonArray array;
    for (const Orbel::Finding &finding : findings)
        array.append(ToJson(finding, QString()));
    return JsonText(array);
}

Orbel::Findings FindingsFromJson(const QByteArray &text, bool *isValid)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    *isValid = document.isArray();
    Orbel::Findings findings;
    for (const QJsonValue &value : document.array()) {
        const QJsonObject object = value.toObject();
        findings.append({object.value(LineKey).toInt(), object.value(Column).toInt(),
            SeverityOf(object.value(SeverityKey).toString()), object.value(Code).toString(),
            object.value(Text).toString()});
    }
    return findings;
}
