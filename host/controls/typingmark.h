#pragma once

#include "numberreader.h"

#include <QPalette>

#include <optional>

class QWidget;

namespace Orbel
{

/// What a field tells of the number that is being typed into it: a refused text is red, and a note at the field says
/// how the text is understood, or why it is refused. Exported to nobody.
class TypingMark
{
public:
    /// `field` holds this; its palette gives the red.
    explicit TypingMark(QWidget *field) : Field(field) { }

    /// Tells a note at the field; `refused` also turns its text red. An empty note is none.
    void Show(const TypedNumber &typed) { Show(typed.Note(), typed.State == QValidator::Invalid); }
    void Show(const QString &note, bool refused);
    /// The edit has ended. A note that was not shown by this stays.
    void Clear() { Show(QString(), false); }
    /// The palette of the field is another one.
    void FollowPalette();

private:
    void SetRed();

    QWidget *Field;
    // While the text is red: the colours that the field has of its own, for it to go on inheriting the others.
    std::optional<QPalette> Unmarked;
    bool IsNoted = false;
};

} // namespace Orbel
