#include "vcminifrequency.h"

VCMiniFrequency::VCMiniFrequency(QWidget *parent, Glyph glyph) : Orbel::GlyphButton(glyph, parent)
{
    setFocusPolicy(Qt::TabFocus);
}
