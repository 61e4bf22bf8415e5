#pragma once

#include "hostexport.h"

namespace Orbel
{

/// Where exceptions of observers end. They travel to whoever made the change, unless somebody on the stack between
/// cannot be crossed by them, such as a script engine or the end of a node; then they end at the observer, with a
/// trace, and the others are notified.
namespace ExceptionStop
{

/// Has `question` asked, whenever an observer has thrown, whether there is somebody of that kind. Null asks nobody.
ORBEL_HOST_EXPORT void Ask(bool (*question)());

/// Called in a catch block: whether the exception ends there. Then it has been traced.
ORBEL_HOST_EXPORT bool EndsHere();

/// Stands where somebody of that kind is known to be.
class ORBEL_HOST_EXPORT Zone
{
public:
    /// One that is not there stops nothing.
    explicit Zone(bool there = true);
    ~Zone();
    Zone(const Zone &) = delete;
    Zone &operator=(const Zone &) = delete;

private:
    const bool There;
};

} // namespace ExceptionStop

} // namespace Orbel
