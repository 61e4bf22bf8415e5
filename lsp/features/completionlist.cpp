#include "completionlist.h"

#include "positionjson.h"

#include <QJsonArray>
#include <QRegularExpression>

namespace Orbel
{

QString SnippetText(const QString &text)
{
    static const QRegularExpression marks(QStringLiteral("([$}\\\\])"));
    return QString(text).replace(marks, QStringLiteral("\\\\1"));
}

QString WithoutPlaces(const QString &snippet)
{
    static const QRegularExpression choice(QStringLiteral("\\$\\{\\d+\\|([^,|]*)[^|]*\\|\\}"));
    static const QRegularExpression place(QStringLiteral("\\$(?:\\d+|\\{\\d+:([^}]*)\\})"));
    static const QRegularExpression mark(QStringLiteral("\\\\([$}\\\\])"));
    return QString(snippet)
        .replace(choice, QStringLiteral("\\1"))
        .replace(place, QStringLiteral("\\1"))
        .replace(mark, QStringLiteral("\\1"));
}

QJsonObject ToJson(const CompletionList &list, const OpenDocument &document, bool takesSnippets)
{
    const QJsonObject range = ToJson(document.Lines().RangeOf(list.Span));
    QJsonArray items;
    for (const CompletionItem &item : list.Items) {
        const bool isSnippet = takesSnippets && !item.Snippet.isEmpty();
        const QString text = item.Snippet.isEmpty() ? item.Label
            : isSnippet                             ? item.Snippet
                                                    : WithoutPlaces(item.Snippet);
        QJsonObject object{{QStringLiteral("label"), item.Label}, {QStringLiteral("kind"), int(item.What)},
            {QStringLiteral("insertTextFormat"), isSnippet ? 2 : 1},
            {QStringLiteral("sortText"), (item.IsLikely ? QLatin1Char('0') : QLatin1Char('1')) + item.Label},
            {QStringLiteral("textEdit"),
                QJsonObject{{QStringLiteral("range"), range}, {QStringLiteral("newText"), document.Written(text)}}}};
        if (!item.Detail.isEmpty())
            object.insert(QStringLiteral("detail"), item.Detail);
        if (!item.Documentation.isEmpty())
            object.insert(QStringLiteral("documentation"),
                QJsonObject{{QStringLiteral("kind"), QStringLiteral("markdown")},
                    {QStringLiteral("value"), item.Documentation}});
        items.append(object);
    }
    return {{QStringLiteral("isIncomplete"), false}, {QStringLiteral("items"), items}};
}

} // namespace Orbel
