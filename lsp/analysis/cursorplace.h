#pragma once

#include <QHash>
#include <QString>
#include <QVector>

namespace Orbel
{

/// Where an author is typing: told from what stands before the cursor alone, however malformed it is.
class CursorPlace
{
public:
    enum Kind {
        Nowhere, ///< In a comment, a declaration, or behind the form.
        Content, ///< Between tags.
        TagName,
        EndTagName,
        AttributeName,
        AttributeValue,
        Script,
    };

    struct OpenElement {
        QString Name;
        int Index; ///< Of its opening bracket.
        int Content; ///< Index behind its start tag, as far as that is finished.
        QHash<QString, QString> Attributes;
    };

    /// `cursor` is an index into the text.
    CursorPlace(const QString &text, int cursor);

    Kind What() const { return Where; }
    /// The elements around the cursor, the outermost first; the one whose start tag is being typed is the last.
    const QVector<OpenElement> &Around() const { return Open; }
    /// The name of the innermost one, or of the one `steps` further out; empty outside of all.
    QString NameAround(int steps = 0) const;
    /// The innermost element of a name; null without one.
    const OpenElement *Innermost(const QString &name) const;
    /// The attribute whose value is being typed.
    const QString &GetAttribute() const { return Attribute; }
    /// Where the name, value or text begins that is being typed; for a script the script.
    int From() const { return Start; }

private:
    void Step();
    void StartTag();
    bool Attributes();
    void EndTag();
    void Settle(Kind kind, int from);
    void SkipBehind(const char *mark);
    QString TakeName();
    bool StandsHere(const char *mark) const;
    bool AtEnd() const { return At >= End; }

    const QString &Text;
    int End;
    int At = 0;
    Kind Where = Content;
    int Start = 0;
    QString Attribute;
    QVector<OpenElement> Open;
};

} // namespace Orbel
