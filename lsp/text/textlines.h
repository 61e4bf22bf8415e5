#pragma once

#include "textrange.h"

#include <QString>
#include <QVector>

namespace Orbel
{

/// Where the lines of a text begin: places as editors count them and indices into the text, each from the other. Lines
/// end by LF, CR LF or CR.
class TextLines
{
public:
    explicit TextLines(const QString &text);

    /// A place beyond the end of its line counts as the end, one beyond the last line as the end of the text.
    int IndexOf(TextPosition position) const;
    TextPosition PositionOf(int index) const;
    TextRange RangeOf(TextSpan span) const { return {PositionOf(span.From), PositionOf(span.To)}; }
    int Count() const { return Starts.size(); }

private:
    QVector<int> Starts;
    QVector<int> Ends; ///< Without the characters that end a line.
};

} // namespace Orbel
