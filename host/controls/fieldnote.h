#pragma once

#include "hostexport.h"

#include <QString>

class QWidget;

/// The small line at a field: what the field makes of a text that is being typed, why it refuses one, or what became of
/// one that a lock took back. It floats over the form, takes neither focus nor mouse nor room in a layout, is the field's
/// accessible description while it stands, and goes with the field. A field has one at most, and there is one on the screen.
namespace FieldNote
{

enum Kind { Understood, Refused };

/// Shows the text at the field until Hide(), the end of the field, or the next text; an empty text hides it.
ORBEL_HOST_EXPORT void Show(QWidget *field, const QString &text, Kind kind);
/// As Show(), and hides it by itself after that many milliseconds.
ORBEL_HOST_EXPORT void Tell(QWidget *field, const QString &text, int milliseconds = 2000);
ORBEL_HOST_EXPORT void Hide(QWidget *field);
/// The text that stands at the field; empty for none.
ORBEL_HOST_EXPORT QString TextOf(const QWidget *field);

} // namespace FieldNote
