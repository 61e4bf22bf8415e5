#include "diagnostics.h"

#include "orbelcheck.h"
#include "positionjson.h"

#include <QJsonObject>

namespace Orbel
{

namespace
{

/// How the protocol numbers what is bad.
int SeverityNumber(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return 1;
    case Severity::Warning:
        return 2;
    case Severity::Note:
        break;
    }
    return 3;
}

/// The index of a line and a column that counts characters, each from 1.
int IndexOf(int line, int column, const OpenDocument &document)
{
    const QString &text = document.Text();
    int index = document.Lines().IndexOf({line - 1, 0});
    for (int i = 1; i < column && index < text.size(); ++i)
        index += text.at(index).isHighSurrogate() ? 2 : 1;
    return qMin(index, text.size());
}

bool IsWordPart(QChar character)
{
    return character.isLetterOrNumber() || QStringLiteral("_$-").contains(character);
}

/// Where the thing ends that begins at an index: a tag's name, an attribute's value, a name, or a text up to the next
/// tag.
int EndOfThing(const QString &text, int from)
{
    int to = from;
    const auto isAny = [&](const char *marks) { return QLatin1String(marks).contains(text.at(to)); };
    const bool isValue = from > 0 && QStringLiteral("\"'").contains(text.at(from - 1));
    const bool isTag = from < text.size() && text.at(from) == QLatin1Char('<');
    if (isTag)
        ++to;
    if (isTag || (to < text.size() && IsWordPart(text.at(to)) && !isValue)) {
        while (to < text.size() && IsWordPart(text.at(to)))
            ++to;
    } else {
        while (to < text.size() && !isAny(isValue ? "\"'<\n\r" : "<\n\r"))
            ++to;
    }
    return to > from || to >= text.size() || isAny("\n\r") ? to : to + 1;
}

} // namespace

Findings FindingsOf(const OpenDocument &document)
{
    switch (document.What()) {
    case OpenDocument::List:
        return Check::ComponentList(document.Bytes());
    case OpenDocument::Template:
        return Check::Template(document.Bytes());
    case OpenDocument::Definition:
        break;
    }
    return Check::Definition(document.Bytes());
}

TextSpan SpanOf(const Finding &finding, const OpenDocument &document)
{
    const int from = IndexOf(finding.Line, finding.Column, document);
    return {from, EndOfThing(document.Text(), from)};
}

QJsonObject DiagnosticOf(const Finding &finding, const OpenDocument &document)
{
    return {{QStringLiteral("range"), ToJson(document.Lines().RangeOf(SpanOf(finding, document)))},
        {QStringLiteral("severity"), SeverityNumber(finding.Level)}, {QStringLiteral("code"), finding.Code},
        {QStringLiteral("source"), QStringLiteral("orbel")}, {QStringLiteral("message"), finding.Text}};
}

QJsonArray DiagnosticsOf(const Findings &findings, const OpenDocument &document)
{
    QJsonArray diagnostics;
    for (const Finding &finding : findings)
        diagnostics.append(DiagnosticOf(finding, document));
    return diagnostics;
}

} // namespace Orbel
