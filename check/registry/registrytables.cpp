#include "registrytables.h"

#include "propertygroups.h"
#include "propertynames.h"

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;
using namespace group;
using T = ValueType;

constexpr QLatin1String None;
constexpr unsigned Field = ekRow | ekShown | ekWrites;
constexpr unsigned Number = Field | ekLimits;

const char Value[] = "The element's text becomes the value; a text that is no number reads as 0.";
const char Text[] = "The element's text becomes the value.";
const char Items[]
    = "Items land by their attribute \"index\", or one behind the other; the element name of an item is not "
      "looked at, and items beyond the count are dropped.";

// clang-format off
const DelegateInfo ComboBox = {"OrbelComboBox", T::Text, prop::CurrentValue, Field,
    "A choice among the rows of an enumeration.",
    "One element with the value text of the chosen row, and the attribute \"unit\" where one is stated.",
    "The row with that value text is chosen; a number that no row has chooses the row the value tree finds for it.",
    {&Unit, &Choice}};
const DelegateInfo CheckBox = {"OrbelCheckBox", T::Bool, prop::Checked, Field,
    "A box to tick.", "One element with checkedValue or uncheckedValue as text.",
    "The box is ticked exactly when the text equals checkedValue.", {&group::Check}};
const DelegateInfo HeadlineInfo = {"OrbelHeadline", T::Text, None, ekShown,
    "The title of a group; a click collapses what follows, up to the next headline.", "", "", {&Headline, &Margin}};
const DelegateInfo FrequencyEdit = {"OrbelFrequencyEdit", T::Int64, prop::Value, Number,
    "One frequency: the full frequency control, or a plain line.",
    "One element with the frequency in Hz, and the attribute \"unit\" where one is stated.",
    Value, {&Unit, &Frequency}};
const DelegateInfo FrequencyRangeEdit = {"OrbelFrequencyRangeEdit", T::Int64, None, Number,
    "Two lines in one row, lower and upper end of a frequency range, at least 1 Hz apart.",
    "Two elements with the frequencies in Hz, named by the two tag properties.",
    "Each of the two elements sets its end.", {&FrequencyRange}};
const DelegateInfo SpinBox = {"OrbelSpinBox", T::Int, prop::Value, Number,
    "A whole number with arrows to step it.",
    "One element with the value less displayAdditiveOffset, and the attribute \"unit\" where one is stated.",
    "The element's text plus displayAdditiveOffset becomes the value; a text that is no number reads as 0.",
    {&Unit, &NumberValue, &Bounds, &Step, &Spin, &SpinText, &Offset}};
const DelegateInfo DoubleSpinBox = {"OrbelDoubleSpinBox", T::Double, prop::Value, Number,
    "A number with arrows to step it.",
    "One element with the value in as many decimals as stated, and the attribute \"unit\" where one is stated.",
    Value, {&Unit, &NumberValue, &Bounds, &Step, &Spin, &SpinText}};
const DelegateInfo Int64SpinBox = {"OrbelInt64SpinBox", T::Int64, prop::Value, Number,
    "A whole number of hertz, shown in the unit of unitScale.",
    "One element with the value, and the attribute \"unit\" where one is stated or made by unitScale.",
    Value, {&Unit, &NumberValue, &Bounds, &Step, &Spin, &group::UnitScale}};
const DelegateInfo ChannelSpacingTable = {"OrbelChannelSpacingTable", T::Double, None, Number | ekItems,
    "A column of channel spacings; a menu sets all to one.",
    "One element with an item for each spacing, each with the attribute \"index\" from 0.",
    Items, {&Unit, &ListItem, &Spacings}};
const DelegateInfo DoubleSpinBoxList = {"OrbelDoubleSpinBoxList", T::Double, None, Number | ekItems,
    "A stack of like numbers, each in a spin control.",
    "One element with an item for each number, each with the attribute \"index\" from 0.",
    Items, {&Unit, &NumberValue, &Bounds, &Step, &Spin, &SpinText, &group::ItemCount, &group::ShiftCount, &ListItem}};
const DelegateInfo SpinBoxList = {"OrbelSpinBoxList", T::Int, None, Number | ekItems,
    "A stack of like whole numbers, each in a spin control.",
    "One element with an item for each number, each with the attribute \"index\" from 0.",
    Items, {&Unit, &NumberValue, &Bounds, &Step, &Spin, &SpinText, &Offset, &group::ItemCount, &ListItem}};
const DelegateInfo Table = {"OrbelTable", T::Text, None, Field | ekItems,
    "A grid of values.",
    "One element with an item for each cell, each with the attributes \"row\" and \"column\" from 0.",
    "Cells land by their attributes \"row\" and \"column\"; those outside the grid are dropped.",
    {&Unit, &Shape, &ListItem}};
const DelegateInfo HiddenList = {"OrbelHiddenList", T::Text, None, ekRow | ekWrites | ekItems,
    "Nothing: a list of texts that a script fills.",
    "One element with an item for each text, each with the attribute \"index\" from 0.",
    "The list is emptied first, and item 0 is always lost; a host restores a list with setItemCount() and "
    "setItemValue() instead.",
    {&Unit, &HiddenCount, &ListItem}};
const DelegateInfo HiddenMap = {"OrbelHiddenMap", T::Text, None, ekRow | ekWrites | ekItems,
    "Nothing: texts under keys, which a script fills.",
    "One element with an item for each key, in the order of the keys, each with the attribute \"key\".",
    "The map is emptied first; an item without \"key\" lands under an empty key.", {&ListItem}};
const DelegateInfo HiddenTable = {"OrbelHiddenTable", T::Text, None, ekRow | ekWrites | ekItems,
    "Nothing: a table of texts that a script fills.",
    "One element with an item for each cell, each with the attributes \"row\" and \"column\" from 0.",
    "The table is emptied first; cells land by their attributes \"row\" and \"column\", those outside it are dropped.",
    {&Unit, &Shape, &ListItem}};
const DelegateInfo Hidden = {"OrbelHidden", T::Text, prop::Value, ekRow | ekWrites,
    "Nothing: a text that a script sets.", "One element with the text.", Text, {&HiddenText}};
const DelegateInfo ScriptControl = {"OrbelScriptControl", T::Text, None, ekRow | ekShown,
    "A lamp and the buttons Load, Edit and Clear for a script of the host.", "", "", {&group::Script}};
const DelegateInfo LineEdit = {"OrbelLineEdit", T::Text, prop::Text, Field,
    "A field for text.", "One element with the text, and the attribute \"unit\" where one is stated.",
    Text, {&Unit, &Line}};
const DelegateInfo PushButton = {"OrbelPushButton", T::Text, None, ekRow | ekShown,
    "A button whose clicks the script hears.", "", "", {&Button}};
const DelegateInfo Label = {"OrbelLabel", T::Text, prop::Text, ekRow | ekShown | ekWrites | ekScriptOnly,
    "A text to read.", "One element with the text, untranslated.", Text, {&group::LabelText}};
const DelegateInfo Separator = {"OrbelSeparator", T::Text, None, ekShown | ekScriptOnly,
    "A headline without a title, which begins no group.", "", "", {&Margin}};
const DelegateInfo FixedSpacer = {"OrbelSeparator", T::Text, None, ekShown | ekScriptOnly,
    "A gap of fixed height.", "", "", {&Height}};
const DelegateInfo AudioObject = {"OrbelAudioObject", T::Text, None, ekRow,
    "Nothing: the script selects the audio source of the application through it.", "", "", {}};
const DelegateInfo TunerObject = {"OrbelTunerObject", T::Text, None, ekRow,
    "Nothing: the script tells the application of a tuner segment and of spectrum switches through it.", "", "", {}};
const DelegateInfo FFTObject = {"OrbelFFTObject", T::Text, None, ekRow,
    "Nothing: computes resolutions from FFT length and sample rate for the script.", "", "", {}};
const DelegateInfo DSCObject = {"OrbelDSCObject", T::Text, None, ekWrites | ekAlwaysWrites,
    "Nothing itself: opens the list of excluded ranges, and shows scan ranges in the labels lbScanHF, lbScanVUHF and "
    "lbScanSHF.",
    "One element with an \"ExclusionFrequency\" for each range, written in every case. The custom property "
    "customXmlTag names the element; with custom properties but without that one it is \"ExclusionFrequencyList\".",
    "The list is replaced as a whole.", {}, QLatin1String("ExclusionFrequencyList")};
const DelegateInfo FHPObject = {"OrbelFHPObject", T::Text, None, ekWrites | ekAlwaysWrites,
    "Nothing itself: opens the list of excluded ranges.",
    "One element with an \"ExclusionRange\" for each range, written in every case. The custom property customXmlTag "
    "names the element; with custom properties but without that one it is \"ExclusionRanges\".",
    "The list is replaced as a whole.", {}, QLatin1String("ExclusionRanges")};
const DelegateInfo Plain = {"OrbelDelegate", T::Text, None, ekRow | ekFreeProperties,
    "Nothing, or a row label: holds properties for script and host.", "", "", {}};
// clang-format on

} // namespace

const QVector<ClassInfo> &ClassTable()
{
    // clang-format off
    static const QVector<ClassInfo> table = {
        {"ComboBox",              &ComboBox,            ""},
        {"CheckBox",              &CheckBox,            ""},
        {"Headline",              &HeadlineInfo,        ""},
        {"FrequencyEdit",         &FrequencyEdit,       ""},
        {"FrequencyRangeEdit",    &FrequencyRangeEdit,  ""},
        {"SpinBox",               &SpinBox,             ""},
        {"DoubleSpinBox",         &DoubleSpinBox,       ""},
        {"BandwidthEdit",         &Int64SpinBox,        ""},
        {"BaudRateSpinBox",       &DoubleSpinBox,       "The same control as DoubleSpinBox."},
        {"ChannelSpacingTable",   &ChannelSpacingTable, ""},
        {"DoubleSpinBoxList",     &DoubleSpinBoxList,   ""},
        {"FrequencyOffsetEdit",   &Int64SpinBox,        "The same control as BandwidthEdit."},
        {"HiddenList",            &HiddenList,          ""},
        {"ScriptControl",         &ScriptControl,       ""},
        {"HiddenMap",             &HiddenMap,           ""},
        {"HiddenParameter",       &Hidden,              ""},
        {"HiddenTable",           &HiddenTable,         ""},
        {"IPEdit",                &LineEdit,            "The same control as LineEdit; inputMask alone enforces addresses."},
        {"LineEdit",              &LineEdit,            ""},
        {"PushButton",            &PushButton,          ""},
        {"Label",                 &Label,               ""},
        {"Separator",             &Separator,           ""},
        {"FixedSpacer",           &FixedSpacer,         ""},
        {"ShiftList",             &DoubleSpinBoxList,   "The same control as DoubleSpinBoxList."},
        {"SpinBoxList",           &SpinBoxList,         ""},
        {"TableWidget",           &Table,               ""},
        {"SpecialObject_Audio",   &AudioObject,         ""},
        {"SpecialObject_DSC",     &DSCObject,           ""},
        {"SpecialObject_FFT",     &FFTObject,           ""},
        {"SpecialObject_Generic", &Plain,               ""},
        {"SpecialObject_Tuner",   &TunerObject,         ""},
        {"SpecialObject_WDE",     &Plain,               "The same object as SpecialObject_Generic."},
        {"SpecialObject_FHP",     &FHPObject,           ""},
    };
    // clang-format on
    return table;
}

const QVector<PropertyInfo> &CommonProperties()
{
    return Row;
}

const QVector<PropertyInfo> &SheetTable()
{
    return Sheet;
}

} // namespace Orbel
