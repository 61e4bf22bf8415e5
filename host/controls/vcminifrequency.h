#pragma once

#include "hostexport.h"

#include <QToolButton>

/// A small button of VCFrequency: it takes no focus by a click, so that what is being typed goes on, and stays as large
/// as its text or arrow.
class ORBEL_HOST_EXPORT VCMiniFrequency : public QToolButton
{
    Q_OBJECT

public:
    explicit VCMiniFrequency(QWidget *parent);

    /// Enables or disables the button.
    void enable(bool enable) { setEnabled(enable); }

    QSize sizeHint() const override;
};
