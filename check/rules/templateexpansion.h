#pragma once

#include "findingsink.h"
#include "placedtext.h"
#include "xmlscanner.h"

#include <QScriptEngine>
#include <QSet>
#include <QXmlStreamAttributes>

namespace Orbel
{

/// Makes a plain definition of a template: what stands in `Repeat` is written once for each item, with `${...}`
/// replaced. docs/templates.md tells the rules.
class TemplateExpansion
{
public:
    /// The text of a template that is well-formed; `sink` gets what is wrong with its repetitions.
    TemplateExpansion(const PlacedText &source, FindingSink &sink);

    /// The definition; each of its characters knows where in the template it comes from.
    const PlacedText &GetDefinition() const { return Definition; }

private:
    struct Repetition {
        QString Each;
        QVector<QScriptValue> Items;
        QSet<int> ItemTokens; ///< The pieces that only list the items.
    };

    void PairTags();
    QStringRef Raw(int token) const;
    void Expand(int from, int to, bool isFirst);
    int Repeat(int start, bool isFirst);
    bool ReadRepetition(int start, Repetition *repetition);
    bool ReadRange(int start, const QXmlStreamAttributes &attributes, Repetition *repetition);
    void ReadItems(int start, Repetition *repetition);
    QScriptValue ValueOf(const QString &text);
    PlacedText Replaced(int token);
    void Write(int token);
    QString Evaluate(const QString &expression, int at);
    bool Refuse(int token, const QString &text);
    void Tell(Code code, int at, const QString &text);

    const PlacedText &Source;
    FindingSink &Sink;
    QVector<XmlToken> Tokens;
    QVector<int> Ends; ///< Of each piece that is a start tag, its end tag.
    QScriptEngine Engine;
    QStringList Names; ///< Of the repetitions around, the outermost first.
    QSet<int> Skipped;
    QSet<int> Told; ///< Places in the template; what is wrong there is wrong with each item.
    int Count = 0;
    bool IsFull = false;
    PlacedText Definition;
};

} // namespace Orbel
