#pragma once

#include <QLatin1String>

namespace KV218
{

/// Element names of form definitions and component lists.
namespace element
{

inline constexpr QLatin1String Form("ZkParamGui");
inline constexpr QLatin1String Enums("Enums");
inline constexpr QLatin1String Enum("Enum");
inline constexpr QLatin1String EnumValue("EnumValue");
inline constexpr QLatin1String DisplayName("DisplayName");
inline constexpr QLatin1String EnumIdentifier("EnumIdentifier");
inline constexpr QLatin1String Value("Value");
inline constexpr QLatin1String Sheet("Sheet");
inline constexpr QLatin1String Properties("Properties");
inline constexpr QLatin1String CustomProperties("CustomProperties");
inline constexpr QLatin1String Property("Property");
inline constexpr QLatin1String Bool("Bool");
inline constexpr QLatin1String Widget("Widget");
inline constexpr QLatin1String Script("Script");
inline constexpr QLatin1String Component("Component");
inline constexpr QLatin1String ValueString("ValueString");

} // namespace element

/// Attribute names of form definitions, component lists and parameter documents.
namespace attribute
{

inline constexpr QLatin1String Version("version");
inline constexpr QLatin1String Name("name");
inline constexpr QLatin1String Class("class");
inline constexpr QLatin1String Language("language");
inline constexpr QLatin1String Type("type");
inline constexpr QLatin1String Unit("unit");
inline constexpr QLatin1String Id("id");
inline constexpr QLatin1String Value("value");

} // namespace attribute

/// Class names of widgets that the library itself asks for.
namespace widgetclass
{

inline constexpr QLatin1String Headline("Headline");

} // namespace widgetclass

} // namespace KV218
