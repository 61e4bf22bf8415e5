#pragma once

#include "xmlscanner.h"

#include <QSet>

namespace Orbel
{

/// Writes the pieces of a definition in the canonical layout.
class LayoutWriter
{
public:
    /// The text of a well-formed definition. `outer` are the elements around forms, counted in the order of their start
    /// tags from 0.
    LayoutWriter(const QString &definition, const QSet<int> &outer);

    QString Write();

private:
    /// How the children of an element are written.
    enum Style {
        Lines, ///< Each on a line of its own.
        OneLine, ///< All in the line of the element.
        AsIs, ///< All that stands between the tags as it stands.
    };
    struct Open {
        Style Children;
        bool IsEmpty; ///< Nothing is written behind its start tag so far.
    };

    QStringRef Raw(const XmlToken &token) const { return Source.midRef(token.From, token.To - token.From); }
    Style StyleOf(const QString &name, int element) const;
    Style Surrounding() const { return Opened.isEmpty() ? Lines : Opened.constLast().Children; }
    void WriteToken(const XmlToken &token);
    void WriteText(int from, int to);
    void WriteTag(const XmlToken &token);
    void WriteEnd(const XmlToken &token);
    void BeginItem(bool mayTrail);
    QString TagText(QStringRef tag) const;

    const QString &Source;
    const QSet<int> &Outer;
    QString LineEnd;
    QString Written;
    QVector<Open> Opened;
    int Elements = 0;
    int LineFeeds = 1; ///< In the white space before the next piece.
};

} // namespace Orbel
