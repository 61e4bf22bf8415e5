#pragma once

#include "latin1.h"

namespace KV218
{

/// Names of the properties that a definition or a script can set, each in the one spelling that counts.
namespace prop
{

#define ORBEL_PROPERTY(constant, name, ...) inline constexpr QLatin1String constant = Latin1(name);
#include "controlclasses.inc"

/// Begins the names of the sheet's properties that become attributes of the parameter document.
inline constexpr QLatin1String AttributePrefix = Latin1("Attribute_");

} // namespace prop

} // namespace KV218
