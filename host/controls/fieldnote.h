#pragma once

#include "hostexport.h"

#include <QRect>
#include <QString>

class QWidget;

namespace Orbel
{

/// The small line at a field: what the field makes of a text that is being typed, why it refuses one, or what became of
/// one that a lock took back. It stands under the field, over it where the screen ends, moves with it, and is out of
/// sight while the field is or while another window is active. It takes neither focus nor mouse nor room in a layout,
/// is the field's accessible description while it stands, and goes with the field. There is one on the screen.
namespace FieldNote
{

/// How the note is drawn: plain, or red for what is refused.
enum Kind { Understood, Refused };

/// Lets the text stand at the field until Hide(), the end of the field, or a text elsewhere; an empty text hides it.
/// The text is plain. The same text again does nothing.
ORBEL_HOST_EXPORT void Show(QWidget *field, const QString &text, Kind kind);
/// As Show(), and hides it by itself when it was to be seen for that many milliseconds. With `part` it stands at that
/// rectangle of the field, in the field's pixels, and goes when the field scrolls its content.
ORBEL_HOST_EXPORT void Tell(
    QWidget *field, const QString &text, int milliseconds = 2000, Kind kind = Refused, const QRect &part = {});
/// Tells that a lock of the input took back a text that was being typed.
ORBEL_HOST_EXPORT void TellDropped(QWidget *field, const QString &text, const QRect &part = {});
ORBEL_HOST_EXPORT void Hide(const QWidget *field);
/// The text that stands at the field, in sight or not; empty for none.
ORBEL_HOST_EXPORT QString TextOf(const QWidget *field);

} // namespace FieldNote

} // namespace Orbel
