#pragma once

#include "opendocument.h"

#include <QJsonObject>

namespace Orbel
{

/// One thing that an author may want to write at the cursor.
struct CompletionItem {
    /// As the protocol numbers them.
    enum Kind {
        Method = 2,
        Function = 3,
        Variable = 6,
        Class = 7,
        Property = 10,
        Value = 12,
        Enum = 13,
        Keyword = 14,
        Template = 15,
        EnumMember = 20,
        Event = 23,
    };
    QString Label;
    Kind What;
    QString Detail; ///< A few words.
    QString Documentation; ///< Markdown.
    QString
        Snippet; ///< What is written, with $1, ${1:name}, ${1|a,b|} and $0 for the next places; empty for the label.
    bool IsLikely = true; ///< The others come behind.
};

/// What may stand at a place, and what of the text it takes the place of.
struct CompletionList {
    TextSpan Span;
    QVector<CompletionItem> Items;
};

/// A text for a snippet, in which it means nothing but itself.
QString SnippetText(const QString &text);
/// A snippet as plain text, for editors that know none.
QString WithoutPlaces(const QString &snippet);

QJsonObject ToJson(const CompletionList &list, const OpenDocument &document, bool takesSnippets);

} // namespace Orbel
