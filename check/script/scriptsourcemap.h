#pragma once

#include "document.h"

namespace Orbel
{

/// A form's script as the engine gets it, with the place of each of its characters in the file: marks for line ends are
/// resolved.
class ORBEL_CHECK_INTERNAL ScriptSourceMap
{
public:
    /// Of a form without a script.
    ScriptSourceMap() : LineStarts{0} { }
    /// `script` is the element of the script; -1 for a form without one.
    ScriptSourceMap(const Document &form, int script);

    const QString &Code() const { return Placed.Text(); }
    int PlaceOf(int index) const { return Placed.OffsetOf(index); }
    /// The place of a line's first character that is no blank; lines count from 1.
    int PlaceOfLine(int line) const { return PlaceOf(IndexOf(line)); }
    /// The index of a line and a column, each from 1; of a line's first character that is no blank without a column.
    int IndexOf(int line, int column = 0) const;
    int LineOf(int index) const;

private:
    void Resolve(const PlacedText &text);

    PlacedText Placed;
    QVector<int> LineStarts;
};

} // namespace Orbel
