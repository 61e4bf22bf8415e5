// The command `orbel`: the built program as a process, and the nearest names that its messages give.

#include "command.h"
#include "nearestnames.h"
#include "orbelcommand.h"
#include "testcase.h"

namespace
{

const QString Receiver = ORBEL_EXAMPLES_DIR "/forms/receiver.orbel";
const QString AllControls = ORBEL_EXAMPLES_DIR "/forms/all_controls.orbel";
const QString Components = ORBEL_EXAMPLES_DIR "/forms/components.xml";

/// Sits in front of `orbel view` in a process of its own: waits for the window, edits, applies and closes it.
class Operator : public QObject
{
public:
    Operator() { startTimer(10); }

protected:
    void timerEvent(QTimerEvent *event) override
    {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (!qobject_cast<QMainWindow *>(window) || !window->isVisible())
                continue;
            killTimer(event->timerId());
            for (const char *name : {"preamplifier", "applyButton", "connectButton"}) {
                if (auto *button = window->findChild<QAbstractButton *>(name))
                    button->click();
            }
            window->close();
        }
    }
};

void StartOperator()
{
    if (qEnvironmentVariableIsSet("ORBEL_OPERATOR"))
        new Operator;
}

Result RunCommand(const QStringList &arguments)
{
    return Run(ORBEL_COMMAND, arguments);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(StartOperator)

class TestOrbel : public TestCase
{
    Q_OBJECT

private:
    QString Write(const QString &name, const QString &text) { return WriteFile(Folder, name, text.toUtf8()); }

    /// A form of two line edits and a script, in a file.
    QString WriteForm(const QString &script = QString(), const QString &behind = QString())
    {
        QString widgets;
        for (const char *name : {"first", "second"})
            widgets += QString("<Widget name='%1' class='LineEdit'>"
                               "<Property name='generateParameterXml'><Bool>true</Bool></Property>"
                               "<Property name='parameterXmlTag'><String>Group/%1</String></Property></Widget>")
                           .arg(name);
        return Write("form.orbel",
            "<ZkParamGui><Sheet name=\"sheet\">" + widgets + "<Widget name=\"note\" class=\"Label\"/></Sheet><Script>"
                + script.toHtmlEscaped() + "</Script></ZkParamGui>" + behind);
    }

    QTemporaryDir Folder;

private Q_SLOTS:
    void mistakesAreToldWithTheirPlace_data()
    {
        const auto add = Columns<QStringList, int, QString>({"arguments", "status", "told"});

        const QString form = WriteForm();
        const QString empty = Write("empty.orbel", "");
        const QString other = Write("other.orbel", "<Form/>");
        const QString noForms = Write("noforms.xml", "<List><Component name=\"A\"/></List>");
        const QString cut = Write("cut.orbel", "<ZkParamGui>\n<Sheet name=\"s\">\n");
        const QString document = Write("other.xml", "<Other/>");
        const QString broken = Write("broken.xml", "<Parameters>\n<a></b></Parameters>");
        const QString missing = Folder.filePath("missing.orbel");
        const QString noFolder = Folder.filePath("none/out.png");

        // clang-format off
        add("no subcommand", {}, 2, "a subcommand");
        add("unknown subcommand", {"parms"}, 2, "\"params\"");
        add("missing file", {"params", missing}, 1, missing + ": No such file");
        add("set at an unknown path", {"params", form, "--set", "Group/frist=1"}, 2, "nearest: \"Group/first\"");
        add("set at a control without a value", {"params", form, "--set", "note=1"}, 2, "--set note=1: ");
        add("set what is no state", {"params", Receiver, "--set", "Receiver/Agc=xx"}, 2, "\"xx\" is neither true nor false");
        add("set what is no choice", {"params", AllControls, "--set", "All/ComboBox=9"}, 2, "--set All/ComboBox=9: ");
        add("set beyond the limits", {"params", AllControls, "--set", "SpinBox=9999"}, 2, "--set SpinBox=9999: ");
        add("one version alone", {"params", form, "--from", form}, 2, "go together");
        add("document of another form", {"params", form, "--params", document}, 1, document + ": there is no element");
        add("malformed document", {"params", form, "--params", broken}, 1, broken + ": line 2: ");
        add("new form of no kind", {"new", "scna"}, 2, "nearest: \"scan\"");
        add("new form in the place of another", {"new", "-o", form}, 1, form + ": it is there already");
        add("template with a mistake", {"expand", Write("wrong.orbelt", "<ZkParamGui>\n<Repeat/></ZkParamGui>")}, 1, "wrong.orbelt:2:1: A repetition wants");
        add("template by another name", {"expand", form}, 2, form + ": the name of a template");
        add("template with a value that makes no form", {"expand", Write("two.orbelt", "\n\n<Repeat each='i' over='1 2'>\n<ZkParamGui/></Repeat>")}, 1, "two.orbelt:4:");
        add("a list beside a definition", {"diff", form, Components}, 2, "with another one alone");
        add("no picture", {"render", form}, 2, "-o OUT.png");
        for (const char *wrong : {"--scale=0.5", "--scale=5", "--scale=nan", "--scale=big"})
            add(wrong, {"render", form, "-o", "a.png", wrong}, 2, "--scale wants");
        add("a picture too large", {"render", form, "-o", "a.png", "--size=9000x10", "--scale=2"}, 2, "is at most");
        for (const char *wrong : {"--size=500", "--size=0x10", "--size=10x", "--size=-1x5", "--size=99999x10"})
            add(wrong, {"render", form, "-o", "a.png", wrong}, 2, "--size wants");
        for (const char *wrong : {"--font-size=0", "--font-size=-3", "--font-size=big", "--font-size=9.5"})
            add(wrong, {"render", form, "-o", "a.png", wrong}, 2, "--font-size wants");
        add("one definition to compare", {"diff", form}, 2, "two definitions");
        add("definition that is none", {"diff", form, cut}, 2, cut + ":2:17: ");
        add("format that is none", {"diff", form, form, "--format=yaml"}, 2, "one of text, json");
        add("form cut short", {"strings", cut, "-o", noFolder + ".ts"}, 1, cut + ": line 3: ");
        add("a definition without a form", {"params", other}, 1, other + ": there is no form in it");
        add("a list without a form", {"params", noForms}, 1, "there is no form in it (a name without");
        add("a component of a definition", {"params", form, "--component", "Audio"}, 2, "so --component means nothing");
        add("no component chosen", {"params", Components}, 2, "choose a form with --component: \"Audio\"");
        add("a component that is not there", {"params", Components, "--component", "Adio"}, 2, "nearest: \"Audio\"");
        add("no file", {"check"}, 2, "a FILE is wanted");
        add("a file too many", {"params", form, form}, 2, "one argument too many");
        for (const char *name : {"lsp", "classes", "schema"})
            add(name, {name, "x"}, 2, "one argument too many: \"x\"");
        add("no file for translations", {"strings", form}, 2, "-o FILE.ts");
        add("a palette that is none", {"render", form, "-o", "a.png", "--palette=drak"}, 2, "only ");
        add("a style that is none", {"render", form, "-o", "a.png", "--style=none"}, 2, "there is no style");
        add("translations malformed", {"strings", form, "-o", Write("cut.ts", "<TS>\n<context>")}, 1, "cut.ts:2: ");
        // clang-format on
    }

    void mistakesAreToldWithTheirPlace()
    {
        const auto [arguments, status, told] = Fetch<QStringList, int, QString>({"arguments", "status", "told"});
        const Result result = RunCommand(arguments);
        QVERIFY2(result.Err.contains(told), qPrintable(result.Err));
        QVERIFY2(result.Err.startsWith("orbel: "), qPrintable(result.Err));
        QCOMPARE(result.Status, status);
    }

    void formatWritesOnlyWhatIsLaidOutOtherwise()
    {
        QVERIFY(QDir(Folder.path()).mkpath("laidout"));
        const QString tidy = Write("laidout/tidy.orbel", "<ZkParamGui/>\n");
        const QString untidy = Write("laidout/untidy.orbel", "<ZkParamGui ></ZkParamGui>");
        const QString broken = Write("laidout/broken.orbel", "<ZkParamGui>\n <");
        const auto kept = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(untidy, kept));
        const Result check = RunCommand({"format", "--check", QFileInfo(tidy).path()});
        QCOMPARE(check.Out, untidy + ":1: is laid out otherwise from here on\n");
        QVERIFY2(check.Err.startsWith("orbel: " + broken + ":2:3: "), qPrintable(check.Err));
        QCOMPARE(check.Status, 1);
        QCOMPARE(RunCommand({"format", broken, untidy, tidy}).Status, 1);
        QCOMPARE(BytesOf(broken), QByteArray("<ZkParamGui>\n <"));
        QCOMPARE(BytesOf(untidy), BytesOf(tidy));
        QCOMPARE(QFile::permissions(untidy) & (kept | QFile::ReadOther), kept);
        QCOMPARE(RunCommand({"format", "--check", untidy, tidy}).Status, 0);
        QProcess piped;
        piped.setStandardInputFile(tidy);
        piped.start(ORBEL_COMMAND, {"format", "-"});
        QVERIFY(piped.waitForFinished());
        QCOMPARE(piped.readAllStandardOutput(), BytesOf(tidy));
    }

    void diffEndsAsItIsTold()
    {
        const QString form = WriteForm();
        const QString other = Write("other.orbel", QString(BytesOf(form)).replace("Group/second", "Group/other"));
        QCOMPARE(RunCommand({"diff", form, form, "--format", "json"}).Out, QString("[\n]\n"));
        const Result differs = RunCommand({"diff", form, other});
        QCOMPARE(differs.Out.section('\n', 0, 0),
            other + ":1: widget \"second\": place in the parameter document: \"Group/second\" -> \"Group/other\"");
        QCOMPARE(differs.Status, 1);
        QCOMPARE(RunCommand({"diff", form, form}).Status, 0);
        const QString scripted = Write("scripted.orbel", QString(BytesOf(form)).replace("<Script>", "<Script>\na();"));
        const Result script = RunCommand({"diff", form, scripted, "--format", "json"});
        const QJsonObject first = QJsonDocument::fromJson(script.Out.toUtf8()).array().first().toObject();
        QCOMPARE(first["part"].toString() + ' ' + first["change"].toString(), QString("script changed"));
        QVERIFY(RunCommand({"diff", form, scripted}).Out.contains("script: changed from here on, lines: 0 -> 1"));
    }

    void formsOfListsAndTemplatesAreCompared()
    {
        const QString list = BytesOf(Components);
        const QString before = Write("before.xml", list);
        const QString after = Write("after.xml",
            QString(list)
                .replace("name=\"mute\" class=\"CheckBox", "name=\"mute\" class=\"LineEdit")
                .replace("\"Site\"", "\"Place\""));
        Result differs = RunCommand({"diff", before, after});
        QCOMPARE(differs.Out.remove(Folder.path() + '/'),
            QString("after.xml:6: component \"Audio\": widget \"mute\": class: \"CheckBox\" -> \"LineEdit\"\n"
                    "after.xml:9: component \"Place\": added\nbefore.xml:9: component \"Site\": gone\n"));
        QCOMPARE(RunCommand({"format", "--check", before}).Status, 0);
        const QString values = Write("values.xml", "<Parameters><Audio><Mute>true</Mute></Audio></Parameters>");
        QCOMPARE(RunCommand({"params", "--from", before, "--to", before, "--component", "Audio", values}).Status, 0);
        const QString markers = ORBEL_EXAMPLES_DIR "/templates/markers.orbel";
        QCOMPARE(RunCommand({"diff", markers + "t", markers}).Out, QString());
    }

    void valuesGoToANewVersion_data()
    {
        const auto add = Columns<QString, QStringList, QString, QString>({"document", "changes", "printed", "lost"});
        const QString list = "<L><i index=\"0\">7</i><i index=\"1\">8</i></L>";
        const QString whole = "<A><n>5</n><c>2</c><b>on</b>" + list + "<t>x</t></A>";
        const auto with
            = [&](const QString &before, const QString &after) { return QString(whole).replace(before, after); };
        // clang-format off
        add("nothing changed", whole, {}, whole, "");
        add("places moved, as names tell", whole, {"A/t", "B/C/s"}, with("<t>x</t></A>", "</A><B><C><s>x</s></C></B>"), "");
        add("name changed, as the place tells", whole, {"name=\"n\"", "name=\"m\""}, whole, "");
        add("class changed", whole, {"\"SpinBox\"", "\"DoubleSpinBox\""}, with("<n>5", "<n>5"), "");
        add("choice by its identifier", whole, {">2</V", ">two</V"}, with("<c>2", "<c>two"), "");
        add("choice gone", whole, {">2</V", ">3</V", "I2", "I3", "Two", "Three"}, with("<c>2", "<c>1"), "\"2\" of \"c\" is no choice of the new version");
        add("switch with other texts", whole, {">on<", ">1<"}, with(">on<", ">1<"), "");
        add("beyond the limit", whole, {">9<", ">4<"}, with("<n>5", "<n>4"), "\"5\" of \"A/n\" has become \"4\"");
        add("items renamed", whole, {">i<", ">j<"}, with("<i", "<j").replace("</i", "</j"), "");
        add("item gone", whole, {"<Int>2<", "<Int>1<"}, with("<i index=\"1\">8</i>", ""), "An item of \"A/L\" has no place in the new version");
        add("control gone", whole, {"name=\"t\"", "name=\"u\"", "A/t", "A/u"}, with("<t>x</t>", "<u></u>"), "The new version has no parameter \"A/t\" of \"t\"");
        add("what no version has", with("<n>", "<x/><n>"), {}, whole, "No control of the former version stands at \"A/x\"");
        // clang-format on
    }

    /// `changes` has what is replaced in the form for its new version, each text before its replacement.
    void valuesGoToANewVersion()
    {
        const auto [document, changes, printed, lost]
            = Fetch<QString, QStringList, QString, QString>({"document", "changes", "printed", "lost"});
        const auto property = [](const QString &name, const QString &type, const QString &text) {
            return QString("<Property name=\"%1\"><%2>%3</%2></Property>").arg(name, type, text);
        };
        const auto widget = [&](const QString &name, const QString &className, const QString &more) {
            return QString("<Widget name=\"%1\" class=\"%2\">").arg(name, className) + more
                + property("parameterXmlTag", "String", "A/" + name) + property("generateParameterXml", "Bool", "true")
                + "</Widget>";
        };
        const auto row = [](const QString &name, const QString &value) {
            return QString(
                "<EnumValue><DisplayName>%1</DisplayName><EnumIdentifier>I%2</EnumIdentifier><Value>%2</Value>"
                "</EnumValue>")
                .arg(name, value);
        };
        const QString form = "<ZkParamGui><Enums><Enum name=\"E\">" + row("One", "1") + row("Two", "2")
            + "</Enum></Enums><Sheet>" + widget("n", "SpinBox", property("maximum", "Int", "9"))
            + widget("c", "ComboBox", property("enumName", "String", "E"))
            + widget(
                "b", "CheckBox", property("checkedValue", "String", "on") + property("uncheckedValue", "String", "off"))
            + widget(
                "L", "SpinBoxList", property("itemCount", "Int", "2") + property("parameterListItemTag", "String", "i"))
            + widget("t", "LineEdit", "") + "</Sheet></ZkParamGui>";
        QString later = form;
        for (int i = 0; i < changes.size(); i += 2)
            later.replace(changes.at(i), changes.at(i + 1));
        const QString path = Write("doc.xml", "<Parameters>" + document + "</Parameters>");
        Result result
            = RunCommand({"params", "--from", Write("old.orbel", form), "--to", Write("new.orbel", later), path});
        QCOMPARE(result.Out.remove(QRegularExpression("\\n *")), "<Parameters>" + printed + "</Parameters>");
        const QRegularExpression told("^(?:orbel: .*/doc.xml:1:\\d+: (.*)\n)?$");
        QVERIFY2(told.match(result.Err).hasMatch(), qPrintable(result.Err));
        QCOMPARE(told.match(result.Err).captured(1), lost);
        QCOMPARE(result.Status, lost.isEmpty() ? 0 : 1);
    }

    void setTakesWhatDocumentsHoldAndWhatIsShown_data()
    {
        const auto add = Columns<QString, QString>({"assignment", "printed"});
        add("word of a switch", "Receiver/Preamplifier=on", "<Preamplifier>on<");
        add("value of a choice", "All/ComboBox=3", "<ComboBox>3<");
        add("display name", "ComboBox=Upper sideband", "<ComboBox>3<");
        add("items", "SpinBoxList=[3,2,1]", ">3</Item><Item index=\"1\">2</Item><Item index=\"2\">1<");
        add("range", "FrequencyRangeEdit=[1e6,2e6]", "<StartFrequency>1000000</StartFrequency><StopFrequency>2000000<");
        add("text like an array", "LineEdit=[1]", "<LineEdit>[1]<");
    }

    void setTakesWhatDocumentsHoldAndWhatIsShown()
    {
        const auto [assignment, printed] = Fetch<QString, QString>({"assignment", "printed"});
        const QString form = assignment.startsWith("Receiver/") ? Receiver : AllControls;
        Result result = RunCommand({"params", form, "--set", assignment});
        QVERIFY2(result.Out.remove(QRegularExpression("\\n *")).contains(printed), qPrintable(result.Out + result.Err));
    }

    void newFormsAreClean_data()
    {
        const auto row = Columns<QString>({"kind"});
        const QString help = RunCommand({"new", "--help"}).Out;
        const QRegularExpression kinds("What it is for: ([^.]+)\\.");
        for (const QString &kind : kinds.match(help).captured(1).split(", "))
            row(qPrintable(kind), kind);
    }

    void newFormsAreClean()
    {
        const auto [kind] = Fetch<QString>({"kind"});
        const QString path = Folder.filePath("new-" + kind + ".orbel");
        QCOMPARE(RunCommand({"new", kind, "-o", path}).Status, 0);
        for (const QStringList &command : {QStringList{"check", "--run"}, QStringList{"format", "--check"}}) {
            const Result result = RunCommand(command + QStringList{path});
            QCOMPARE(result.Out + result.Err, QString());
        }
    }

    /// What a template gives, piece by piece.
    void templatesBecomeDefinitions_data()
    {
        const auto add = Columns<QString, QString>({"piece", "expanded"});
        const QString list
            = "<Repeat each=\"b\"><Item n=\"x\" v=\"007\"/><Item n=\"y\" v=\"&lt;1&amp;&quot;\"></Item>%1</Repeat>";
        // clang-format off
        add("words", "<Repeat each=\"a\" over=\" b c \"><Sheet name=\"s${a}\"/></Repeat>", "<Sheet name=\"sb\"/><Sheet name=\"sc\"/>");
        add("range with a step", "<Repeat each=\"n\" from=\"-1\" to=\"4\" step=\"2\"><Sheet name=\"${n}${n * 2 + 1}\"/></Repeat>", "<Sheet name=\"-1-1\"/><Sheet name=\"13\"/><Sheet name=\"37\"/>");
        add("items with parts", list.arg("<Script>${b.n}${b.v}</Script>"), "<Script>x007</Script><Script>y&lt;1&amp;&quot;</Script>");
        add("parts in a section", list.arg("<Script><![CDATA[${b.v}]]></Script>"), "<Script><![CDATA[007]]></Script><Script><![CDATA[<1&\"]]></Script>");
        add("one in another", "<Repeat each=\"a\" over=\"1 2\"><Repeat each=\"b\" from=\"1\" to=\"${a}\"><Sheet name=\"${a + b}\"/></Repeat></Repeat>", "<Sheet name=\"2\"/><Sheet name=\"3\"/><Sheet name=\"4\"/>");
        add("comments once", "<Repeat each=\"a\" over=\"1 2\"><!--c--><Sheet/></Repeat>", "<!--c--><Sheet/><Sheet/>");
        add("what stands outside", "<Script>${a}</Script>", "<Script>${a}</Script>");
        // clang-format on
    }

    void templatesBecomeDefinitions()
    {
        const auto [piece, expanded] = Fetch<QString, QString>({"piece", "expanded"});
        const QString path = Write("piece.orbelt", "<ZkParamGui>" + piece + "</ZkParamGui>");
        Result result = RunCommand({"expand", path, "-o", "-"});
        QCOMPARE(result.Err, QString());
        QCOMPARE(result.Out.remove(QRegularExpression("\\n *")).replace("> <!", "><!"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?><?orbel-template piece.orbelt?><ZkParamGui>" + expanded
                + "</ZkParamGui>");
    }

    void definitionsFollowTheirTemplates()
    {
        const QString markers = ORBEL_EXAMPLES_DIR "/templates/markers.orbelt";
        QVERIFY(BytesOf(markers).count('\n') < 250 && BytesOf(markers.chopped(1)).count("<Widget") > 150);
        QCOMPARE(RunCommand({"expand", "--check", markers}).Status, 0);
        QCOMPARE(RunCommand({"check", "--run", markers, markers.chopped(1)}).Out, QString());
        QCOMPARE(RunCommand({"params", markers}).Out, RunCommand({"params", markers.chopped(1)}).Out);

        const QString path = Write("t.orbelt",
            "<ZkParamGui>\n<Sheet>\n<Repeat each='a' over='b c'>\n"
            "<Widget name='${a}' class='Labl'/></Repeat></Sheet></ZkParamGui>");
        QCOMPARE(RunCommand({"expand", path}).Status, 0);
        const Result made = RunCommand({"check", path.chopped(1)});
        QVERIFY2(
            made.Out.startsWith(path + ":4:28: error: There is no class \"Labl\"; did you mean \"Label\"? (and 1 more"),
            qPrintable(made.Out));
        Write("t.orbel", BytesOf(path.chopped(1)) + "\n");
        const Result stale = RunCommand({"check", path.chopped(1)});
        QVERIFY2(stale.Err.contains("no longer what its template"), qPrintable(stale.Err));
        QVERIFY2(stale.Out.startsWith(path.chopped(1) + ":5:"), qPrintable(stale.Out));
    }

    void filesMayBePipes()
    {
        const auto piped = [](const QString &path, const QString &options) {
            return Run("sh", {"-c", "cat \"$1\" | \"$0\" params /dev/stdin " + options, ORBEL_COMMAND, path}).Out;
        };
        QCOMPARE(piped(Receiver, ""), RunCommand({"params", Receiver}).Out);
        QVERIFY(piped(Receiver, "").size() > 100);
        QCOMPARE(piped(Components, "--component 1"), RunCommand({"params", Components, "--component", "Audio"}).Out);
    }

    void nearestNames()
    {
        const QStringList names{"far away", "frost", "FIRST", "frist", "frost"};
        QCOMPARE(Orbel::NearestNames("first", names, 3).join(' '), QString("FIRST frist frost"));
        QCOMPARE(Orbel::NearestNames("first", names, 9).size(), 3);
        QCOMPARE(Orbel::NearestNames("zzzz", {"abcdef", "bcdefa"}, 9), QStringList("abcdef"));
    }

    void paramsPrintsWhatTheFormHolds_data()
    {
        const auto add = Columns<QStringList, QString>({"options", "printed"});

        const auto document = [](const QString &first, const QString &second) {
            return QString("<Parameters><Group><first>%1</first>%2</Group></Parameters>").arg(first, second);
        };
        const QString two = "<second>2</second>";
        const QString read = Write("read.xml", document("1", two));
        const QString latin = WriteFile(Folder, "latin.xml",
            QString("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + document(QChar(0xe4), two)).toLatin1());
        const QString change = Write("change.orbel",
            "<ZkParamGui><Sheet><Widget name='second'><Property name='parameterXmlTag'><String>Group/second</String>"
            "</Property><Property name='text'><String>new</String></Property></Widget></Sheet></ZkParamGui>");

        // clang-format off
        add("document read", {"--params", read}, document("1", two));
        add("document in another encoding", {"--params", latin}, document(QChar(0xe4), two));
        add("sets in their order, after the document", {"--set", "first=a", "--set", "Group/first=b=c", "--params", read}, document("b=c", two));
        add("change last", {"--changed", change, "--params", read, "--set", "second=a"}, document("1", "<second>new</second>"));
        add("only modified", {"--params", read, "--only-modified", "--set", "first=a"}, document("a", ""));
        add("nothing modified", {"--params", read, "--only-modified"}, "");
        // clang-format on
    }

    void paramsPrintsWhatTheFormHolds()
    {
        const auto [options, printed] = Fetch<QStringList, QString>({"options", "printed"});
        Result result = RunCommand(QStringList{"params", WriteForm()} + options);
        QCOMPARE(result.Err, QString());
        QCOMPARE(result.Out.remove(QRegularExpression("\\n *")), printed);
        QCOMPARE(result.Status, 0);
    }

    void formsWithFaultsAreToldAndUsed()
    {
        const auto use = [this](const QString &script, const QString &behind, const QString &told, int status) {
            const Result result = RunCommand({"params", WriteForm(script, behind), "--set", "first=a"});
            QVERIFY2(result.Err.contains(told), qPrintable(result.Err));
            QVERIFY2(result.Out.startsWith("<Parameters>") && result.Out.contains("<first>a<"), qPrintable(result.Out));
            QCOMPARE(result.Status, status);
        };
        use("print('hello', 1 + 1); missing.text = 1", "", "hello 2\norbel: ", 0);
        use("first.textChanged.connect(function () { missing.text = 1 })", "", "form.orbel:1: ReferenceError", 0);
        use("", "<<", "form.orbel: line 1: ", 1);
    }

    /// Texts of the form in turn, each with a German word; a second run knows them again.
    void stringsKeepsTranslations()
    {
        const QString catalogue = Folder.filePath("note_de.ts");
        const auto collect = [&](const QString &properties) {
            const QString form = Write("note.orbel",
                "<ZkParamGui>\n<Sheet name='sheet'>\n<Widget name='note' class='Label'>" + properties
                    + "</Widget></Sheet><Script>note.setText('by &amp; by');</Script></ZkParamGui>");
            const Result result = RunCommand({"strings", form, "-o", catalogue});
            return result.Err + QString::fromUtf8(BytesOf(catalogue)).remove(QRegularExpression("\\n *"));
        };
        const auto text = [](const QString &name, const QString &value) {
            return QString("\n<Property name='%1'><String>%2</String></Property>").arg(name, value);
        };
        const auto message = [](int line, const QString &source, const QString &translation) {
            const QString place = line ? QString("<location filename=\"note.orbel\" line=\"%1\"/>").arg(line) : "";
            return "<message>" + place + "<source>" + source + "</source><translation" + translation
                + "</translation></message>";
        };
        const QString open = " type=\"unfinished\">";
        const QString first = collect(text("labelText", "Open") + text("text", "Closed") + text("toolTip", "As it is"));
        QVERIFY2(first.contains("<TS version=\"2.1\" language=\"de\" sourcelanguage=\"en\"><context><name>note</name>"
                     + message(4, "Open", open) + message(5, "Closed", open) + message(6, "by &amp; by", open)
                     + "</context></TS>"),
            qPrintable(first));
        Write("note_de.ts",
            QString(first).replace(
                "Open</source><translation type=\"unfinished\">", "Open</source><translation>Offen"));
        const QString second = collect(text("text", "Ajar"));
        QVERIFY2(second.contains(message(0, "Open", " type=\"vanished\">Offen") + message(4, "by &amp; by", open)
                     + message(4, "Ajar", open) + "</context>"),
            qPrintable(second));
        const QString visible = "<Property name='visible'><Bool>true</Bool></Property>";
        QVERIFY(collect(text("labelText", "Open") + visible).contains(message(4, "Open", ">Offen")));
#ifdef ORBEL_LRELEASE
        const auto draw = [&](const QString &language) {
            const QString picture = Folder.filePath(language + ".png");
            RunCommand({"render", Folder.filePath("note.orbel"), "--language", language, "-o", picture});
            return QImage(picture);
        };
        const QImage before = draw("de");
        QCOMPARE(QProcess::execute(ORBEL_LRELEASE, {"-silent", catalogue}), 0);
        QVERIFY(!before.isNull() && draw("de") != before && draw("fr") != before);
#endif
    }

    void renderDrawsWithoutADisplay()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(name);
        const auto draw = [&](const QStringList &options) {
            const QString path = Folder.filePath("out.png");
            QFile::remove(path);
            const Result result = Run(ORBEL_COMMAND, QStringList{"render", "-o", path} + options, environment);
            return result.Status == 0 && result.Err.isEmpty() ? QImage(path) : QImage();
        };
        const QImage plain = draw({Receiver});
        QCOMPARE(plain.width(), 500);
        const QImage lower = draw({Receiver, "--size", QString("500x%1").arg(plain.height() - 1)});
        QVERIFY2(lower.copy(490, 0, 9, 99) != plain.copy(490, 0, 9, 99), "a pixel less, and there is a scroll bar");
        QCOMPARE(draw({Receiver, "--size", "640x200"}).size(), QSize(640, 200));
        QVERIFY2(draw({Receiver, "--font-size", "24"}).height() > plain.height(),
            "the picture is as high as the form needs");
        const QImage fusion = draw({Receiver, "--size", "640x200", "--style", "fusion"});
        const QImage windows = draw({Receiver, "--size", "640x200", "--style", "Windows"});
        QVERIFY(!fusion.isNull() && !windows.isNull() && fusion != windows);
        const QImage dark = draw({Receiver, "--size", "640x200", "--palette", "dark", "--scale", "1.5"});
        QCOMPARE(dark.size(), QSize(960, 300));
        QVERIFY(qGray(dark.pixel(950, 20)) < 100);
        QVERIFY(draw({Components, "--component", "Audio"}) != draw({Components, "--component", "Site"}));

        for (const char *command : {"view", "studio"}) {
            const Result view = Run(ORBEL_COMMAND, {command, Receiver}, environment);
            QCOMPARE(view.Status, 1);
            QVERIFY2(view.Err.contains("there is no display"), qPrintable(view.Err));
        }
    }

    void viewPrintsEachAppliedDocument()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("ORBEL_OPERATOR", "1");
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        const Result form = Run(QCoreApplication::applicationFilePath(), {"view", Receiver}, environment);
        QCOMPARE(form.Status, 0);
        QVERIFY2(form.Out.startsWith("<ReceiverSettings"), qPrintable(form.Out + form.Err));
        QVERIFY2(form.Out.contains("<Preamplifier>on</Preamplifier>"), qPrintable(form.Out));
        QCOMPARE(form.Err, QString("connect 192.168.0.10\n"));

        const Result list = Run(QCoreApplication::applicationFilePath(), {"view", Components}, environment);
        QCOMPARE(list.Status, 0);
        QCOMPARE(list.Out + list.Err, QString());
    }
};

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsSet("ORBEL_OPERATOR"))
        return Orbel::RunOrbel(argc, argv);
    TestOrbel test;
    return Orbel::RunTest(&test, argc, argv);
}

#include "tst_orbel.moc"
