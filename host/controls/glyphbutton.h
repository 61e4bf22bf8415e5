#pragma once

#include "hostexport.h"

#include <QToolButton>

namespace Orbel
{

/// A small flat button that draws its sign in the colour of the form's text, sharp at any scale. A tinted ground shows
/// the mouse and the press, a frame the focus.
class ORBEL_HOST_EXPORT GlyphButton : public QToolButton
{
    Q_OBJECT

public:
    /// What is drawn on the button.
    enum Glyph { Up, Down, Pencil, Clock };

    GlyphButton(Glyph glyph, QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Glyph Sign;
};

} // namespace Orbel
