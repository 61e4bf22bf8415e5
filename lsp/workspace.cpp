#include "workspace.h"

#include "cursorplace.h"
#include "diagnostics.h"
#include "elementcompletion.h"
#include "formatting.h"
#include "hover.h"
#include "navigation.h"
#include "outline.h"
#include "positionjson.h"
#include "quickfixes.h"
#include "rpcmessage.h"
#include "scriptcompletion.h"

#include <QJsonArray>

#include <algorithm>
#include <limits>

namespace Orbel
{

namespace
{

const QLatin1String TextDocument("textDocument");
const QLatin1String Uri("uri");
const QLatin1String Version("version");
const QLatin1String Text("text");
const QLatin1String Range("range");
const QLatin1String NewName("newName");

QString UriOf(const QJsonObject &params)
{
    return params.value(TextDocument)[Uri].toString();
}

OpenDocument::Kind KindOf(const QString &uri, const QJsonValue &item)
{
    if (uri.endsWith(QLatin1String(".orbelt")))
        return OpenDocument::Template;
    const bool isForm = uri.endsWith(QLatin1String(".orbel"))
        || item[QLatin1String("languageId")].toString() == QLatin1String("orbel");
    return isForm ? OpenDocument::Definition : OpenDocument::List;
}

int PlaceOf(const QJsonObject &params, const OpenDocument &document)
{
    return document.Lines().IndexOf(PositionFromJson(params.value(QLatin1String("position"))));
}

QJsonArray LocationsOf(const QVector<TextSpan> &spans, const OpenDocument &document)
{
    QJsonArray locations;
    for (const TextSpan span : spans)
        locations.append(QJsonObject{{Uri, document.Uri()}, {Range, ToJson(document.Lines().RangeOf(span))}});
    return locations;
}

/// The form that a request is about; throws where there is none to change.
const OpenForm &FormOf(const OpenDocument &document, int place)
{
    if (const OpenForm *form = document.FormAt(place))
        return *form;
    throw RpcFailure{RpcError::RequestFailed, QStringLiteral("There is no form at this place")};
}

} // namespace

QString Workspace::Open(const QJsonObject &params)
{
    const QString uri = UriOf(params);
    const QJsonValue item = params.value(TextDocument);
    if (uri.isEmpty() || !item[Text].isString())
        return QString();
    Entry &entry = Entries[uri];
    entry.Document = std::make_unique<OpenDocument>(uri, KindOf(uri, item), item[Text].toString());
    entry.Version = item[Version];
    entry.Found.reset();
    return uri;
}

QString Workspace::Change(const QJsonObject &params)
{
    const auto found = Entries.find(UriOf(params));
    if (found == Entries.end())
        return QString();
    OpenDocument &document = *found->second.Document;
    const QJsonArray changes = params.value(QLatin1String("contentChanges")).toArray();
    for (const QJsonValue &change : changes) {
        if (!change[Text].isString())
            continue;
        if (change[Range].isObject())
            document.Replace(RangeFromJson(change[Range]), change[Text].toString());
        else
            document.SetText(change[Text].toString());
    }
    found->second.Version = params.value(TextDocument)[Version];
    found->second.Found.reset();
    return document.Uri();
}

QString Workspace::Close(const QJsonObject &params)
{
    const QString uri = UriOf(params);
    return Entries.erase(uri) > 0 ? uri : QString();
}

const QHash<QString, Workspace::Answering> &Workspace::Table()
{
    static const QHash<QString, Answering> table{
        {QStringLiteral("textDocument/completion"), &Workspace::Complete},
        {QStringLiteral("textDocument/hover"), &Workspace::Hover},
        {QStringLiteral("textDocument/definition"), &Workspace::Definition},
        {QStringLiteral("textDocument/references"), &Workspace::References},
        {QStringLiteral("textDocument/documentHighlight"), &Workspace::Highlight},
        {QStringLiteral("textDocument/prepareRename"), &Workspace::PrepareRename},
        {QStringLiteral("textDocument/rename"), &Workspace::Rename},
        {QStringLiteral("textDocument/documentSymbol"), &Workspace::Symbols},
        {QStringLiteral("textDocument/codeAction"), &Workspace::CodeActions},
        {QStringLiteral("textDocument/formatting"), &Workspace::Format},
    };
    return table;
}

bool Workspace::Knows(const QString &method)
{
    return Table().contains(method);
}

QJsonValue Workspace::Answer(const QString &method, const QJsonObject &params)
{
    return (this->*Table().value(method))(EntryOf(params), params);
}

Workspace::Entry &Workspace::EntryOf(const QJsonObject &params)
{
    const auto found = Entries.find(UriOf(params));
    if (found == Entries.end())
        throw RpcFailure{RpcError::InvalidParams, QStringLiteral("The document is not open")};
    return found->second;
}

const Findings &Workspace::FindingsIn(Entry &entry)
{
    if (!entry.Found)
        entry.Found = std::make_unique<Findings>(FindingsOf(*entry.Document));
    return *entry.Found;
}

QJsonObject Workspace::Diagnostics(const QString &uri)
{
    QJsonObject params{{Uri, uri}, {QStringLiteral("diagnostics"), QJsonArray()}};
    const auto found = Entries.find(uri);
    if (found == Entries.end())
        return params;
    Entry &entry = found->second;
    params[QLatin1String("diagnostics")] = DiagnosticsOf(FindingsIn(entry), *entry.Document);
    if (entry.Version.isDouble())
        params.insert(Version, entry.Version);
    return params;
}

const OpenDocument *Workspace::Runnable(const QString &uri)
{
    const auto found = Entries.find(uri);
    if (found == Entries.end())
        return nullptr;
    const Findings &known = FindingsIn(found->second);
    const bool isWrong = std::any_of(
        known.cbegin(), known.cend(), [](const Finding &finding) { return finding.Level == Severity::Error; });
    return isWrong ? nullptr : found->second.Document.get();
}

bool Workspace::TakeRun(const QString &uri, const QByteArray &bytes, const Findings &findings)
{
    const auto found = Entries.find(uri);
    if (found == Entries.end() || found->second.Document->Bytes() != bytes)
        return false;
    Entry &entry = found->second;
    const bool isNew = DiagnosticsOf(FindingsIn(entry), *entry.Document) != DiagnosticsOf(findings, *entry.Document);
    entry.Found = std::make_unique<Findings>(findings);
    return isNew;
}

QJsonValue Workspace::Complete(Entry &entry, const QJsonObject &params)
{
    const OpenDocument &document = *entry.Document;
    const int place = PlaceOf(params, document);
    const OpenForm *form = document.FormAt(place);
    if (!form)
        return QJsonValue::Null;
    const PlacedText &text = form->Form.Source;
    const CursorPlace cursor(text.Text(), FormSnapshot::IndexIn(text, place));
    const CompletionList list = cursor.What() == CursorPlace::Script ? CompleteScript(*form, cursor.From(), place)
                                                                     : CompleteElements(form->Form, cursor, place);
    return ToJson(list, document, TakesSnippets);
}

QJsonValue Workspace::Hover(Entry &entry, const QJsonObject &params)
{
    const OpenDocument &document = *entry.Document;
    const int place = PlaceOf(params, document);
    const OpenForm *form = document.FormAt(place);
    const HoverText hover = form ? HoverAt(*form, place) : HoverText();
    if (hover.Markdown.isEmpty())
        return QJsonValue::Null;
    const QJsonObject contents{
        {QStringLiteral("kind"), QStringLiteral("markdown")}, {QStringLiteral("value"), hover.Markdown}};
    return QJsonObject{{QStringLiteral("contents"), contents}, {Range, ToJson(document.Lines().RangeOf(hover.Span))}};
}

QJsonValue Workspace::Definition(Entry &entry, const QJsonObject &params)
{
    const OpenDocument &document = *entry.Document;
    const int place = PlaceOf(params, document);
    const OpenForm *form = document.FormAt(place);
    return LocationsOf(form ? DefinitionsAt(*form, place) : QVector<TextSpan>(), document);
}

QJsonValue Workspace::References(Entry &entry, const QJsonObject &params)
{
    const OpenDocument &document = *entry.Document;
    const int place = PlaceOf(params, document);
    const OpenForm *form = document.FormAt(place);
    const bool withDefinitions
        = params.value(QLatin1String("context"))[QLatin1String("includeDeclaration")].toBool(true);
    return LocationsOf(form ? ReferencesAt(*form, place, withDefinitions) : QVector<TextSpan>(), document);
}

QJsonValue Workspace::Highlight(Entry &entry, const QJsonObject &params)
{
    const OpenDocument &document = *entry.Document;
    const int place = PlaceOf(params, document);
    const OpenForm *form = document.FormAt(place);
    return LocationsOf(form ? ReferencesAt(*form, place, true) : QVector<TextSpan>(), document);
}

QJsonValue Workspace::PrepareRename(Entry &entry, const QJsonObject &params)
{
    const OpenDocument &document = *entry.Document;
    const int place = PlaceOf(params, document);
    return ToJson(document.Lines().RangeOf(RenamableAt(FormOf(document, place), document, place)));
}

QJsonValue Workspace::Rename(Entry &entry, const QJsonObject &params)
{
    const OpenDocument &document = *entry.Document;
    const int place = PlaceOf(params, document);
    const QString name = params.value(NewName).toString();
    QJsonArray edits;
    for (const TextSpan span : RenamedAt(FormOf(document, place), document, place, name))
        edits.append(QJsonObject{{Range, ToJson(document.Lines().RangeOf(span))}, {QStringLiteral("newText"), name}});
    return QJsonObject{{QStringLiteral("changes"), QJsonObject{{document.Uri(), edits}}}};
}

QJsonValue Workspace::Symbols(Entry &entry, const QJsonObject &)
{
    return OutlineOf(*entry.Document);
}

QJsonValue Workspace::Format(Entry &entry, const QJsonObject &)
{
    return FormattingOf(*entry.Document);
}

QJsonValue Workspace::CodeActions(Entry &entry, const QJsonObject &params)
{
    const OpenDocument &document = *entry.Document;
    const TextRange range = RangeFromJson(params.value(Range));
    // Those of whole lines: an editor asks where its cursor stands, which is seldom the word that is marked.
    const TextSpan lines{document.Lines().IndexOf({range.From.Line, 0}),
        document.Lines().IndexOf({range.To.Line, std::numeric_limits<int>::max()})};
    return QuickFixesAt(lines, FindingsIn(entry), document);
}

} // namespace Orbel
