#pragma once

#include "finding.h"

namespace Orbel
{

/// Every kind of finding. The table in codes.cpp gives each its name, its weight and its explanation.
enum class Code {
    XmlMalformed,
    FormMissing,
    FormReplaced,
    ElementSkipped,
    ElementEntered,
    PropertiesWrapper,
    PropertyEmpty,
    ValueNested,
    ListTooDeep,
    AttributeUnknown,
    ScriptReplaced,
    ClassUnknown,
    PropertyUnknown,
    PropertyUnnamed,
    PropertyDoubled,
    PropertyCustom,
    ValueElement,
    ValueType,
    ValueChoice,
    BoolText,
    NameMissing,
    NameDoubled,
    NameHidden,
    NameBuiltin,
    NameUnwritable,
    EnumUnknown,
    EnumValue,
    EnumDoubled,
    EnumIdentifier,
    LimitReversed,
    LimitOutside,
    LimitStep,
    LimitFactor,
    CountBeyond,
    CountMissing,
    LabelHidden,
    InputUnstated,
    GroupEmpty,
    HeadlineUntitled,
    HeadlineComma,
    ParameterUnwritten,
    ParameterDoubled,
    ParameterTag,
    AttributeEmpty,
    AttributeUndeclared,
    RangeTags,
    ItemTag,
    DocumentRoot,
    DocumentElement,
    DocumentRepeated,
    DocumentValue,
    ScanLabels,
    ScanUnseen,
    ScriptRow,
    ScriptSyntax,
    ScriptException,
    ScriptUnknown,
    ScriptEndless,
    ScriptNotRun,
    ChangeWidget,
    ChangeIgnored,
    ChangeScript,
    ComponentUnnamed,
};

struct CodeInfo {
    Code code;
    const char *name;
    Severity severity;
    const char *explanation;
};

const QVector<CodeInfo> &AllCodes();
const CodeInfo &InfoOf(Code code);

} // namespace Orbel
