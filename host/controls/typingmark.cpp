#include "typingmark.h"

#include "fieldnote.h"
#include "readablecolor.h"

#include <QWidget>

#include <utility>

void TypingMark::Show(const TypedNumber &typed)
{
    const bool refused = typed.State == QValidator::Invalid;
    if (refused && !Unmarked) {
        Unmarked = Field->palette();
        SetRed();
    } else if (!refused && Unmarked) {
        Field->setPalette(*std::exchange(Unmarked, std::nullopt));
    }
    FieldNote::Show(Field, typed.Note(), refused ? FieldNote::Refused : FieldNote::Understood);
}

void TypingMark::FollowPalette()
{
    if (Unmarked)
        SetRed();
}

void TypingMark::SetRed()
{
    QPalette marked = Field->palette();
    const QColor red = ReadableColor::Refused(marked.color(QPalette::Base));
    if (marked.color(QPalette::Text) == red)
        return;
    marked.setColor(QPalette::Text, red);
    Field->setPalette(marked);
}
