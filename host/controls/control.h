#pragma once

#include "hostexport.h"

/// Marks a widget that is made of several as one control. There is nothing to call: a host that walks up from a widget
/// finds the whole by it.
class ORBEL_HOST_EXPORT Control
{
public:
    virtual ~Control() = default;
};
