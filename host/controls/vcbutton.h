#pragma once

#include "hostexport.h"

#include <QPushButton>

/// The tune button of VCFrequency.
class ORBEL_HOST_EXPORT VCButton : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;
};
