#pragma once

#include "glyphbutton.h"

/// A small button of VCFrequency: it takes no focus by a click, so that what is being typed goes on.
class ORBEL_HOST_EXPORT VCMiniFrequency : public Orbel::GlyphButton
{
    Q_OBJECT

public:
    explicit VCMiniFrequency(QWidget *parent, Glyph glyph = Pencil);

    /// Enables or disables the button.
    void enable(bool enable) { setEnabled(enable); }
};
