#include "quickfixes.h"

#include "diagnostics.h"
#include "elementtable.h"
#include "positionjson.h"

#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>

namespace Orbel
{

namespace
{

QJsonObject EditOf(const FindingEdit &edit, const OpenDocument &document)
{
    const TextRange range = document.Lines().RangeOf({edit.Offset, edit.Offset + edit.Length});
    return {{QStringLiteral("range"), ToJson(range)}, {QStringLiteral("newText"), edit.Replacement}};
}

QString ChangeTo(const QString &text)
{
    return QStringLiteral("Change to \"%1\"").arg(text);
}

/// What an edit does, in a few words: what comes to stand there, without what stood there before.
QString TitleOf(const FindingEdit &edit, const OpenDocument &document)
{
    constexpr int MostShown = 60;
    QString text = edit.Replacement;
    const QString before = document.Text().mid(edit.Offset, edit.Length);
    const bool isInsertion = text.size() > before.size() && !before.isEmpty() && text.endsWith(before);
    if (isInsertion)
        text.chop(before.size());
    text = text.simplified();
    if (text.size() > MostShown)
        text = text.left(MostShown) + QChar(0x2026);
    if (text.isEmpty())
        return QStringLiteral("Take \"%1\" away").arg(before.simplified().left(MostShown));
    return isInsertion ? QStringLiteral("Insert %1").arg(text) : ChangeTo(text);
}

QJsonObject Action(const QString &title, const char *kind, const QJsonArray &edits, const OpenDocument &document)
{
    const QJsonObject changes{{document.Uri(), edits}};
    return {{QStringLiteral("title"), title}, {QStringLiteral("kind"), QLatin1String(kind)},
        {QStringLiteral("edit"), QJsonObject{{QStringLiteral("changes"), changes}}}};
}

/// The name that a finding asks for, of an element that has another one at the finding's place.
QString MeantElement(const Finding &finding)
{
    static const QRegularExpression question(QStringLiteral("did you mean \"(\\w+)\"\\?"));
    const QString name = question.match(finding.Text).captured(1);
    return FindElement(name) ? name : QString();
}

/// Gives the element at a finding another name, in both of its tags; none where no element stands there.
QJsonArray ElementRenamed(const Finding &finding, const OpenDocument &document)
{
    const QString name = MeantElement(finding);
    const int place = SpanOf(finding, document).From;
    const OpenForm *form = document.FormAt(place);
    const int element = name.isEmpty() || !form ? -1 : form->Form.ElementAt(place);
    if (element < 0 || form->Form.Model.Doc.PlaceOf(element) != place)
        return {};
    const TextSpan start = form->Form.SpanOfName(element);
    const TextSpan end = form->Form.SpanOfEndName(element);
    QJsonArray edits;
    for (const TextSpan span : {start, end}) {
        if (span.From < span.To)
            edits.append(QJsonObject{
                {QStringLiteral("range"), ToJson(document.Lines().RangeOf(span))}, {QStringLiteral("newText"), name}});
    }
    return edits;
}

/// States `enabled` in a widget that states nothing; none for another finding.
QJsonArray EnabledStated(const Finding &finding, const OpenDocument &document)
{
    const int place = SpanOf(finding, document).From;
    const OpenForm *form = document.FormAt(place);
    const WidgetEntry *widget = form ? form->Form.WidgetOf(form->Form.ElementAt(place)) : nullptr;
    if (!widget || finding.Code != QLatin1String("input-unstated"))
        return {};
    const TextSpan all = form->Form.SpanOf(widget->Element);
    const TextSpan end = form->Form.SpanOfEndName(widget->Element);
    const bool isOneTag = end.From == end.To;
    // In front of the end tag, or in place of the end of the only one.
    const QString mark = isOneTag ? QStringLiteral("/>") : QStringLiteral("</");
    const int index = document.Text().lastIndexOf(document.Written(mark), isOneTag ? all.To - 1 : end.From);
    QString text = QStringLiteral("<Property name=\"enabled\"><Bool>true</Bool></Property>");
    if (isOneTag)
        text = QLatin1Char('>') + text + QLatin1String("</Widget>");
    const FindingEdit edit{index, isOneTag ? document.Written(mark).size() : 0, document.Written(text)};
    return index < all.From ? QJsonArray() : QJsonArray{EditOf(edit, document)};
}

/// The mend of a finding, as the protocol's edits; empty where the author has to know what was meant.
QJsonArray MendOf(const Finding &finding, const OpenDocument &document)
{
    if (finding.Edit)
        return {EditOf(finding.Edit, document)};
    const QJsonArray renamed = ElementRenamed(finding, document);
    return renamed.isEmpty() ? EnabledStated(finding, document) : renamed;
}

QString TitleOf(const Finding &finding, const OpenDocument &document)
{
    if (finding.Edit)
        return TitleOf(finding.Edit, document);
    const QString name = MeantElement(finding);
    return name.isEmpty() ? QStringLiteral("State enabled") : ChangeTo(name);
}

/// Edits that do not meet, in the order of the text.
QVector<FindingEdit> AllEdits(const Findings &findings)
{
    QVector<FindingEdit> edits;
    for (const Finding &finding : findings) {
        if (finding.Edit)
            edits.append(finding.Edit);
    }
    std::stable_sort(edits.begin(), edits.end(), [](auto &a, auto &b) { return a.Offset < b.Offset; });
    QVector<FindingEdit> apart;
    for (const FindingEdit &edit : qAsConst(edits)) {
        if (apart.isEmpty() || apart.constLast().Offset + apart.constLast().Length <= edit.Offset)
            apart.append(edit);
    }
    return apart;
}

} // namespace

QJsonArray QuickFixesAt(TextSpan span, const Findings &findings, const OpenDocument &document)
{
    QJsonArray actions;
    for (const Finding &finding : findings) {
        const TextSpan place = SpanOf(finding, document);
        if (place.To < span.From || place.From > span.To)
            continue;
        const QJsonArray edits = MendOf(finding, document);
        if (edits.isEmpty())
            continue;
        QJsonObject action = Action(TitleOf(finding, document), "quickfix", edits, document);
        action.insert(QStringLiteral("diagnostics"), QJsonArray{DiagnosticOf(finding, document)});
        action.insert(QStringLiteral("isPreferred"), true);
        actions.append(action);
    }
    QJsonArray all;
    for (const FindingEdit &edit : AllEdits(findings))
        all.append(EditOf(edit, document));
    if (all.size() > 1)
        actions.append(Action(QStringLiteral("Mend all %1 mistakes that have one plain mend").arg(all.size()),
            "source.fixAll.orbel", all, document));
    return actions;
}

} // namespace Orbel
