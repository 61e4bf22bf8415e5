#include "vcminifrequency.h"

VCMiniFrequency::VCMiniFrequency(QWidget *parent, Glyph glyph) : GlyphButton(glyph, parent)
{
    setFocusPolicy(Qt::TabFocus);
}
