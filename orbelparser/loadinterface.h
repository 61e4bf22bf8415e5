#pragma once

#include "orbelexport.h"

class IDllInstance;

extern "C" {

/// Makes the library's plug-in object, the form viewer, under a zero-terminated name; a null pointer counts as an empty
/// name. Null when that failed. Give the object back to LxDestroy().
ORBEL_EXPORT IDllInstance *LxCreate(const wchar_t *instanceName);

/// Destroys what LxCreate() made. Null does nothing.
ORBEL_EXPORT void LxDestroy(IDllInstance *instance);
}
