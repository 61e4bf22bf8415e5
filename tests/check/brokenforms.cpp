#include "brokenforms.h"

namespace
{

QString Sheet(const QString &body, const QString &rest = QString())
{
    return "<ZkParamGui version='1'><Sheet name='sheet'>" + body + "</Sheet>" + rest + "</ZkParamGui>";
}

QString P(const QString &name, const QString &type, const QString &text)
{
    return QString("<Property name='%1'><%2>%3</%2></Property>").arg(name, type, text);
}

const QString Shown = P("visible", "Bool", "true") + P("enabled", "Bool", "true");
const QString Written = P("generateParameterXml", "Bool", "true");

/// A widget that states what every control should.
QString W(const QString &name, const QString &className, const QString &properties = QString())
{
    return QString("<Widget name='%1' class='%2'>").arg(name, className) + Shown + properties + "</Widget>";
}

QString Number(const QString &properties)
{
    return Sheet(W("n", "DoubleSpinBox", properties));
}

QString Enum(const QString &rows)
{
    return "<Enums><Enum name='Mode'>" + rows + "</Enum></Enums>";
}

QString Row(const QString &name, const QString &identifier, const QString &value)
{
    return QString(
        "<EnumValue><DisplayName>%1</DisplayName><EnumIdentifier>%2</EnumIdentifier><Value>%3</Value></EnumValue>")
        .arg(name, identifier, value);
}

/// Two widgets, of which the second stands behind the mistake, an enumeration and a script.
QString Cut(const QString &insideFirst)
{
    return Sheet("<Widget name='first' class='Label'>" + Shown + insideFirst + "</Widget>" + W("second", "Label"),
        Enum(Row("A", "A", "1")) + "<Script>var x = 1;</Script>");
}

QString Scripted(const QString &code)
{
    return Sheet(W("n", "SpinBox") + W("box", "CheckBox"), Enum(Row("A", "A", "1")) + "<Script>" + code + "</Script>");
}

/// A choice "m" and a number "m2" with a script.
QString Chosen(const QString &code)
{
    return Sheet(W("m", "ComboBox", P("enumName", "String", "Mode")) + W("m2", "SpinBox", P("minimum", "Int", "1")),
        Enum(Row("Amplitude", "AM", "am") + Row("Frequency", "FM", "fm")) + "<Script>" + code + "</Script>");
}

/// A handler of a change that the script itself raises.
QString Handled(const QString &body)
{
    return Sheet(W("h", "HiddenParameter"),
        "<Script>function f(v) {\n" + body + "\n}\nh.valueChanged.connect(f);\nh.setValue(1);</Script>");
}

const QString List = "<Components><Component name='A'><ValueString id='ORBEL' value='%1'/></Component></Components>";

QString Escaped(const QString &text)
{
    return QString(text).replace('&', "&amp;").replace('<', "&lt;").replace('\'', "&apos;");
}

} // namespace

QString PlainForm()
{
    return Sheet("<CustomProperties>" + P("parametersXmlRootTag", "String", "Unread") + "</CustomProperties>"
            + W("n", "SpinBox", Written + P("parameterXmlTag", "String", "Rx/N"))
            + W("box", "CheckBox", Written + P("checkedValue", "String", "on"))
            + W("mode", "ComboBox", Written + P("enumName", "String", "Mode"))
            + W("list", "SpinBoxList",
                Written + P("itemCount", "Int", "2") + P("parameterListItemTag", "String", "I")
                    + P("maximum", "Int", "8"))
            + W("table", "HiddenTable",
                Written + P("rowCount", "Int", "2") + P("columnCount", "Int", "3")
                    + P("parameterListItemTag", "String", "I"))
            + W("holder", "SpecialObject_Generic"),
        Enum(Row("A", "A", "1") + Row("B", "B", "2")) + "<Script>var x = n.own;</Script>");
}

const QVector<BrokenForm> &BrokenForms()
{
    using K = BrokenForm;
    // clang-format off
    static const QVector<BrokenForm> rows = {
        // documents
        {"cut off", K::Definition, "<ZkParamGui>\n <Sheet name='s'>@\n", "xml-malformed"},
        {"end tag of another element", K::Definition, Sheet("<Widget name='a' class='Label'>@</Wodget>"), "xml-malformed"},
        {"empty file", K::Definition, "@", "xml-malformed"},
        {"another root", K::Definition, "@<Form/>", "form-missing"},
        {"form behind a closed element", K::Definition, "@<x><y/><ZkParamGui/></x>", "form-missing"},
        {"mark of an unknown attribute", K::Definition, "<ZkParamGui version='1' @verson='2' xmlns:x='u' x:any='3'/>", "attribute-unknown"},
        // structure
        {"unknown child of a form", K::Definition, "<ZkParamGui>@<Widgets><Widget name='a' class='Label'/></Widgets></ZkParamGui>", "element-skipped"},
        {"unknown child of an enumeration", K::Definition, "<ZkParamGui>" + Enum("@<EnumVal/>" + Row("A", "A", "1").replace("</EnumValue>", "@<Name/></EnumValue>")) + "</ZkParamGui>", "element-skipped element-skipped"},
        {"widget outside the sheet", K::Definition, Sheet("", "@<Widget name='a' class='Label'/>"), "element-skipped"},
        {"wrapper inside a widget", K::Definition, Cut("@<Properties>" + P("text", "String", "x") + "</Properties>"), "properties-wrapper"},
        {"empty property", K::Definition, Cut("@<Property name='text'/>"), "property-empty"},
        {"property with bare text", K::Definition, Cut("@<Property name='text'>hello</Property>"), "property-empty"},
        {"empty property among custom ones", K::Definition, Cut("<CustomProperties>@<Property name='c'/></CustomProperties>"), "property-empty"},
        {"unknown element inside a widget", K::Definition, Cut("@<Propertie name='text'><String/></Propertie>"), "element-entered"},
        {"unknown element in the sheet's list", K::Definition, Sheet("<Properties>@<Other/></Properties>" + W("a", "Label")), "element-entered"},
        {"element inside a value", K::Definition, Cut("<Property name='text'><String>a@<b/></String></Property>"), "value-nested"},
        {"element inside a script", K::Definition, Sheet("", "<Script>a@<b/></Script>"), "value-nested"},
        {"two values of one property", K::Definition, Sheet(W("a", "Label", "<Property name='text'><String>x</String>@<String>y</String></Property>")), "element-skipped"},
        {"lists nested too deep", K::Definition, Cut(QString("<CustomProperties>").repeated(63) + "@<CustomProperties>" + QString("</CustomProperties>").repeated(64)), "list-too-deep"},
        // classes and properties
        {"no class", K::Definition, Sheet("@<Widget name='a'/>"), "class-unknown"},
        {"misspelt property", K::Definition, Sheet(W("a", "Label", P("@txt", "String", "x"))), "property-unknown"},
        {"misspelt property beside a variable", K::Definition, Sheet(W("a", "Label", P("@txt", "String", "x")), "<Script>var txt = 1; /* a.txt */</Script>"), "property-unknown"},
        {"misspelt property of the sheet", K::Definition, Sheet("<Properties>" + P("@autoApply", "Bool", "true") + "</Properties>"), "property-unknown"},
        {"property among custom ones", K::Definition, Sheet(W("a", "Label", "<CustomProperties>" + P("@text", "String", "x") + P("toolTip", "String", "t") + "</CustomProperties>")), "property-custom"},
        {"fraction for a whole number", K::Definition, Sheet(W("a", "SpinBox", P("value", "Int", "@1.5"))), "value-type"},
        {"number beyond 32 bits", K::Definition, Sheet(W("a", "SpinBox", P("value", "Int", "@3000000000"))), "value-type"},
        {"word for a number", K::Definition, Number(P("singleStep", "Double", "@small") + P("suffix", "String", "small")), "value-type"},
        {"text for a picture", K::Definition, Sheet("@" + W("a", "PushButton", P("text", "String", "B") + P("icon", "String", "@a.png"))), "button-unheard value-type"},
        {"negative scale", K::Definition, Sheet(W("a", "BandwidthEdit", P("unitScale", "UInt64", "@-1"))), "value-type"},
        {"fraction for a limit of whole numbers", K::Definition, Sheet(W("a", "SpinBox", P("minimum", "Double", "@0.5") + P("displayScalingFactor", "Double", "1"))), "value-type"},
        {"Bool for a number", K::Definition, Sheet(W("a", "SpinBox", "<Property name='value'>@<Bool>true</Bool></Property>")), "value-type"},
        {"unknown apply mode", K::Definition, Sheet(W("a", "CheckBox", P("applyMode", "String", "@instant"))), "value-choice"},
        {"1 as a Bool", K::Definition, Sheet(W("a", "CheckBox", P("checked", "Bool", "@1") + P("readOnly", "Int", "1"))), "bool-text"},
        {"word for a Bool", K::Definition, Sheet(W("a", "CheckBox", P("checked", "String", "@no"))), "bool-text"},
        // names
        {"control without a name", K::Definition, Sheet("@" + W("", "SpinBox") + W("", "Label").replace("name='' ", "")), "name-missing"},
        {"enumeration without a name", K::Definition, "<ZkParamGui><Enums>@<Enum/></Enums></ZkParamGui>", "name-missing"},
        {"widget named like the sheet", K::Definition, Sheet(W("@sheet", "Label")), "name-hidden"},
        {"enumeration named like a widget", K::Definition, Sheet(W("Mode", "Label"), Enum(Row("A", "A", "1")).replace("'Mode'", "'@Mode'")), "name-hidden"},
        {"name that no script can write", K::Definition, Sheet(W("@my-label", "Label"), "<Script>1;</Script>"), "name-unwritable"},
        // enumerations
        {"combo box without an enumeration", K::Definition, Sheet("@" + W("a", "ComboBox")), "enum-unknown"},
        {"unknown enumeration", K::Definition, Sheet(W("a", "ComboBox", P("enumName", "String", "@Mod")), Enum(Row("A", "A", "1"))), "enum-unknown"},
        {"value that no row has", K::Definition, Sheet(W("a", "ComboBox", P("enumName", "String", "Mode") + P("currentValue", "String", "@2")), Enum(Row("A", "A", "1"))), "enum-value"},
        {"equal rows", K::Definition, "<ZkParamGui>" + Enum(Row("A", "A", "1") + Row("A", "A", "1").replace("<Val", "@<Val").replace("<EnumId", "@<EnumId").replace("<EnumValue>", "@<EnumValue>")) + "</ZkParamGui>", "enum-doubled enum-doubled enum-doubled"},
        {"reserved identifier", K::Definition, "<ZkParamGui>" + Enum(Row("A", "@default", "1") + Row("B", "@2nd", "2")) + "</ZkParamGui>", "enum-identifier enum-identifier"},
        {"rows without a value", K::Definition, "<ZkParamGui>" + Enum("@<EnumValue/><EnumValue><Value/></EnumValue><EnumValue>@<Value/></EnumValue>") + "</ZkParamGui>", "enum-valueless enum-doubled"},
        {"two values in a row", K::Definition, "<ZkParamGui>" + Enum("<EnumValue><Value>1</Value>@<Value>2</Value></EnumValue>") + "</ZkParamGui>", "enum-doubled"},
        // limits
        {"value above", K::Definition, Number(P("maximum", "Double", "1") + P("value", "Double", "@2")), "limit-outside"},
        {"value below in display units", K::Definition, Number(P("value", "Double", "2") + P("minimum", "Double", "@1") + P("displayScalingFactor", "Double", "0.1")), "limit-outside"},
        {"scaled frequency outside", K::Definition, Sheet(W("a", "BandwidthEdit", P("unitScale", "UInt64", "1000") + P("maximum", "Int64", "20") + P("value", "Int64", "@20001"))), "limit-outside"},
        {"range reversed", K::Definition, Sheet(W("a", "FrequencyRangeEdit", P("startFrequency", "Int64", "@9000") + P("stopFrequency", "Int64", "9000"))), "limit-reversed"},
        {"range outside the limits of its class", K::Definition, Sheet(W("a", "FrequencyRangeEdit", P("startFrequency", "Int64", "@7999") + P("stopFrequency", "Int64", "@26500000001"))), "limit-outside limit-outside"},
        {"too many items", K::Definition, Sheet(W("a", "SpinBoxList", P("itemCount", "Int", "@1001"))), "count-beyond"},
        {"too many cells", K::Definition, Sheet(W("a", "HiddenTable", P("rowCount", "Int", "@1000") + P("columnCount", "Int", "1000"))), "count-beyond"},
        {"negative count", K::Definition, Sheet(W("a", "HiddenList", P("itemCount", "Int", "@-1"))), "count-beyond"},
        {"list without items", K::Definition, Sheet("@" + W("a", "ShiftList", P("itemCount", "Int", "0") + "@" + P("shiftCount", "Int", "3"))), "count-missing count-missing"},
        {"table without columns", K::Definition, Sheet("@" + W("a", "TableWidget", P("rowCount", "Int", "3"))), "count-missing"},
        // rows
        {"label without visible", K::Definition, Sheet("<Widget name='a' class='Label'>@" + P("labelText", "String", "L") + "</Widget>"), "label-hidden"},
        {"row label of a gap", K::Definition, Sheet(W("a", "FixedSpacer", P("height", "Int", "9") + "@" + P("labelText", "String", "L"))), "label-hidden"},
        {"large field without enabled", K::Definition, Sheet("@<Widget name='Frequency' class='FrequencyEdit'/>"), "input-unstated"},
        {"large field that only another one's function and a comment enable", K::Definition, Sheet("@<Widget name='a' class='FrequencyEdit'>" + P("MainFreqEdit", "Bool", "true") + "</Widget>", "<Script>// a.setEnabled(true){{LF}}n.setEnabled(a.value);</Script>"), "input-unstated"},
        {"groups without members", K::Definition, Sheet("@" + W("a", "Headline", P("text", "String", "A")) + W("hidden", "HiddenMap") + "@" + W("b", "Headline", P("text", "String", "B"))), "group-empty group-empty"},
        {"headline with a comma in its name", K::Definition, Sheet(W("@a,b", "Headline", P("text", "String", "A")) + W("c", "Label")), "headline-comma"},
        // parameter document
        {"tag without generateParameterXml", K::Definition, Sheet(W("a", "CheckBox", P("parameterXmlTag", "String", "@A"))), "parameter-unwritten"},
        {"button that is to write", K::Definition, Sheet("@" + W("a", "PushButton", P("text", "String", "B") + "@" + Written)), "button-unheard parameter-unwritten"},
        {"two controls at one place", K::Definition, Sheet(W("a", "CheckBox", Written + P("parameterXmlTag", "String", "x/y")) + W("b", "CheckBox", Written + P("parameterXmlTag", "String", "@x/y"))), "parameter-doubled"},
        {"control at an enclosing place", K::Definition, Sheet(W("a", "CheckBox", Written + P("parameterXmlTag", "String", "@x")) + W("b", "CheckBox", Written + P("parameterXmlTag", "String", "x/y"))), "parameter-doubled"},
        {"tags that are no names", K::Definition, Sheet(W("a", "CheckBox", Written + P("parameterXmlTag", "String", "@x/1 y")) + "@" + W("b c", "CheckBox", Written)), "parameter-tag parameter-tag"},
        {"tag with nothing behind its last part", K::Definition, Sheet(W("a", "CheckBox", Written + P("parameterXmlTag", "String", "@x/")) + W("b", "CheckBox", P("generateParameterXml", "Bool", "false") + P("parameterXmlTag", "String", "y/"))), "parameter-tag"},
        {"root that is no name", K::Definition, Sheet("<Properties>" + P("parametersXmlRootTag", "String", "@<![CDATA[a&b]]>") + "</Properties>"), "parameter-tag"},
        {"attribute without a value", K::Definition, Sheet("<CustomProperties>@" + P("Attribute_Site", "String", "x") + "</CustomProperties>"), "attribute-empty"},
        {"attribute without a declaration", K::Definition, Sheet("<Properties>@" + P("Attribute_Site", "String", "x") + "</Properties>"), "attribute-undeclared"},
        {"range without tags", K::Definition, Sheet("@" + W("a", "FrequencyRangeEdit", Written + P("startFrequencyParameterXmlTag", "String", "S"))), "range-tags"},
        {"list without an item tag", K::Definition, Sheet("@" + W("a", "HiddenMap", Written)), "item-tag"},
        {"tags of items and ends that are no names", K::Definition, Sheet(W("a", "HiddenMap", Written + P("parameterListItemTag", "String", "@1x")) + W("b", "FrequencyRangeEdit", Written + P("startFrequencyParameterXmlTag", "String", "@2x") + P("stopFrequencyParameterXmlTag", "String", "@2x"))), "parameter-tag parameter-tag parameter-tag+range-tags"},
        {"list at the place of another control", K::Definition, Sheet(W("a", "CheckBox", Written + P("parameterXmlTag", "String", "x")) + "@" + W("b", "SpecialObject_FHP", "<CustomProperties>" + P("own", "String", "y") + P("customXmlTag", "String", "x") + "</CustomProperties>")), "parameter-doubled"},
        {"path of too many parts", K::Definition, Sheet(W("a", "CheckBox", Written + P("parameterXmlTag", "String", "@" + QString("a/").repeated(100000) + "b"))), "parameter-tag"},
        {"attribute that is no name", K::Definition, Sheet("<Properties>" + P("Attribute_1", "String", "x") + "</Properties><CustomProperties>@" + P("Attribute_1", "String", "x") + "</CustomProperties>"), "parameter-tag"},
        // conventions
        {"scan label under another tag", K::Definition, Sheet("@" + W("dsc", "SpecialObject_DSC") + W("lbScanHF", "Label") + W("lbScanSHF", "Label") + W("lbScanVUHF", "Label", Written + P("parameterXmlTag", "String", "V"))), "scan-labels"},
        {"no scan label", K::Definition, Sheet("@" + W("dsc", "SpecialObject_DSC")), "scan-unseen"},
        {"script row", K::Definition, Sheet("@" + W("s", "ScriptControl", P("enabledLoad", "Bool", "true"))), "script-row"},
        // scripts
        {"syntax error", K::Definition, Scripted("var x = 1;\n  if (x @{\n}"), "script-syntax"},
        {"syntax error behind line marks", K::Definition, Scripted("var x = 1;{{CR}}{{LF}}{{LF}}  y = @];"), "script-syntax"},
        {"syntax error behind entities", K::Definition, Scripted("x &lt; 1 &amp;&amp; <![CDATA[ 1 < 2 ;\n y]]> @y"), "script-syntax"},
        {"syntax error behind operators and texts", K::Definition, Scripted("x = !y == 1.5e-3&amp;&amp;'a b'+-.5 ; x.@=y"), "script-syntax"},
        {"brackets that never close", K::Definition, Scripted("var x = " + QString("[").repeated(2000) + "@"), "script-syntax"},
        {"syntax error in deep brackets", K::Definition, Scripted("var x = " + QString("[").repeated(64) + "@; x"), "script-syntax"},
        {"syntax error behind a block at the start", K::Definition, Scripted("{\n}\n  x = @];"), "script-syntax"},
        {"unfinished script", K::Definition, Scripted("function f() {\n  1;@"), "script-syntax"},
        {"exception", K::Run, Scripted("var x = 1;{{LF}}  @nosuch.y = x;"), "script-exception"},
        {"exception of a control's member", K::Run, Scripted("var x = 1;\n  @n.setValu(1);").replace("@n.setV", "n.@setV"), "script-exception"},
        {"exception of a member at the start", K::Run, Scripted("n.@setValu(1);"), "script-exception"},
        {"unknown names in handlers", K::Run, Scripted("function f(v) { var w, z = [1, v]; if (/n\\.no/.test(w)) box.@setCheked(v); return @whatever(z, {key: w}); }\nn.valueChanged.connect(f); n.maximum; Mode.@B; own = 1; own.x;"), "script-unknown script-unknown script-unknown"},
        {"endless script", K::Run, Scripted("var x = 1;\n@while (x) {\nx = 2; }").replace("@while (x) {\nx", "while (x) {\n@x"), "script-endless"},
        {"endless handler", K::Run, Handled("@while (v) { v = 2; }"), "script-endless"},
        {"handler that calls itself", K::Run, Handled("if (v &lt; 9) h.setValue(v + 1); @nosuch();"), "script-exception"},
        {"cut form is not run", K::Run, Cut("<Property name='text'/>").replace("<Script>", "@<Script>"), "script-not-run"},
        // other documents
        {"change of an unknown widget", K::Change, Sheet(W("n", "SpinBox") + "@" + W("m", "SpinBox") + W("box", "CheckBox"), "@<Script>1</Script>"), "change-widget change-script"},
        {"switch of the text that it has", K::Definition, Sheet(W("a", "CheckBox", P("uncheckedValue", "String", "@true"))), "switch-text"},
        {"signal that is assigned", K::Definition, Scripted("n.@valueChanged = function () {}; n.@setValue = 5;"), "script-signal script-signal"},
        {"call without brackets", K::Definition, Scripted("n.@setFocus; @function f() { n.@setFocus }"), "script-uncalled script-unused script-uncalled"},
        {"unit beside a unit scale", K::Definition, Sheet(W("a", "BandwidthEdit", P("unitScale", "Int", "1000") + P("unit", "String", "kHz") + P("suffix", "String", "@ MHz") + P("singleStep", "Int64", "@5"))), "unit-overridden unit-overridden"},
        {"text between elements", K::Definition, Sheet("@&gt;" + W("a", "Label", " @x ") + "<!-- y -->@<![CDATA[z]]>"), "text-stray text-stray text-stray"},
        {"property that is not stated", K::Definition, Scripted("n.@value = 5; n.own = 1; n.visible = true;"), "script-property"},
        {"choice that is none", K::Definition, Chosen("m.setCurrentValue('@AN'); if (m.currentValue == '@Amplitude') m.setCurrentValue('am');"), "script-choice script-choice"},
        {"cases of another kind", K::Definition, Chosen("switch (m2.minimum) { case 'a': break; case @1: break; default: }"), "script-comparison"},
        {"number that is a text", K::Definition, Chosen("var a = m2.@minimum + 1, b = 2 + m2.@minimum;"), "script-text-sum script-text-sum"},
        {"variable with the name of a widget", K::Definition, Scripted("@function f() { var @n = 1; n.setValue(2); } var @Mode = 1;"), "script-unused script-shadow script-shadow"},
        {"value beyond limits that the script sets", K::Run, Sheet(W("a", "SpinBox", P("value", "Int", "@5")), "<Script>a.setMaximum(3);</Script>"), "limit-outside"},
        {"text that is no script", K::Run, Scripted("@eval('1 +* 2');"), "script-exception"},
        {"template without a name of its item", K::Template, Sheet("@<Repeat over='a'/>@<Repeat each='if' over='a'/>@<Repeat each='a' ovr='a'/>"), "template-repeat template-repeat template-repeat"},
        {"template without items", K::Template, Sheet("@<Repeat each='a'/>@<Repeat each='a' from='2' to='1'/>@<Repeat each='a' over='b' to='1' from='0'/>@<Repeat each='a' from='1' to='b'/>"), "template-repeat template-repeat template-repeat template-repeat"},
        {"repetition too large", K::Template, Sheet("@<Repeat each='a' from='1' to='99999999'/>"), "template-repeat"},
        {"name of a repetition around", K::Template, Sheet("<Repeat each='a' over='b c'>@<Repeat each='a' over='b'/></Repeat>"), "template-repeat"},
        {"value of no item", K::Template, Sheet("<Repeat each='band' over='b c'><Widget name='@${bnd}' class='@${band.x}@${band()}@${band + }'/></Repeat>"), "template-value template-value template-value template-value"},
        {"mistake of all items", K::Template, Sheet("<Repeat each='a' from='1' to='3'>" + W("w${a}", "@Labl") + "</Repeat>"), "class-unknown"},
        {"mistake of one item", K::Template, Sheet("<Repeat each='a' over='Label Labl'>" + W("w${a}", "@${a}") + "</Repeat>"), "class-unknown"},
        {"template cut short", K::Template, "<ZkParamGui><Repeat each='a' over='b'>@", "xml-malformed"},
        {"change that is ignored", K::Change, Sheet("@<Properties/>" + W("n", "SpinBox").replace("'SpinBox'", "'@Label'") + W("box", "", P("@chcked", "Bool", "true"))), "change-ignored change-ignored property-unknown"},
        {"change beyond the form's limits", K::Change, Sheet(W("n", "", P("minimum", "Int", "3") + P("value", "Int", "@2")) + W("mode", "", P("currentValue", "String", "@3"))), "limit-outside enum-value"},
        {"limits of a change against each other", K::Change, Sheet(W("list", "", P("minimum", "Int", "@9"))), "limit-reversed"},
        {"change that the form's script and holder take", K::Change, Sheet(W("n", "", P("own", "Int", "1") + P("@others", "Int", "1")) + W("holder", "", P("any", "Int", "1"))), "property-unknown"},
        {"elements without a control", K::Parameters, "<Parameters>@<N/><Rx>@<M><x/></M></Rx></Parameters>", "document-element document-element"},
        {"document inside a document", K::Parameters, "<Parameters>@<Parameters><N/></Parameters></Parameters>", "document-element"},
        {"texts that nothing takes", K::Parameters, "<Parameters><Rx><N>@1.5</N></Rx><box>@yes</box><mode>@3</mode><list><I>1</I><I>@a</I></list></Parameters>", "document-value document-value document-value document-value"},
        {"numbers and items outside", K::Parameters, "<Parameters><list><I>1</I><I index='0'>@9</I><I index='1'>1</I>@<I>1</I></list><table><I row='1' column='2'>x</I>@<I row='2'>x</I></table></Parameters>", "document-value document-value document-value"},
        {"list without a form", K::List, "@<Components/>", "form-missing"},
        {"mistakes inside an attribute", K::List, List.arg(Escaped(Sheet(W("a", "CheckBox", P("checked", "Bool", "@True")), "<Script>x &amp;&amp;{{LF}}@] x</Script>"))), "bool-text script-syntax"},
        {"malformed inside an attribute", K::List, List.arg(Escaped("<ZkParamGui><Sheet>@</Shee>")), "xml-malformed"},
    };
    // clang-format on
    return rows;
}
