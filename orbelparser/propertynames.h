#pragma once

#include <QLatin1String>

namespace KV218
{

/// Names of the properties that a definition or a script can set, each in the one spelling that counts.
namespace prop
{

// every control
inline constexpr QLatin1String Enabled("enabled");
inline constexpr QLatin1String ReadOnly("readOnly");
inline constexpr QLatin1String Visible("visible");
inline constexpr QLatin1String ToolTip("toolTip");
inline constexpr QLatin1String LabelText("labelText");
inline constexpr QLatin1String GenerateParameterXml("generateParameterXml");
inline constexpr QLatin1String ParameterXmlTag("parameterXmlTag");
inline constexpr QLatin1String ApplyMode("applyMode");
inline constexpr QLatin1String Unit("unit");

// numbers
inline constexpr QLatin1String Value("value");
inline constexpr QLatin1String Minimum("minimum");
inline constexpr QLatin1String Maximum("maximum");
inline constexpr QLatin1String SingleStep("singleStep");
inline constexpr QLatin1String Decimals("decimals");
inline constexpr QLatin1String DisplayScalingFactor("displayScalingFactor");
inline constexpr QLatin1String DisplayAdditiveOffset("displayAdditiveOffset");
inline constexpr QLatin1String Prefix("prefix");
inline constexpr QLatin1String Suffix("suffix");
inline constexpr QLatin1String SpecialValueText("specialValueText");
inline constexpr QLatin1String Wrapping("wrapping");
inline constexpr QLatin1String UnitScale("unitScale");
inline constexpr QLatin1String UnitHidden("unitHidden");
inline constexpr QLatin1String UseHistory("useHistory");
inline constexpr QLatin1String MaxHistoryLength("maxHistoryLength");

// choices
inline constexpr QLatin1String EnumName("enumName");
inline constexpr QLatin1String CurrentValue("currentValue");
inline constexpr QLatin1String DisplayUnknownValues("displayUnknownValues");
inline constexpr QLatin1String DisplayAsUnknown("displayAsUnknown");

// lists of spin controls
inline constexpr QLatin1String ItemCount("itemCount");
inline constexpr QLatin1String ShiftCount("shiftCount");
inline constexpr QLatin1String ParameterListItemTag("parameterListItemTag");

// tables
inline constexpr QLatin1String RowCount("rowCount");
inline constexpr QLatin1String ColumnCount("columnCount");
inline constexpr QLatin1String SpacingsCount("spacingsCount");
inline constexpr QLatin1String HeaderLabel("headerLabel");

// the script row
inline constexpr QLatin1String EnabledClear("enabledClear");
inline constexpr QLatin1String EnabledEdit("enabledEdit");
inline constexpr QLatin1String EnabledLoad("enabledLoad");
inline constexpr QLatin1String VisibleLoad("visibleLoad");
inline constexpr QLatin1String VisibleClear("visibleClear");
inline constexpr QLatin1String VisibleEdit("visibleEdit");

// texts, buttons, headlines, gaps
inline constexpr QLatin1String Text("text");
inline constexpr QLatin1String InputMask("inputMask");
inline constexpr QLatin1String MaxLength("maxLength");
inline constexpr QLatin1String Checked("checked");
inline constexpr QLatin1String CheckedValue("checkedValue");
inline constexpr QLatin1String UncheckedValue("uncheckedValue");
inline constexpr QLatin1String Margin("margin");
inline constexpr QLatin1String Height("height");
inline constexpr QLatin1String Icon("icon");
inline constexpr QLatin1String IconSize("iconSize");

// the sheet
inline constexpr QLatin1String ApplyUiVisible("applyUiVisible");
inline constexpr QLatin1String AttributePrefix("Attribute_");
inline constexpr QLatin1String AutoApplyEnabled("autoApplyEnabled");
inline constexpr QLatin1String AutoApplyTimeout("autoApplyTimeout");
inline constexpr QLatin1String EmitOnlyModifiedParameters("emitOnlyModifiedParameters");
inline constexpr QLatin1String ErrorHighlightingXmlRootTag("errorHighlightingXmlRootTag");
inline constexpr QLatin1String ParametersXmlRootTag("parametersXmlRootTag");
inline constexpr QLatin1String ParametersXmlTypeAttribute("parametersXmlTypeAttribute");
inline constexpr QLatin1String QMBaseName("qmBaseName");
inline constexpr QLatin1String TranslationsSubDir("translationsSubDir");

} // namespace prop

} // namespace KV218
