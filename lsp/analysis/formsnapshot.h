#pragma once

#include "formmodel.h"
#include "scriptscanner.h"
#include "scriptsourcemap.h"
#include "textrange.h"

namespace Orbel
{

/// One version of a form: what stands in it, and where, also while it is malformed. Places are indices into the text of
/// the file, which holds nothing else or, in a component list, this form in an attribute.
class FormSnapshot
{
public:
    explicit FormSnapshot(const PlacedText &source);
    Q_DISABLE_COPY_MOVE(FormSnapshot)

private:
    const Document Doc; ///< What the others speak of; Model.Doc is the same.

public:
    const PlacedText Source; ///< As it stands in the file, malformed or not.
    const FormModel Model;
    const ScriptSourceMap Script;
    const QVector<ScriptToken> Tokens; ///< Of the script.

    /// The stretch of the file from which the form was read.
    TextSpan Extent() const;
    /// The index into `text` of what stands at a place of the file.
    static int IndexIn(const PlacedText &text, int place);
    /// The index into the script's code of a place in the file; -1 outside of the script.
    int ScriptIndexOf(int place) const;

    /// The innermost element around a place, or the one in whose tags it stands; -1 outside of all.
    int ElementAt(int place) const;
    /// The widget that an element is, or stands in; null for another one.
    const WidgetEntry *WidgetOf(int element) const;

    /// Where a token of the script stands, of a text without its quotation marks.
    TextSpan SpanOfToken(int token) const;
    /// Where an attribute's value stands, without its quotation marks.
    TextSpan SpanOfValue(const Attribute &attribute) const;
    /// Where an element's text stands, or a part of it.
    TextSpan SpanOfText(int element) const;
    TextSpan SpanOfText(const PlacedText &content, int from, int size) const;
    /// Where the name stands in an element's start tag.
    TextSpan SpanOfName(int element) const;
    /// Where it stands in the end tag; nothing without one.
    TextSpan SpanOfEndName(int element) const;
    /// All of an element, with its end tag.
    TextSpan SpanOf(int element) const;
};

} // namespace Orbel
