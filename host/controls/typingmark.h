#pragma once

#include "numberreader.h"

#include <QPalette>

#include <optional>

class QWidget;

/// What a field tells of the number that is being typed into it: a refused text is red, and a note at the field says
/// how the text is understood, or why it is refused. Exported to nobody.
class TypingMark
{
public:
    /// `field` holds this; its palette gives the red.
    explicit TypingMark(QWidget *field) : Field(field) { }

    void Show(const TypedNumber &typed);
    /// The edit has ended.
    void Clear() { Show(TypedNumber()); }
    /// The palette of the field is another one.
    void FollowPalette();

private:
    void SetRed();

    QWidget *Field;
    // While the text is red: the field's own colours.
    std::optional<QPalette> Unmarked;
};
