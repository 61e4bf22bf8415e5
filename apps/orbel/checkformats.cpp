#include "checkformats.h"

#include "checkjson.h"
#include "codeexamples.h"
#include "failure.h"
#include "orbelversion.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace Orbel
{

namespace
{

struct Row {
    const char *name;
    QString (*write)(const QVector<FileFinding> &findings);
};

QString AsText(const QVector<FileFinding> &findings)
{
    QString text;
    for (const auto &[path, found] : findings)
        text += QStringLiteral("%1: %2: %3 [%4]\n")
                    .arg(PlaceIn(path, found.Line, found.Column), NameOf(found.Level), found.Text, found.Code);
    return text;
}

QString AsJson(const QVector<FileFinding> &findings)
{
    QJsonArray array;
    for (const auto &[path, found] : findings)
        array.append(ToJson(found, path));
    return JsonText(array);
}

QJsonObject Message(const QString &text)
{
    return {{QStringLiteral("text"), text}};
}

QJsonArray SarifRules()
{
    QJsonArray rules;
    for (int i = 0; i < AllCodes().size(); ++i) {
        const CodeInfo &info = AllCodes().at(i);
        QJsonObject help = Message(QString::fromUtf8(info.explanation));
        help.insert(QStringLiteral("markdown"), Explain(Code(i)));
        rules.append(QJsonObject{{QStringLiteral("id"), QLatin1String(info.name)},
            {QStringLiteral("fullDescription"), Message(QString::fromUtf8(info.explanation))},
            {QStringLiteral("help"), help},
            {QStringLiteral("defaultConfiguration"), QJsonObject{{QStringLiteral("level"), NameOf(info.severity)}}}});
    }
    return rules;
}

QJsonObject SarifResult(const FileFinding &finding)
{
    const QString address = QString::fromLatin1(QUrl::toPercentEncoding(finding.Path, "/"));
    const QJsonObject region{
        {QStringLiteral("startLine"), finding.Found.Line}, {QStringLiteral("startColumn"), finding.Found.Column}};
    const QJsonObject place{{QStringLiteral("artifactLocation"), QJsonObject{{QStringLiteral("uri"), address}}},
        {QStringLiteral("region"), region}};
    return {{QStringLiteral("ruleId"), finding.Found.Code}, {QStringLiteral("level"), NameOf(finding.Found.Level)},
        {QStringLiteral("message"), Message(finding.Found.Text)},
        {QStringLiteral("locations"), QJsonArray{QJsonObject{{QStringLiteral("physicalLocation"), place}}}}};
}

QString AsSarif(const QVector<FileFinding> &findings)
{
    QJsonArray results;
    for (const FileFinding &finding : findings)
        results.append(SarifResult(finding));
    const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("orbel check")},
        {QStringLiteral("version"), QStringLiteral(ORBEL_VERSION_STRING)}, {QStringLiteral("rules"), SarifRules()}};
    const QJsonObject run{{QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver}}},
        {QStringLiteral("columnKind"), QStringLiteral("unicodeCodePoints")}, {QStringLiteral("results"), results}};
    const QJsonObject log{{QStringLiteral("$schema"), QStringLiteral("https://json.schemastore.org/sarif-2.1.0.json")},
        {QStringLiteral("version"), QStringLiteral("2.1.0")}, {QStringLiteral("runs"), QJsonArray{run}}};
    return QString::fromUtf8(QJsonDocument(log).toJson());
}

/// Marks that end a part of a command are spelled by their numbers.
QString Spelled(QString text, const char *marks)
{
    for (const char *mark = marks; *mark; ++mark)
        text.replace(QLatin1Char(*mark), QStringLiteral("%%1").arg(int(*mark), 2, 16, QLatin1Char('0')).toUpper());
    return text;
}

QString AsGithub(const QVector<FileFinding> &findings)
{
    QString text;
    for (const auto &[path, found] : findings) {
        const QString level = found.Level == Severity::Note ? QStringLiteral("notice") : NameOf(found.Level);
        text += QStringLiteral("::%1 file=%2,line=%3,col=%4,title=%5::%6\n")
                    .arg(level, Spelled(path, "%\r\n:,"), QString::number(found.Line), QString::number(found.Column),
                        found.Code, Spelled(found.Text, "%\r\n"));
    }
    return text;
}

constexpr Row Table[] = {{"text", AsText}, {"json", AsJson}, {"sarif", AsSarif}, {"github", AsGithub}};

} // namespace

QStringList CheckFormats()
{
    QStringList names;
    for (const Row &row : Table)
        names.append(QLatin1String(row.name));
    return names;
}

QString Formatted(const QVector<FileFinding> &findings, const QString &format)
{
    for (const Row &row : Table) {
        if (format == QLatin1String(row.name))
            return row.write(findings);
    }
    return QString();
}

} // namespace Orbel
