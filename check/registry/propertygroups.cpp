#include "propertygroups.h"

#include "propertynames.h"

namespace Orbel
{

namespace group
{

namespace prop = KV218::prop;
using T = ValueType;

namespace
{

constexpr bool Stored = true;
constexpr bool Read = false;
constexpr bool Translated = true;

} // namespace

// Columns: name, read as, when absent, unit, stored only, meaning, choices, and whether it is translated.
// clang-format off

const QVector<PropertyInfo> Row = {
    {prop::Enabled, T::Bool, "the control keeps its own state", "", Read, "Whether the operator can use the control.", ""},
    {prop::ReadOnly, T::Bool, "the control keeps its own state", "", Read, "Whether the value can be seen but not changed.", ""},
    {prop::Visible, T::Bool, "the control shows, its row label stays hidden", "", Read, "Whether control and row label show.", ""},
    {prop::ToolTip, T::Text, "none from the definition", "", Read, "The tooltip, where the class does not make its own.", ""},
    {prop::LabelText, T::Text, "no row label", "", Read, "The label in front of the control, translated.", "", Translated},
    {prop::GenerateParameterXml, T::Bool, "false", "", Read, "Whether the control writes its parameter element and can become modified.", ""},
    {prop::ParameterXmlTag, T::Text, "the widget's name", "", Read, "Place in the parameter document and in the value tree: element names with \"/\" between them.", ""},
    {prop::ApplyMode, T::Text, "no mode", "", Read, "Kept for the host; the library does not act on it.", "ekInstantApplyMode ekNormalApplyMode"},
};

const QVector<PropertyInfo> Unit = {
    {prop::Unit, T::Text, "no attribute", "", Read, "Written as the attribute \"unit\" of the parameter element; shown nowhere.", ""},
};

const QVector<PropertyInfo> NumberValue = {
    {prop::Value, T::AsValue, "0", "node units", Read, "The number as the value tree holds it.", ""},
};

const QVector<PropertyInfo> Bounds = {
    {prop::Minimum, T::AsValue, "no lower bound", "display units", Read, "The least number.", ""},
    {prop::Maximum, T::AsValue, "no upper bound", "display units", Read, "The greatest number.", ""},
};

const QVector<PropertyInfo> Step = {
    {prop::SingleStep, T::AsValue, "1", "display units", Read, "What one step up or down changes.", ""},
    {prop::DisplayScalingFactor, T::Double, "1", "display units per node unit", Read, "The control shows the value times this factor.", ""},
};

const QVector<PropertyInfo> Spin = {
    {prop::Decimals, T::Int, "0", "digits", Read, "Digits that show behind the point beyond those of the step; controls of a Double also write that many.", ""},
    {prop::Suffix, T::Text, "none", "", Read, "Shown behind the number.", ""},
    {prop::Wrapping, T::Bool, "false", "", Read, "Whether a step beyond one bound goes on at the other.", ""},
};

const QVector<PropertyInfo> SpinText = {
    {prop::Prefix, T::Text, "none", "", Read, "Shown in front of the number.", ""},
    {prop::SpecialValueText, T::Text, "none", "", Read, "Shown instead of the least number.", ""},
};

const QVector<PropertyInfo> Offset = {
    {prop::DisplayAdditiveOffset, T::Int, "0", "node units", Read, "Taken off the value where it is written to a parameter document.", ""},
};

const QVector<PropertyInfo> UnitScale = {
    {prop::UnitScale, T::UInt64, "unit, suffix, factor, decimals and step stay as stated", "Hz", Read, "Shows the number in Hz, kHz, MHz or GHz; sets unit, suffix, factor, decimals and step.", "1 1000 1000000 1000000000"},
    {prop::UseHistory, T::Bool, "false", "", Stored, "Whether to keep former values.", ""},
    {prop::MaxHistoryLength, T::Int, "0", "values", Stored, "How many former values to keep.", ""},
    {prop::UnitHidden, T::Bool, "false", "", Stored, "Whether to hide the unit.", ""},
};

const QVector<PropertyInfo> ListItem = {
    {prop::ParameterListItemTag, T::Text, "empty, which no document can hold", "", Read, "Element name of one item in the parameter document.", ""},
};

const QVector<PropertyInfo> ItemCount = {
    {prop::ItemCount, T::Int, "no items", "items", Read, "Number of items; counts only when the form is made.", ""},
};

const QVector<PropertyInfo> ShiftCount = {
    {prop::ShiftCount, T::Int, "no items", "items", Read, "Number of items, where no itemCount is stated.", ""},
};

const QVector<PropertyInfo> Shape = {
    {prop::RowCount, T::Int, "0", "rows", Read, "Number of rows.", ""},
    {prop::ColumnCount, T::Int, "0", "columns", Read, "Number of columns.", ""},
};

const QVector<PropertyInfo> Spacings = {
    {prop::SpacingsCount, T::Int, "0", "rows", Read, "Number of spacings.", ""},
    {prop::HeaderLabel, T::Text, "empty", "", Read, "Title of the column, translated.", "", Translated},
    {prop::Minimum, T::Double, "0 in the editor", "", Read, "The least spacing that can be typed.", ""},
    {prop::Maximum, T::Double, "1000 in the editor", "", Read, "The greatest spacing that can be typed.", ""},
    {prop::SingleStep, T::Double, "1", "", Read, "What one step up or down changes.", ""},
    {prop::Decimals, T::Int, "0", "digits", Read, "Digits behind the point.", ""},
};

const QVector<PropertyInfo> Choice = {
    {prop::EnumName, T::Text, "no rows at all", "", Read, "Name of the enumeration whose rows can be chosen.", ""},
    {prop::CurrentValue, T::Text, "the first row", "", Read, "Value text of the chosen row.", ""},
    {prop::DisplayUnknownValues, T::Bool, "false", "", Stored, "Whether to show values that no row has.", ""},
    {prop::DisplayAsUnknown, T::Bool, "false", "", Stored, "Whether to show the value as unknown.", ""},
};

const QVector<PropertyInfo> Check = {
    {prop::Checked, T::Bool, "false", "", Read, "Whether the box is ticked.", ""},
    {prop::CheckedValue, T::Text, "true", "", Read, "Text in the parameter document for a ticked box.", ""},
    {prop::UncheckedValue, T::Text, "false", "", Read, "Text in the parameter document for an empty box.", ""},
};

const QVector<PropertyInfo> Line = {
    {prop::Text, T::Text, "empty", "", Read, "The text.", ""},
    {prop::InputMask, T::Text, "none", "", Read, "Qt input mask that what is typed must fit.", ""},
    {prop::MaxLength, T::Int, "32767", "characters", Read, "The most characters that can be typed.", ""},
};

const QVector<PropertyInfo> LabelText = {
    {prop::Text, T::Text, "empty", "", Read, "The text, translated for display.", "", Translated},
};

const QVector<PropertyInfo> Headline = {
    {prop::Text, T::Text, "no headline is made", "", Read, "The title of the group, translated.", "", Translated},
};

const QVector<PropertyInfo> Margin = {
    {prop::Margin, T::Int, "0", "pixels", Read, "Free space above.", ""},
};

const QVector<PropertyInfo> Height = {
    {prop::Height, T::Int, "0", "pixels", Read, "Height of the gap.", ""},
};

const QVector<PropertyInfo> Button = {
    {prop::Text, T::Text, "an empty button", "", Read, "Text and tooltip of the button, translated.", "", Translated},
    {prop::Icon, T::Other, "none", "", Read, "The picture; a script sets it with setIcon(path).", ""},
    {prop::IconSize, T::Other, "Qt's own", "pixels", Read, "Size of the picture; a script sets it with setIconSize(width, height).", ""},
};

const QVector<PropertyInfo> Script = {
    {prop::EnabledClear, T::Bool, "false", "", Read, "Whether the button Clear can be used; must be stated.", ""},
    {prop::EnabledEdit, T::Bool, "false", "", Read, "Whether the button Edit can be used; must be stated.", ""},
    {prop::EnabledLoad, T::Bool, "false", "", Read, "Whether the button Load can be used; must be stated.", ""},
    {prop::VisibleClear, T::Bool, "false", "", Read, "Whether the button Clear shows; must be stated.", ""},
    {prop::VisibleEdit, T::Bool, "false", "", Read, "Whether the button Edit shows; must be stated.", ""},
    {prop::VisibleLoad, T::Bool, "false", "", Read, "Whether the button Load shows; must be stated.", ""},
};

const QVector<PropertyInfo> HiddenText = {
    {prop::Value, T::Text, "empty", "", Read, "The stored text.", ""},
};

const QVector<PropertyInfo> HiddenCount = {
    {prop::ItemCount, T::Int, "0", "items", Read, "Length of the list.", ""},
};

const QVector<PropertyInfo> Frequency = {
    {prop::Value, T::Int64, "0", "Hz", Read, "The frequency.", ""},
    {prop::Minimum, T::Int64, "no lower bound", "Hz", Read, "The least frequency.", ""},
    {prop::Maximum, T::Int64, "no upper bound", "Hz", Read, "The greatest frequency.", ""},
    {prop::SingleStep, T::Double, "1", "Hz", Read, "The grid on which Up and Down step a plain field.", ""},
    {prop::DisplayScalingFactor, T::Double, "1", "", Read, "Divides the bounds and the step that the form starts with.", ""},
    {prop::FrequencyLock, T::Bool, "no lock button shows", "", Read, "State of the lock button; the first use shows the button.", ""},
    {prop::MainFreqEdit, T::Bool, "true when the element is named \"Frequency\"", "", Read, "Whether the full frequency control is built, which starts locked unless enabled is stated, or a plain line.", ""},
    {prop::UnitScale, T::UInt64, "none", "Hz", Stored, "The unit to show.", ""},
    {prop::UnitHidden, T::Bool, "false", "", Stored, "Whether to hide the unit.", ""},
    {prop::History, T::Bool, "false", "", Stored, "Whether to keep former frequencies.", ""},
    {prop::MaxHistoryLength, T::Int, "0", "values", Stored, "How many former frequencies to keep.", ""},
    {prop::UniformHeights, T::Bool, "false", "", Stored, "Whether all digits are of one height.", ""},
    {prop::DisplayOutOfRangeValues, T::Bool, "false", "", Stored, "Whether to show values beyond the limits.", ""},
};

const QVector<PropertyInfo> FrequencyRange = {
    {prop::StartFrequency, T::Int64, "0, raised to the minimum", "Hz", Read, "Lower end of the range.", ""},
    {prop::StopFrequency, T::Int64, "0, raised to the minimum", "Hz", Read, "Upper end of the range.", ""},
    {prop::StartFrequencyParameterXmlTag, T::Text, "empty, which no document can hold", "", Read, "Element name of the lower end, beside the place of parameterXmlTag.", ""},
    {prop::StopFrequencyParameterXmlTag, T::Text, "empty, which no document can hold", "", Read, "Element name of the upper end, beside the place of parameterXmlTag.", ""},
    {prop::StartFrequencyUnitScale, T::UInt64, "none", "Hz", Stored, "The unit to show the lower end in.", ""},
    {prop::StopFrequencyUnitScale, T::UInt64, "none", "Hz", Stored, "The unit to show the upper end in.", ""},
    {prop::Minimum, T::Double, "8000", "Hz", Read, "The least frequency.", ""},
    {prop::Maximum, T::Double, "26500000000", "Hz", Read, "The greatest frequency.", ""},
    {prop::SingleStep, T::Double, "1", "Hz", Read, "The grid on which Up and Down step both ends.", ""},
    {prop::UnitHidden, T::Bool, "false", "", Stored, "Whether to hide the unit.", ""},
};

const QVector<PropertyInfo> Sheet = {
    {prop::HoverTuning, T::Bool, "false", "", Read, "Whether the wheel tunes the digit under the mouse in large frequency fields without the focus, too.", ""},
    {prop::AutoApplyEnabled, T::Bool, "true", "", Read, "Whether changes are applied by themselves after a while.", ""},
    {prop::AutoApplyTimeout, T::Int, "1000", "milliseconds", Read, "How long after the last change; at least 100.", ""},
    {prop::EmitOnlyModifiedParameters, T::Bool, "true", "", Read, "When false, all parameters are written even where only the modified ones are asked for.", ""},
    {prop::ParametersXmlRootTag, T::Text, "Parameters", "", Read, "Name of the parameter document's root element.", ""},
    {prop::ParametersXmlTypeAttribute, T::Text, "no attribute", "", Read, "Value of the root element's attribute \"type\".", ""},
    {prop::ApplyUiVisible, T::Bool, "none", "", Stored, "Whether to show the apply row; the host decides.", ""},
    {prop::ErrorHighlightingXmlRootTag, T::Text, "none", "", Stored, "Root element of documents that tell faults.", ""},
    {prop::QMBaseName, T::Text, "none", "", Stored, "Base name of translation files.", ""},
    {prop::TranslationsSubDir, T::Text, "none", "", Stored, "Folder of translation files.", ""},
};
// clang-format on

} // namespace group

} // namespace Orbel
