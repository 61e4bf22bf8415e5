#include "codes.h"

namespace Orbel
{

namespace
{

constexpr Severity Error = Severity::Error;
constexpr Severity Warning = Severity::Warning;
constexpr Severity Note = Severity::Note;

} // namespace

const QVector<CodeInfo> &AllCodes()
{
    // clang-format off
    static const QVector<CodeInfo> table = {
        {Code::XmlMalformed,      "xml-malformed",       Error,   "The document is not well-formed XML, or not in the encoding that it declares. Everything behind that place is lost. A form is loaded without the bytes 0D of its file; of these UTF-16 has one in each line end of CR LF, and some in letters."},
        {Code::FormMissing,       "form-missing",        Error,   "There is no form: no element ZkParamGui on the way down along the first children of the document."},
        {Code::FormReplaced,      "form-replaced",       Warning, "A document holds several forms, and only the last one counts."},
        {Code::ElementSkipped,    "element-skipped",     Warning, "An element that means nothing at its place is skipped, with all that stands in it. Of a Property only the first value element is read."},
        {Code::ElementEntered,    "element-entered",     Error,   "An element among properties that is neither Property nor CustomProperties is entered, and its end tag ends the list. In a widget that also ends the sheet: the widgets, enumerations and scripts behind it are lost."},
        {Code::PropertiesWrapper, "properties-wrapper",  Error,   "A Properties element belongs to a Sheet only. Inside a Widget its end tag ends the widget's list, and then the sheet. Put the Property elements directly into the Widget."},
        {Code::PropertyEmpty,     "property-empty",      Error,   "A Property without a value element ends the list in which it stands; in a widget also the sheet. An empty text is `<String/>`."},
        {Code::ValueNested,       "value-nested",        Error,   "An element inside a text that is read as a whole ends the reading of the document right there."},
        {Code::ListTooDeep,       "list-too-deep",       Error,   "CustomProperties nest too deep, and the document is read no further."},
        {Code::AttributeUnknown,  "attribute-unknown",   Warning, "An attribute that means nothing on its element."},
        {Code::ScriptReplaced,    "script-replaced",     Warning, "A form has one script: a second Script element replaces the first."},
        {Code::ClassUnknown,      "class-unknown",       Error,   "An unknown or missing class gives a widget that shows at most its label and writes nothing."},
        {Code::PropertyUnknown,   "property-unknown",    Warning, "The class does not read a property of that name, and the script does not speak of it. What hosts are to find belongs into CustomProperties."},
        {Code::PropertyUnnamed,   "property-unnamed",    Warning, "A Property without a name reaches nothing."},
        {Code::PropertyDoubled,   "property-doubled",    Warning, "A property is stated twice in one widget, and the later one counts."},
        {Code::PropertyCustom,    "property-custom",     Warning, "A property that the class reads stands among the custom ones, where it has no effect."},
        {Code::ValueElement,      "value-element",       Warning, "The element of a value is Bool, Int, Int64, UInt64, Double or String. Any other name gives a plain text."},
        {Code::ValueType,         "value-type",          Error,   "The text does not convert to the type that reads it, and the default counts instead; or a Bool stands for a number, which it makes 0 or 1."},
        {Code::ValueChoice,       "value-choice",        Warning, "The text is none of those that mean something."},
        {Code::BoolText,          "bool-text",           Error,   "A Bool is true for the text \"true\" alone. Any other text, \"True\" and \"1\" included, silently means false; \"false\" says so. In a String nearly every text means true."},
        {Code::NameMissing,       "name-missing",        Warning, "Without a name, a widget is named by its class and its place in the sheet, and loses that name when another is put in front of it. Labels, separators and gaps may go without."},
        {Code::NameDoubled,       "name-doubled",        Error,   "Two widgets or two enumerations have one name. Of widgets, the script sees the last and look-ups find the first; of enumerations only the last exists."},
        {Code::NameHidden,        "name-hidden",         Warning, "Widgets, enumerations and the sheet share the names of the script, and the one that is read last hides the others."},
        {Code::NameBuiltin,       "name-builtin",        Warning, "The name hides something that the script language brings along."},
        {Code::NameUnwritable,    "name-unwritable",     Note,    "The form has a script, but a script cannot write this name."},
        {Code::EnumUnknown,       "enum-unknown",        Error,   "A combo box whose enumName is missing or unknown has no rows and no node."},
        {Code::EnumValue,         "enum-value",          Error,   "No row of the enumeration has this value, and the first row is taken instead."},
        {Code::EnumDoubled,       "enum-doubled",        Warning, "Two rows of an enumeration share a value, an identifier or a display name, or both have no value; only one of them can be found. In one row that states such a part twice, the later one counts."},
        {Code::EnumIdentifier,    "enum-identifier",     Warning, "A script cannot write this identifier behind a dot."},
        {Code::LimitReversed,     "limit-reversed",      Error,   "The least value is above the greatest."},
        {Code::LimitOutside,      "limit-outside",       Error,   "The value lies outside its limits. Limits are in display units: they are divided by displayScalingFactor before they meet the value."},
        {Code::LimitStep,         "limit-step",          Error,   "A step has to be above 0."},
        {Code::LimitFactor,       "limit-factor",        Error,   "A factor has to be above 0: 0 makes all limits infinite, and a negative one turns them round."},
        {Code::CountBeyond,       "count-beyond",        Error,   "A count is negative, or beyond the limit that docs/limits.md tells."},
        {Code::CountMissing,      "count-missing",       Warning, "A list without items or a table without cells stays empty: its shape is settled before the script runs."},
        {Code::LabelHidden,       "label-hidden",        Warning, "A row label shows only when visible is stated, even though the control itself shows without. Headlines, separators and gaps have no row label at all."},
        {Code::InputUnstated,     "input-unstated",      Warning, "The large field of a FrequencyEdit starts locked unless enabled is stated, until a script calls setEnabled(true) or setReadOnly(false). All other controls start free."},
        {Code::GroupEmpty,        "group-empty",         Warning, "A headline has nothing to collapse: the next headline, or the end of the sheet, follows at once."},
        {Code::HeadlineUntitled,  "headline-untitled",   Warning, "A headline without a text is not made at all."},
        {Code::HeadlineComma,     "headline-comma",      Warning, "The names of collapsed headlines are kept in one text, with commas between them. A headline with a comma in its name never comes back collapsed."},
        {Code::ParameterUnwritten, "parameter-unwritten", Warning, "A place in the parameter document is stated, but nothing is ever written there: generateParameterXml is not stated, or the class writes no element."},
        {Code::ParameterDoubled,  "parameter-doubled",   Error,   "Two controls stand at one place of the parameter document: both write, but only the first reads."},
        {Code::ParameterTag,      "parameter-tag",       Error,   "An element or attribute name of the parameter document is no XML name, so the document is malformed; or its path has more parts than docs/limits.md tells."},
        {Code::AttributeEmpty,    "attribute-empty",     Warning, "A custom property Attribute_X of the sheet declares an attribute of the parameter document; its value is the property of the same name in Properties, which is missing."},
        {Code::AttributeUndeclared, "attribute-undeclared", Warning, "A property Attribute_X of the sheet has no effect without a custom property of the same name."},
        {Code::RangeTags,         "range-tags",          Error,   "A frequency range is written under startFrequencyParameterXmlTag and stopFrequencyParameterXmlTag, which must both be stated and differ."},
        {Code::ItemTag,           "item-tag",            Error,   "Items of lists and tables are written under parameterListItemTag, which must be stated."},
        {Code::DocumentRoot,      "document-root",       Error,   "The parameter document has no element of the name that the form reads, so nothing of it is read."},
        {Code::DocumentElement,   "document-element",    Warning, "No control stands at this place of the parameter document, and the element is skipped."},
        {Code::DocumentRepeated,  "document-repeated",   Warning, "A parameter element comes twice, and the later one counts."},
        {Code::DocumentValue,     "document-value",      Warning, "The text is none that the control can take, or it lies outside the limits; or an item stands beyond the count."},
        {Code::ScanLabels,        "scan-labels",         Warning, "A DSC object shows scan ranges in three labels, which it finds by the tags lbScanHF, lbScanVUHF and lbScanSHF: their name, unless they have a parameterXmlTag."},
        {Code::ScanUnseen,        "scan-unseen",         Note,    "A DSC object has none of the labels in which it shows scan ranges. That is right for a form that is not to show them."},
        {Code::ScriptRow,         "script-row",          Warning, "A ScriptControl must state all of enabledLoad, enabledEdit, enabledClear, visibleLoad, visibleEdit and visibleClear: a missing one counts as false."},
        {Code::ScriptSyntax,      "script-syntax",       Error,   "The script does not follow the grammar of the script language, and nothing of it runs."},
        {Code::ScriptException,   "script-exception",    Error,   "The script ended with an exception that nothing caught. What it did before stays, what stands behind did not run."},
        {Code::ScriptUnknown,     "script-unknown",      Warning, "The script speaks of a name that neither the form nor the script makes."},
        {Code::ScriptEndless,     "script-endless",      Error,   "The script did not end in time."},
        {Code::ScriptNotRun,      "script-not-run",      Note,    "The script was not run, since errors of the definition keep parts of the form from being read."},
        {Code::ChangeWidget,      "change-widget",       Error,   "A changed definition names a widget that the form does not have. It is applied up to that widget, and nothing behind it is read."},
        {Code::ChangeIgnored,     "change-ignored",      Warning, "This part of a changed definition has no effect."},
        {Code::ChangeScript,      "change-script",       Note,    "The script of a changed definition is stored and does not run before the form is made anew."},
        {Code::ComponentUnnamed,  "component-unnamed",   Warning, "A form of a component list stands in no Component with a name, so its tab has no title."},
    };
    // clang-format on
    return table;
}

const CodeInfo &InfoOf(Code code)
{
    const CodeInfo &info = AllCodes().at(int(code));
    Q_ASSERT(info.code == code);
    return info;
}

} // namespace Orbel
