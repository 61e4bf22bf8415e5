#pragma once

#include "hostexport.h"

/// Marks a value-bound control whose edits a host may record to undo them. The controls of this library record nothing,
/// and so there is nothing to call: a host finds by it which controls it has to follow.
class ORBEL_HOST_EXPORT UndoRecordingControlBase
{
public:
    virtual ~UndoRecordingControlBase() = default;
};
