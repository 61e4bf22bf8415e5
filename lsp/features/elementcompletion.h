#pragma once

#include "completionlist.h"
#include "cursorplace.h"

namespace Orbel
{

/// What may be written at a place of a form outside of its script: elements, attributes, classes, properties, values.
CompletionList CompleteElements(const FormSnapshot &form, const CursorPlace &cursor, int place);

} // namespace Orbel
