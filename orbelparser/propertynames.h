#pragma once

#include "latin1.h"

namespace KV218
{

/// Names of the properties that a definition or a script can set, each in the one spelling that counts.
namespace prop
{

// every control
inline constexpr QLatin1String Enabled = Latin1("enabled");
inline constexpr QLatin1String ReadOnly = Latin1("readOnly");
inline constexpr QLatin1String Visible = Latin1("visible");
inline constexpr QLatin1String ToolTip = Latin1("toolTip");
inline constexpr QLatin1String LabelText = Latin1("labelText");
inline constexpr QLatin1String GenerateParameterXml = Latin1("generateParameterXml");
inline constexpr QLatin1String ParameterXmlTag = Latin1("parameterXmlTag");
inline constexpr QLatin1String ApplyMode = Latin1("applyMode");
inline constexpr QLatin1String Unit = Latin1("unit");

// numbers
inline constexpr QLatin1String Value = Latin1("value");
inline constexpr QLatin1String Minimum = Latin1("minimum");
inline constexpr QLatin1String Maximum = Latin1("maximum");
inline constexpr QLatin1String SingleStep = Latin1("singleStep");
inline constexpr QLatin1String Decimals = Latin1("decimals");
inline constexpr QLatin1String DisplayScalingFactor = Latin1("displayScalingFactor");
inline constexpr QLatin1String DisplayAdditiveOffset = Latin1("displayAdditiveOffset");
inline constexpr QLatin1String Prefix = Latin1("prefix");
inline constexpr QLatin1String Suffix = Latin1("suffix");
inline constexpr QLatin1String SpecialValueText = Latin1("specialValueText");
inline constexpr QLatin1String Wrapping = Latin1("wrapping");
inline constexpr QLatin1String UnitScale = Latin1("unitScale");
inline constexpr QLatin1String UnitHidden = Latin1("unitHidden");
inline constexpr QLatin1String UseHistory = Latin1("useHistory");
inline constexpr QLatin1String MaxHistoryLength = Latin1("maxHistoryLength");

// frequencies
inline constexpr QLatin1String History = Latin1("history");
inline constexpr QLatin1String UniformHeights = Latin1("uniformHeights");
inline constexpr QLatin1String DisplayOutOfRangeValues = Latin1("displayOutOfRangeValues");
inline constexpr QLatin1String FrequencyLock = Latin1("FrequencyLock");
inline constexpr QLatin1String MainFreqEdit = Latin1("MainFreqEdit");
inline constexpr QLatin1String StartFrequency = Latin1("startFrequency");
inline constexpr QLatin1String StartFrequencyParameterXmlTag = Latin1("startFrequencyParameterXmlTag");
inline constexpr QLatin1String StartFrequencyUnitScale = Latin1("startFrequencyUnitScale");
inline constexpr QLatin1String StopFrequency = Latin1("stopFrequency");
inline constexpr QLatin1String StopFrequencyParameterXmlTag = Latin1("stopFrequencyParameterXmlTag");
inline constexpr QLatin1String StopFrequencyUnitScale = Latin1("stopFrequencyUnitScale");

// choices
inline constexpr QLatin1String EnumName = Latin1("enumName");
inline constexpr QLatin1String CurrentValue = Latin1("currentValue");
inline constexpr QLatin1String DisplayUnknownValues = Latin1("displayUnknownValues");
inline constexpr QLatin1String DisplayAsUnknown = Latin1("displayAsUnknown");

// lists of spin controls
inline constexpr QLatin1String ItemCount = Latin1("itemCount");
inline constexpr QLatin1String ShiftCount = Latin1("shiftCount");
inline constexpr QLatin1String ParameterListItemTag = Latin1("parameterListItemTag");

// tables
inline constexpr QLatin1String RowCount = Latin1("rowCount");
inline constexpr QLatin1String ColumnCount = Latin1("columnCount");
inline constexpr QLatin1String SpacingsCount = Latin1("spacingsCount");
inline constexpr QLatin1String HeaderLabel = Latin1("headerLabel");

// the script row
inline constexpr QLatin1String EnabledClear = Latin1("enabledClear");
inline constexpr QLatin1String EnabledEdit = Latin1("enabledEdit");
inline constexpr QLatin1String EnabledLoad = Latin1("enabledLoad");
inline constexpr QLatin1String VisibleLoad = Latin1("visibleLoad");
inline constexpr QLatin1String VisibleClear = Latin1("visibleClear");
inline constexpr QLatin1String VisibleEdit = Latin1("visibleEdit");

// texts, buttons, headlines, gaps
inline constexpr QLatin1String Text = Latin1("text");
inline constexpr QLatin1String InputMask = Latin1("inputMask");
inline constexpr QLatin1String MaxLength = Latin1("maxLength");
inline constexpr QLatin1String Checked = Latin1("checked");
inline constexpr QLatin1String CheckedValue = Latin1("checkedValue");
inline constexpr QLatin1String UncheckedValue = Latin1("uncheckedValue");
inline constexpr QLatin1String Margin = Latin1("margin");
inline constexpr QLatin1String Height = Latin1("height");
inline constexpr QLatin1String Icon = Latin1("icon");
inline constexpr QLatin1String IconSize = Latin1("iconSize");

// the sheet
inline constexpr QLatin1String ApplyUiVisible = Latin1("applyUiVisible");
inline constexpr QLatin1String AttributePrefix = Latin1("Attribute_");
inline constexpr QLatin1String HoverTuning = Latin1("hoverTuning");
inline constexpr QLatin1String AutoApplyEnabled = Latin1("autoApplyEnabled");
inline constexpr QLatin1String AutoApplyTimeout = Latin1("autoApplyTimeout");
inline constexpr QLatin1String EmitOnlyModifiedParameters = Latin1("emitOnlyModifiedParameters");
inline constexpr QLatin1String ErrorHighlightingXmlRootTag = Latin1("errorHighlightingXmlRootTag");
inline constexpr QLatin1String ParametersXmlRootTag = Latin1("parametersXmlRootTag");
inline constexpr QLatin1String ParametersXmlTypeAttribute = Latin1("parametersXmlTypeAttribute");
inline constexpr QLatin1String QMBaseName = Latin1("qmBaseName");
inline constexpr QLatin1String TranslationsSubDir = Latin1("translationsSubDir");

} // namespace prop

} // namespace KV218
