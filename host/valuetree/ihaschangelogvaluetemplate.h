#pragma once

#include "hostexport.h"

namespace valueitemmap
{

/// Marks a node whose items change one by one under keys of this type, for hosts that log such changes. The node keeps
/// no log, and so there is nothing to call: a host finds by it which nodes it has to observe.
template <class Key> class ORBEL_HOST_EXPORT IHasChangeLogValueTemplate
{
public:
    virtual ~IHasChangeLogValueTemplate() = default;
};

} // namespace valueitemmap
