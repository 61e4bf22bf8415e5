// Each finding at its place, the truth of what it says, and the registry against the classes.

#include "brokenforms.h"
#include "codeexamples.h"
#include "formdiff.h"
#include "forms.h"
#include "formtexts.h"
#include "orbelcheck.h"
#include "registry.h"
#include "scriptbuiltins.h"

using namespace Orbel;

namespace
{

Findings Find(BrokenForm::Kind kind, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const QByteArray plain = PlainForm().toUtf8();
    return kind == BrokenForm::Definition ? Check::Definition(bytes)
        : kind == BrokenForm::List        ? Check::ComponentList(bytes)
        : kind == BrokenForm::Change      ? Check::Changed(bytes, plain)
        : kind == BrokenForm::Template    ? Check::Template(bytes)
        : kind == BrokenForm::Parameters  ? Check::Parameters(bytes, plain)
                                          : Check::RunDefinition(bytes, 1000);
}

QString Unmarked(const QString &text)
{
    return QString(text).remove('@');
}

/// "LINE:COLUMN code", one a line.
QStringList Told(const Findings &findings)
{
    QStringList lines;
    for (const Finding &finding : findings)
        lines << QString("%1:%2 %3").arg(finding.Line).arg(finding.Column).arg(finding.Code);
    return lines;
}

/// The same from a text with marks.
QStringList Expected(const BrokenForm &form)
{
    QStringList lines;
    const QStringList codes = QString(form.codes).split(' ');
    int line = 1;
    int column = 1;
    int mark = 0;
    for (const QChar character : form.text) {
        if (character == '@') {
            for (const QString &code : codes.value(mark++).split('+'))
                lines << QString("%1:%2 %3").arg(line).arg(column).arg(code);
        } else if (character == '\n') {
            ++line;
            column = 1;
        } else {
            ++column;
        }
    }
    return lines;
}

QStringList NamesOf(const QString &element, const QString &text)
{
    const QRegularExpression start(QString("<%1 name=['\"]([^'\"]+)").arg(element));
    QStringList names;
    for (auto match = start.globalMatch(text); match.hasNext();)
        names << match.next().captured(1);
    return names;
}

/// The names behind "the widget(s)" and the like in what is told as lost, and for each that a long list only counts a
/// blank.
QStringList Lost(const Findings &findings, const QString &kind)
{
    const QRegularExpression list(QString("lost:.*the %1 ((?:\"\\w*\"(?:, )?)+)(?: and (\\d+) more)?").arg(kind));
    QStringList names;
    for (const Finding &finding : findings) {
        const QRegularExpressionMatch match = list.match(finding.Text);
        names += match.captured(1).split(QRegularExpression("[\", ]+"), Qt::SkipEmptyParts);
        for (int more = match.captured(2).toInt(); more > 0; --more)
            names << " ";
    }
    return names;
}

/// What is told as lost and is there, or is not there and not told as lost.
QStringList Untruths(const QString &text, const Findings &findings)
{
    QStringList untrue;
    const Form form = Parse(text);
    if (!form)
        return untrue;
    const QStringList widgets = NamesOf("Widget", text);
    const QStringList lost = Lost(findings, "widgets?");
    const auto isThere = [&](const QString &name) { return Delegate(form, name) != nullptr; };
    std::copy_if(lost.cbegin(), lost.cend(), std::back_inserter(untrue), isThere);
    if (widgets.size() - std::count_if(widgets.cbegin(), widgets.cend(), isThere) != lost.size())
        untrue << "widgets";
    for (const QString &name : NamesOf("Enum", text)) {
        if (form->HasEnum(name) == Lost(findings, "enumerations?").contains(name))
            untrue << name;
    }
    for (const QString &name : Lost(findings, "propert(?:y|ies)")) {
        if (isThere("first") && Delegate(form, "first")->property(name.toUtf8()).isValid())
            untrue << name;
    }
    const bool isScriptLost = std::any_of(findings.cbegin(), findings.cend(),
        [](const Finding &finding) { return finding.Text.contains(QRegularExpression("lost:.*the script")); });
    if (form->GetScript().GetCode().isEmpty() != (isScriptLost || !text.contains("<Script")))
        untrue << "script";
    return untrue;
}

/// While it lives, notes what is asked of it in the contexts that are no classes, but for the library's words at each
/// headline: "context: text".
class Asked : public QTranslator
{
public:
    Asked() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        const bool isForms = !QByteArray(context).contains("::") && *context != 'Q' && *context != 'V';
        if (isForms && qstrcmp(text, "Hide %1") != 0)
            Texts << QString("%1: %2").arg(context, text);
        return QString();
    }

    mutable QSet<QString> Texts;
};

} // namespace

class TestCheck : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void textsForTranslators_data()
    {
        const auto row = Columns<QString>({"path"});
        for (const QFileInfo &file : QDir(ORBEL_EXAMPLES_DIR "/forms").entryInfoList({"*.orbel"}))
            row(qPrintable(file.fileName()), file.filePath());
    }

    void textsForTranslators()
    {
        QFETCH(QString, path);
        QSet<QString> told;
        const QByteArray definition = BytesOf(path);
        for (const FormText &text : TextsOf(definition, false))
            told << text.Context + ": " + text.Source;
        Asked asked;
        const Form form(OrbelParser().ParseORBELFile(path));
        form->CreateValueTree("/Form");
        const auto window = Build(form);
        for (const QString &missing : asked.Texts - told) // a script computes others
            QVERIFY2(!definition.contains(missing.section(": ", 1).toUtf8()), qPrintable(missing));
        // Other scripts set texts before anybody sees those of the definition, or only later.
        if (path.endsWith("all_controls.orbel"))
            QCOMPARE((told - asked.Texts).values().join('\n'), QString());
    }

    void findingsStandWhereTheMistakesAre_data()
    {
        const auto row = Columns<int>({"index"});
        for (int i = 0; i < BrokenForms().size(); ++i)
            row(BrokenForms().at(i).name, i);
    }

    void findingsStandWhereTheMistakesAre()
    {
        QFETCH(int, index);
        const BrokenForm &form = BrokenForms().at(index);
        const QString text = Unmarked(form.text);
        const Findings findings = Find(form.kind, text);
        QCOMPARE(Told(findings).join('\n'), Expected(form).join('\n'));
        if (form.kind == BrokenForm::Definition)
            QCOMPARE(Untruths(text, findings).join(' '), QString());
        for (const Finding &finding : findings) {
            QString mended = text;
            if (finding.Edit)
                mended.replace(finding.Edit.Offset, finding.Edit.Length, finding.Edit.Replacement);
            QVERIFY(!finding.Edit || Find(form.kind, mended).size() < findings.size());
            QVERIFY2(!finding.Text.isEmpty() && !finding.Text.endsWith('.') && !finding.Text.contains("%"),
                qPrintable(finding.Text));
        }
    }

    void examplesHaveTheMistakeOrNot_data()
    {
        const auto row = Columns<int>({"code"});
        for (int i = 0; i < AllCodes().size(); ++i)
            row(AllCodes().at(i).name, i);
    }

    void examplesHaveTheMistakeOrNot()
    {
        const auto [code] = Fetch<int>({"code"});
        const QString name = AllCodes().at(code).name;
        const auto find = [&](const QString &document) {
            const QByteArray bytes = document.toUtf8();
            return name.startsWith("document-") ? Check::Parameters(bytes, ExampleForm("").toUtf8())
                : name.startsWith("change-")    ? Check::Changed(bytes, ExampleForm("").toUtf8())
                : name.startsWith("template-")  ? Check::Template(bytes)
                : bytes.startsWith("<Comp")     ? Check::ComponentList(bytes)
                                                : Check::Definition(bytes) + Check::RunDefinition(bytes, 300);
        };
        const CodeExample example = ExampleOf(Code(code));
        const QString broken = ExampleDocument(example.Broken);
        const Findings mended = find(ExampleDocument(example.Mended));
        QVERIFY2(Check::IsClean(mended) && !Told(mended).join(' ').contains(' ' + name),
            qPrintable(Told(mended).join(", ")));
        bool isFound = false;
        for (const Finding &finding : find(broken)) {
            if (finding.Code != name)
                continue;
            isFound = true;
            QString fixed = broken;
            fixed.replace(finding.Edit.Offset, finding.Edit.Length, finding.Edit.Replacement);
            QVERIFY2(!finding.Edit || !Told(find(fixed)).join(' ').contains(' ' + name), qPrintable(fixed));
        }
        QVERIFY2(isFound, qPrintable(Told(find(broken)).join(", ")));
    }

    void rightFormsAreClean_data()
    {
        const auto row = Columns<QString>({"path"});
        for (const QFileInfo &file : QDir(ORBEL_EXAMPLES_DIR "/forms").entryInfoList(QDir::Files))
            row(qPrintable(file.fileName()), file.filePath());
    }

    void rightFormsAreClean()
    {
        const auto [path] = Fetch<QString>({"path"});
        const QByteArray bytes = BytesOf(path);
        const bool isList = !path.endsWith(".orbel");
        const Findings findings = isList ? Check::ComponentList(bytes) + Check::RunComponentList(bytes, 10000)
                                         : Check::Definition(bytes) + Check::RunDefinition(bytes, 10000);
        QVERIFY2(Check::IsClean(findings), qPrintable(Told(findings).join(", ")));
        for (int length = 0; !isList && length < bytes.trimmed().size(); length += 997)
            QVERIFY2(!Check::IsClean(Check::Definition(bytes.left(length))), qPrintable(QString::number(length)));
    }

    void oddButRightFormsAreSilent_data()
    {
        const auto add = Columns<QString>({"text"});
        const QString large = Widget("a", "FrequencyEdit", {"MainFreqEdit=Bool:true"});
        // clang-format off
        add("script shows the label later", Definition(Widget("a", "Label", {"labelText=String:L"}), "<Script>a.setVisible(true);</Script>"));
        add("large field that the script frees", Definition(large, "<Script>a.setReadOnly(false);</Script>"));
        add("script knows a control by another name", Definition(large, "<Script>var b = a; b.setEnabled(true);</Script>"));
        add("script names control and function in texts", Definition(large, "<Script>this['a'][\"setEnabled\"](true);</Script>"));
        add("script in a script", Definition(large, "<Script>eval('a.setEnabled(' + true + ')');</Script>"));
        add("script in one section", Definition("", "<Script><![CDATA[if (1 < 2) print(3);]]></Script>"));
        add("deep brackets", Definition("", "<Script>var x = " + QString("[").repeated(300) + QString("]").repeated(300) + "{{LF}}x;</Script>"));
        add("property for the script", Definition(Widget("a", "Label", {"own=Int:1"}), "<Script>print(a.own);</Script>"));
        add("holder of properties", Definition(Widget("a", "SpecialObject_Generic", {"anything=Int:1"})));
        add("enumeration that the host fills", Definition(Widget("a", "ComboBox", {"enumName=String:E", "currentValue=String:7"}), "<Enums><Enum name='E'/></Enums>"));
        add("limits that the script moves", Definition(Widget("a", "SpinBox", {"value=Int:5", "maximum=Int:1"}), "<Script>a.setMaximum(9);</Script>"));
        add("value on its scaled limit", Definition(Widget("a", "BandwidthEdit", {"value=Int64:20000", "unitScale=UInt64:1000", "maximum=Int64:20"})));
        add("fraction of a scaled limit", Definition(Widget("a", "SpinBox", {"minimum=Double:0.5", "displayScalingFactor=Double:0.1"}) + Widget("b", "BandwidthEdit", {"maximum=Double:1.5", "unitScale=UInt64:1000000"})));
        add("numbers on the limits of their types", Definition(Widget("a", "SpinBox", {"minimum=Int:-2147483648", "maximum=Int:2147483647"})));
        add("word for what nothing reads", Definition(Widget("a", "FrequencyEdit", {"unitScale=String:kHz"})));
        add("range that the script moves", Definition(Widget("a", "FrequencyRangeEdit", {"startFrequency=Int64:9000", "stopFrequency=Int64:9000"}), "<Script>a.setRange(10000, 20000);</Script>"));
        add("names that are guarded", Definition(Widget("a", "Label"), "<Script>try { a.no(); none(); } catch (e) {} if ('nil' in a) a.nil(); if (a.maybe) a.maybe(); a.other &amp;&amp; a.other();</Script>"));
        add("sums and assignments that are meant", Definition(Widget("a", "SpinBox", {"minimum=Int:1", "value=Int:2"}), "<Script>var m; print(a.minimum + ' dB', Number(a.minimum) + 1, +a.minimum, 2 * a.minimum + 1); if ((m = 1)) a.value = m; print(a.value + 1); (function () { function g() {} g(); })(); function g() {} g(); a.setMaximum(9); a.maximum = 8;</Script>"));
        add("text that goes to the places of a mask that take it", Definition(Widget("a", "LineEdit", {"inputMask=String:>AA9", "text=String:7"})));
        add("types that convert", Definition(Widget("a", "SpinBox", {"enabled=String:true", "value=String: 5 "})));
        add("words of the language", Definition("", "<Script>outer: for (var i = 0; i != 2; ++i) {(function () {return arguments[0] === undefined; })(Math.PI, isNaN(i)); if (i) break outer; }</Script>"));
        add("signs and brackets in front", ExampleForm("var x = 3, p = {b: 3}; gain.setValue(mute.checked ? -x + 1 : x + 1); if (-p.b > 1 && p.b > 1) gain.setValue((x + 1) * 2);"));
        add("cases of two kinds, and such as add up", ExampleForm("mode.currentValueChanged.connect(function (v) { var t = \"\"; switch (gain.value) { case 1: case \"1\": t = \"b\"; } switch (v) { case \"am\": t = t + \"a\"; case \"fm\": t = t + \"b\"; } print(t); });"));
        add("loops that a label or an exception ends", ExampleForm("function next() { throw 1; } var n = 0\nvar m = n\nouter: while (n < 3) { for (;;) { n++; continue outer; } } try { for (;;) next(); } catch (e) { print(e, m); }"));
        add("globals that a handler makes", ExampleForm("mute.toggled.connect(function () { this.count = 1; for (k in {a: 1}) print(k); print(count); });"));
        add("number that becomes a text", ExampleForm("var s = 0; s += \" items\"; print(s.toUpperCase()); var t = \"n\"; t = t + gain.value + s; print(t, mode.currentValue == \"\");"));
        add("functions known by two names", ExampleForm("function f(a) { print(a == \"x\", this.value); } f(1); var g = f; g(\"x\"); f.call(gain); mute.toggled.connect(f);"));
        add("objects of the script's own", ExampleForm("var o = {replace: function (a) { print(a); }}; function apply(led) { led.join = true; led.replace(1); led.setState(1); led.setState(0); mute.setChecked(led.join); } o.setState = o.replace; apply(o);"));
        add("parameters that others read", ExampleForm("function f(a) { mute.toggled.connect(function () { print(a); }); a = 5; } f(1); function g(b) { b = arguments[0] || 5; print(b); } g();"));
        add("controls in a list", ExampleForm("var all = Array(gain, level); all[0].setEnabled(true);"));
        add("indices that are tested", ExampleForm("var names = [\"a\", \"b\"]; for (var i = 0; i <= 3; ++i) { if (i < 3) shifts.setItemValue(i, 0); } for (i = 0; i < names.length; ++i) print(i + 1 < names.length ? names[i + 1] : \"\");"));
        add("keys that may be missing", ExampleForm("var p = {gain: 20}, names = {am: 1, fm: 2, other: 3}; if (p.level === undefined && p.limit != null) print(p.gain); print(names[mode.currentValue] || names.other, JSON.parse(\"{}\").filters);"));
        add("variable that its declaration follows", ExampleForm("x = 5; print(x); var x = 6; print(x);"));
        add("fractions and bits that are exact", ExampleForm("if (Number(gain.value) * 0.5 == 3 || Math.floor(gain.value / 0.1) % 2 == 0) print(0x0f ^ 0xf0);"));
        add("break behind a return", ExampleForm("function f(v) { switch (v) { case 1: { return 5; break; } default: return 6; } } print(f(1));"));
        add("names of an object that stands around", ExampleForm("var p = {gain: 1}; with (p) { gain = 5; } print(p.gain);"));
        add("patterns behind brackets", ExampleForm("mute.toggled.connect(function (on) { if (on) /a \"b/.test(mode.currentValue) && print(1);\nif (on) { print(2); }\n/c d/.test(mode.currentValue); });"));
        add("handlers in a block, and indices that are left early", ExampleForm("do { var n = {a: 1}; function show() { print(n.a); } mute.toggled.connect(function () { show(); print(n.a); }); } while (false); for (var i = 0; i <= 3; ++i) { if (i == 3) break; shifts.setItemValue(i, 0); }"));
        add("comments of old pages", ExampleForm("<!-- one two\nprint(1);\n--> three"));
        // clang-format on
        add("marks inside a text of the script",
            Definition("", "<Script>var a = \"x\"; // don't{{LF}}a = /[/'\"]/.test(a) ? a : 'y';</Script>"));
        add("namespaces and a schema",
            QString("<ZkParamGui xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                    "xsi:noNamespaceSchemaLocation='orbel.xsd'/>"));
    }

    void oddButRightFormsAreSilent()
    {
        QFETCH(QString, text);
        const Findings findings = Check::Definition(text.toUtf8()) + Check::RunDefinition(text.toUtf8(), 10000);
        QCOMPARE(Told(findings).join(", "), QString());
    }

    void placesAreThoseOfTheFile_data()
    {
        const auto add = Columns<QByteArray, QString>({"bytes", "told"});
        const QByteArray wrong = "<Widget name=\"a\" class=\"Labl\"/></Sheet></ZkParamGui>";
        const QByteArray start = "<ZkParamGui><Sheet>";
        const auto utf16 = [](const QString &text) { return QTextCodec::codecForName("UTF-16")->fromUnicode(text); };
        // clang-format off
        add("line feeds", "\n\n" + start + "\n " + wrong, "4:26 class-unknown");
        add("UTF-16 with line feeds", utf16("<ZkParamGui>\n<Sheet x=''/></ZkParamGui>"), "2:8 attribute-unknown");
        add("UTF-16 with CR LF", utf16("<ZkParamGui>\n<Sheet>\r\n</Sheet></ZkParamGui>"), "2:9 xml-malformed");
        add("UTF-16 with a letter of a byte 0D", utf16(QString("<ZkParamGui version='a") + QChar(0x10d)), "1:23 xml-malformed");
        add("words that only a carriage return parts", "<ZkParamGui><Sheet\rname='s'/>", "2:6 xml-malformed");
        add("a byte that is no letter, at the start", "\x80" + start + "</Sheet></ZkParamGui>", "1:1 xml-malformed");
        add("carriage returns", start + "\r\r\n" + wrong, "3:25 class-unknown");
        add("carriage return in a script", "<ZkParamGui><Script>1;\r] x</Script></ZkParamGui>", "2:1 script-syntax");
        add("tabs and letters beyond ASCII", "<!-- \xc3\xa4\xf0\x9f\x93\xbb -->\t" + start + wrong, "1:56 class-unknown");
        add("byte order mark", "\xef\xbb\xbf" + start + wrong, "1:44 class-unknown");
        add("declared encoding", "<?xml version='1.0' encoding='ISO-8859-1'?><!--\xe4\xe4-->" + start + wrong, "1:96 class-unknown");
        add("bytes that do not fit the encoding", start + "\n<Widget name=\"\xe4\"/>", "2:15 xml-malformed");
        add("entity of the document's own", "<!DOCTYPE x [<!ENTITY w \"<Widget name='a' class='Labl'/>\">]>\n" + start + " &w;</Sheet></ZkParamGui>", "2:24 class-unknown");
        // clang-format on
    }

    void placesAreThoseOfTheFile()
    {
        const auto [bytes, told] = Fetch<QByteArray, QString>({"bytes", "told"});
        const QStringList all = Told(Check::Definition(bytes));
        QVERIFY2(all.contains(told), qPrintable(all.join(", ")));
    }

    void textsTellWhatToDo_data()
    {
        const auto add = Columns<QString, QString>({"form", "text"});
        const auto label
            = [](const QString &body) { return Definition("<Widget class='Label'>" + body + "</Widget>"); };
        // clang-format off
        add("letters that would break the line", Definition("<Widget name='a' class='q&#10;&#9;&#133;'/>"), "There is no class \"q\\n\\t\\x85\"");
        add("long name with marks inside", Definition("<Widget name='a' class='" + QString("q&quot;").repeated(60) + "' x='1'/>"), "There is no class \"" + QString("q\"").repeated(40) + "...\"");
        add("class in another case", Definition(Widget("a", "Spinbox")), "There is no class \"Spinbox\"; did you mean \"SpinBox\"?");
        add("class with a letter too many", Definition(Widget("a", "LineEditt")), "There is no class \"LineEditt\"; did you mean \"LineEdit\"?");
        add("root in the wrong case", "<zkParamGUI/>", "There is no form in the document; did you mean \"ZkParamGui\"?");
        add("element in another place", "<ZkParamGui><Property/></ZkParamGui>", "\"Property\" is skipped in a form, where only Enums, Sheet and Script count; it belongs directly into Widget, Properties or CustomProperties");
        add("widget in a widget without a name", label("<Widget name='b' class='Label'/>"), "\"Widget\" ends the reading of a widget without a name; it belongs directly into Sheet; lost: the widget \"b\"");
        add("value without a property", label("<Bool>true</Bool>"), "\"Bool\" ends the reading of a widget without a name; it belongs into a Property");
        add("lost widgets without names", Definition("<Widget name='a' class='Label'><Property name='text'/></Widget><Widget/><Widget/>"), "The property \"text\" has no value element; lost: 2 widgets without a name");
        add("lost property of the sheet", Definition("<Properties><Property name='a'/><Property name='b'><Int>1</Int></Property></Properties>"), "The property \"a\" has no value element; lost: the property \"b\"");
        add("lost widget of a change", Definition(Widget("m", "") + Widget("box", "")), "The form has no widget \"m\"; lost: the widget \"box\"");
        // clang-format on
    }

    void textsTellWhatToDo()
    {
        const auto [form, text] = Fetch<QString, QString>({"form", "text"});
        QStringList texts;
        for (const Finding &finding : Find(BrokenForm::Definition, form) + Find(BrokenForm::Change, form))
            texts << finding.Text;
        QVERIFY2(texts.contains(text), qPrintable(texts.join('\n')));
    }

    void differences_data()
    {
        const auto add = Columns<QString, QString, QString>({"before", "after", "told"});
        const QString a = Widget("a", "SpinBox", {"minimum=Int:1"});
        const QString b = Widget("b", "Label");
        const QString c = Widget("c", "Label");
        const auto written = [](const QString &tag) {
            return Definition(
                Widget("a", "SpinBox", {"generateParameterXml=Bool:true", "parameterXmlTag=String:" + tag}));
        };
        const auto script = [](const QString &code) { return Definition("", "\n<Script>" + code + "</Script>"); };
        // clang-format off
        add("layout and comments", Definition(a), "<!-- c -->" + Definition(QString(a).replace("><", ">\n<!-- --> <")), "");
        add("value", Definition(a), Definition("\n" + QString(a).replace(">1<", ">2<")), "changed widget a property minimum 1>2 1-2");
        add("type", Definition(a), Definition(QString(a).replace("Int", "String")), "changed widget a property minimum Int 1>String 1 1-1");
        add("property gone and come", Definition(a), Definition(QString(a).replace("minimum", "maximum")), "added widget a property maximum >1 1-1|gone widget a property minimum 1> 1-1");
        add("earlier of two statements", Definition(Widget("a", "SpinBox", {"minimum=Int:1", "minimum=Int:2"})), Definition(Widget("a", "SpinBox", {"minimum=Int:2"})), "");
        add("class", Definition(b), Definition(Widget("b", "LineEdit")), "changed widget b class Label>LineEdit 1-1");
        add("place", written("A/b"), written("A/c"), "changed widget a place in the parameter document A/b>A/c 1-1|changed widget a property parameterXmlTag A/b>A/c 1-1");
        add("widgets", Definition(a + b + c), Definition(c + Widget("d", "Label") + a), "moved widget c  > 1-1|added widget d  >Label 0-1|gone widget b  Label> 1-0");
        add("widget without a name", Definition("<Widget class='Separator'/>" + b), Definition(b + "<Widget class='Separator'/>"), "moved widget b  > 1-1");
        add("sheet", Definition("<Properties><Property name='x'><Int>1</Int></Property></Properties>"), Definition(""), "gone sheet  property x 1> 1-1");
        add("rows", Definition("", Enum("E", "A=1 B=2 C=3")), Definition("", Enum("E", "C=3 A=4 D=1")), "added enumeration E row 4 >A,  1-1|changed enumeration E row 1 A, >D,  1-1|gone enumeration E row 2 B, > 1-1|moved enumeration E rows > 1-1");
        add("rows of one value", Definition("", Enum("E", "A=1 B=1")), Definition("", Enum("E", "A=1 C=1")), "changed enumeration E row 1 B, >C,  1-1");
        add("script", script("1;\n2;\n3;\n4;"), script("1;\n5;\n4;"), "changed script   2;\n3;>5; 3-3");
        add("script that comes", Definition(""), script("1;"), "added script   >1; 0-2");
        // clang-format on
    }

    void differences()
    {
        const auto [before, after, told] = Fetch<QString, QString, QString>({"before", "after", "told"});
        QStringList lines;
        for (const FormDifference &each : CompareForms(before.toUtf8(), after.toUtf8()))
            lines << QString("%1 %2 %3 %4 %5>%6 %7-%8")
                         .arg(NameOf(each.What), each.Part, each.Name, each.Detail)
                         .arg(each.Before, each.After)
                         .arg(each.LineBefore)
                         .arg(each.LineAfter);
        QCOMPARE(lines.join('|'), told);
    }

    void reservedWordsAreThoseOfTheEngine()
    {
        QScriptEngine engine;
        const auto isRefused = [&](const QString &word) { return engine.evaluate("throw 0; x." + word).isError(); };
        for (const QString &word : ReservedWords())
            QVERIFY2(isRefused(word), qPrintable(word));
        for (const char *word : {"let", "yield", "static", "int", "undefined", "goto", "package", "public"})
            QVERIFY2(!isRefused(word) && IsScriptName(word), word);
        QVERIFY(!IsScriptName("a\n"));
        QScriptValueIterator global(engine.globalObject());
        while (global.hasNext()) {
            global.next();
            QVERIFY2(ScriptBuiltins().contains(global.name()), qPrintable(global.name()));
        }
    }

    void traitsAreTrue_data()
    {
        const auto row = Columns<QString>({"className"});
        for (const ClassInfo &info : Registry::Classes())
            row(info.name, info.name);
    }

    void traitsAreTrue()
    {
        const auto [className] = Fetch<QString>({"className"});
        const unsigned traits = Registry::FindClass(className)->delegate->traits;
        const QStringList properties{"labelText=String:L", "visible=Bool:true", "text=String:t", "enumName=String:E",
            "itemCount=Int:2", "rowCount=Int:1", "columnCount=Int:1", "spacingsCount=Int:1",
            "parameterListItemTag=String:I", "startFrequencyParameterXmlTag=String:A",
            "stopFrequencyParameterXmlTag=String:B"};
        for (const bool asked : {false, true}) {
            const QStringList more = asked ? QStringList("generateParameterXml=Bool:true") : QStringList();
            const Form form = Bind(Definition(Widget("w", className, properties + more), Enum("E", "A=1")));
            const auto gui = Build(form, false);
            const QString document = form->GetXmlString(false);
            const bool writes = document.contains("<w") || document.contains("<A");
            QCOMPARE(writes, bool(traits & (asked ? ekWrites : ekAlwaysWrites)));
            if (asked)
                QCOMPARE(document.contains("<I "), (traits & ekItems) && className != "HiddenMap");
            QCOMPARE(gui->findChild<QLabel *>("labelw") != nullptr, bool(traits & ekRow));
        }
    }

    void explanationsAreUpToDate()
    {
        QCOMPARE(Check::Explanations().toUtf8(), BytesOf(ORBEL_SOURCE_DIR "/docs/checks.md"));
    }
};

ORBEL_TEST_MAIN(TestCheck)
#include "tst_check.moc"
