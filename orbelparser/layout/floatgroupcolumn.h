#pragma once

/// The measures of one section, or of one screen column, which takes whole sections and has the greatest of their
/// measures. Pixels; item indices count from 0.
struct FloatGroupColumn {
    /// The first item; the item count for a screen column that received no section.
    int firstItem = 0;
    /// The left edge. Set when the sections are dealt out to screen columns; 0 in a section.
    int left = 0;
    /// The widest row label.
    int labelWidth = 0;
    /// The widest control that stands second in its row, specials left out.
    int controlWidth = 0;
    /// The greatest sum over a row of what is no label, each item with the horizontal spacing.
    int rowWidth = 0;
    /// The widest section line with the horizontal spacing.
    int sectionWidth = 0;
    /// Where the flow of a screen column stood when the placing went on to another line or column; 0 until then, and in
    /// a section.
    int flowY = 0;
};
