#pragma once

#include "orbelexport.h"

#include <functional>

class IDllInstance;

extern "C" {

/// Makes the library's plug-in object, the form viewer, under a zero-terminated name; a null pointer counts as an empty
/// name. Null when that failed. Give the object back to LxDestroy().
ORBEL_EXPORT IDllInstance *LxCreate(const wchar_t *instanceName);

/// Destroys what LxCreate() made. Null does nothing.
ORBEL_EXPORT void LxDestroy(IDllInstance *instance);
}

namespace KV218
{

/// Runs `construct` and gives its result, or null when it throws an LxException or a std::exception, which goes to the
/// trace and to the error handler. Exceptions of other types pass.
IDllInstance *CreateInstance(const std::function<IDllInstance *()> &construct);

} // namespace KV218
