#include "quickfixes.h"

#include "diagnostics.h"
#include "positionjson.h"

#include <QJsonObject>

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
    return isInsertion ? QStringLiteral("Insert %1").arg(text) : QStringLiteral("Change to \"%1\"").arg(text);
}

QJsonObject Action(const QString &title, const char *kind, const QJsonArray &edits, const OpenDocument &document)
{
    const QJsonObject changes{{document.Uri(), edits}};
    return {{QStringLiteral("title"), title}, {QStringLiteral("kind"), QLatin1String(kind)},
        {QStringLiteral("edit"), QJsonObject{{QStringLiteral("changes"), changes}}}};
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
        if (!finding.Edit || place.To < span.From || place.From > span.To)
            continue;
        QJsonObject action
            = Action(TitleOf(finding.Edit, document), "quickfix", {EditOf(finding.Edit, document)}, document);
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
