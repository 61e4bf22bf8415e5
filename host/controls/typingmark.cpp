#include "typingmark.h"

#include "fieldnote.h"
#include "readablecolor.h"

#include <QWidget>

#include <utility>

namespace Orbel
{

void TypingMark::Show(const QString &note, bool refused)
{
    if (refused && !Unmarked) {
        Unmarked = Field->testAttribute(Qt::WA_SetPalette) ? Field->palette() : QPalette();
        SetRed();
    } else if (!refused && Unmarked) {
        Field->setPalette(*std::exchange(Unmarked, std::nullopt));
    }
    const bool wasNoted = std::exchange(IsNoted, !note.isEmpty());
    if (IsNoted || wasNoted)
        FieldNote::Show(Field, note, refused ? FieldNote::Refused : FieldNote::Understood);
}

void TypingMark::FollowPalette()
{
    if (Unmarked)
        SetRed();
}

void TypingMark::SetRed()
{
    const QColor red = ReadableColor::Refused(Field->palette().color(QPalette::Base));
    if (Field->palette().color(QPalette::Text) == red)
        return;
    QPalette marked = *Unmarked;
    marked.setColor(QPalette::Text, red);
    Field->setPalette(marked);
}

} // namespace Orbel
