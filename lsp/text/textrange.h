#pragma once

namespace Orbel
{

/// A place between two characters as editors count: lines from 0, and in the line units of UTF-16 from 0.
struct TextPosition {
    int Line = 0;
    int Character = 0;
};

struct TextRange {
    TextPosition From;
    TextPosition To;
};

/// The same as indices into the text; `To` is the place behind it.
struct TextSpan {
    int From = 0;
    int To = 0;

    bool Holds(int place) const { return From <= place && place <= To; }
};

} // namespace Orbel
