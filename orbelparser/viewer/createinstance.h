#pragma once

#include <functional>

class IDllInstance;

namespace KV218
{

/// Runs `construct` and gives its result, or null when it throws an LxException or a std::exception: these end here,
/// with a trace, and go to the error handler. Exceptions of other types pass.
IDllInstance *CreateInstance(const std::function<IDllInstance *()> &construct);

} // namespace KV218
