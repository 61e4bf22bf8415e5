#include "checkjson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Orbel
{

namespace
{

const QLatin1String File("file");
const QLatin1String LineKey("line");
const QLatin1String Column("column");
const QLatin1String SeverityKey("severity");
const QLatin1String CodeKey("code");
const QLatin1String TextKey("text");
const QLatin1String EditKey("edit");
const QLatin1String Offset("offset");
const QLatin1String Length("length");
const QLatin1String Replacement("replacement");

Severity SeverityOf(const QString &name)
{
    for (const Severity severity : {Severity::Error, Severity::Warning}) {
        if (NameOf(severity) == name)
            return severity;
    }
    return Severity::Note;
}

FindingEdit EditOf(const QJsonObject &finding)
{
    const QJsonObject edit = finding.value(EditKey).toObject();
    if (edit.isEmpty())
        return FindingEdit();
    return {edit.value(Offset).toInt(), edit.value(Length).toInt(), edit.value(Replacement).toString()};
}

} // namespace

QJsonObject ToJson(const Finding &finding, const QString &path)
{
    QJsonObject object{{File, path}, {LineKey, finding.Line}, {Column, finding.Column},
        {SeverityKey, NameOf(finding.Level)}, {CodeKey, finding.Code}, {TextKey, finding.Text}};
    if (finding.Edit)
        object.insert(EditKey,
            QJsonObject{
                {Offset, finding.Edit.Offset}, {Length, finding.Edit.Length}, {Replacement, finding.Edit.Replacement}});
    return object;
}

QString JsonText(const QJsonArray &array)
{
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Indented));
}

QString FindingsToJson(const Findings &findings)
{
    QJsonArray array;
    for (const Finding &finding : findings)
        array.append(ToJson(finding, QString()));
    return JsonText(array);
}

Findings FindingsFromJson(const QByteArray &text, bool *isValid)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    *isValid = document.isArray();
    Findings findings;
    const QJsonArray list = document.array();
    for (const QJsonValue &value : list) {
        const QJsonObject object = value.toObject();
        findings.append({object.value(LineKey).toInt(), object.value(Column).toInt(),
            SeverityOf(object.value(SeverityKey).toString()), object.value(CodeKey).toString(),
            object.value(TextKey).toString(), EditOf(object)});
    }
    return findings;
}

} // namespace Orbel
