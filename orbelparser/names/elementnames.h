#pragma once

#include "latin1.h"

namespace KV218
{

/// Element names of form definitions and component lists.
namespace element
{

inline constexpr QLatin1String Form = Latin1("ZkParamGui");
inline constexpr QLatin1String Enums = Latin1("Enums");
inline constexpr QLatin1String Enum = Latin1("Enum");
inline constexpr QLatin1String EnumValue = Latin1("EnumValue");
inline constexpr QLatin1String DisplayName = Latin1("DisplayName");
inline constexpr QLatin1String EnumIdentifier = Latin1("EnumIdentifier");
inline constexpr QLatin1String Value = Latin1("Value");
inline constexpr QLatin1String Sheet = Latin1("Sheet");
inline constexpr QLatin1String Properties = Latin1("Properties");
inline constexpr QLatin1String CustomProperties = Latin1("CustomProperties");
inline constexpr QLatin1String Property = Latin1("Property");
inline constexpr QLatin1String Bool = Latin1("Bool");
inline constexpr QLatin1String Widget = Latin1("Widget");
inline constexpr QLatin1String Script = Latin1("Script");
/// Of templates alone: to forms it is an element like any other that they do not know.
inline constexpr QLatin1String Repeat = Latin1("Repeat");
inline constexpr QLatin1String Component = Latin1("Component");
inline constexpr QLatin1String ValueString = Latin1("ValueString");

} // namespace element

/// Attribute names of form definitions, component lists and parameter documents.
namespace attribute
{

inline constexpr QLatin1String Version = Latin1("version");
inline constexpr QLatin1String Name = Latin1("name");
inline constexpr QLatin1String Class = Latin1("class");
inline constexpr QLatin1String Language = Latin1("language");
inline constexpr QLatin1String Type = Latin1("type");
inline constexpr QLatin1String Unit = Latin1("unit");
inline constexpr QLatin1String Id = Latin1("id");
inline constexpr QLatin1String Value = Latin1("value");

} // namespace attribute

/// Class names of widgets that the library itself asks for.
namespace widgetclass
{

inline constexpr QLatin1String Headline = Latin1("Headline");

} // namespace widgetclass

} // namespace KV218
