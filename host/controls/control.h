#pragma once

#include "hostexport.h"

/// Marks a widget as a control of its own among the widgets of a window, made of several. There is nothing to call: a
/// host finds the whole by it when it walks up from one of the parts.
class ORBEL_HOST_EXPORT Control
{
public:
    virtual ~Control() = default;
};
