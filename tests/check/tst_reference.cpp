// What the command tells of forms and classes: findings, the schema, the reference.

#include "command.h"
#include "registry.h"
#include "testcase.h"

namespace
{

const QString Docs = ORBEL_SOURCE_DIR "/docs/";
const QString Schema = ORBEL_SOURCE_DIR "/check/orbel.xsd";

QString Sheet(const QString &body)
{
    return "<ZkParamGui><Sheet name='sheet'>" + body + "</Sheet></ZkParamGui>";
}

} // namespace

class TestReference : public TestCase
{
    Q_OBJECT

    QTemporaryDir Folder;

    QString Write(const QString &name, const QString &text) { return WriteFile(Folder, name, text.toUtf8()); }
    Result Xmllint(const QString &path) { return Run("xmllint", {"--noout", "--schema", Schema, path}); }

private Q_SLOTS:
    void checkEndsAsTold_data()
    {
        const auto add = Columns<QStringList, int, QString, QString>({"arguments", "status", "out", "err"});
        const QString right = Write("right.orbel", Sheet("<Widget name='a' class='Label'/>"));
        const QString wrong = Write("wrong.orbel", Sheet("\n<Widget name='a' class='Labl'/>"));
        const QString list = Write("list.xml",
            "<C><Component name='c'><ValueString id='ORBEL' value='&lt;ZkParamGui>"
            "&lt;Sheet x=\"1\"/>&lt;/ZkParamGui>'/></Component></C>");
        const QString change = Write("change.orbel", Sheet("<Widget name='b'/>"));
        const QString document = Write("params.xml", "<Parameters><b/></Parameters>");
        const QString other = Write("form.xml", Sheet("<Widget name='a' class='Label'/>"));
        const QString throws
            = Write("throws.orbel", "<ZkParamGui><Script>nosuch();</Script><Sheet name='s'/></ZkParamGui>");
        const QString hangs = Write("hangs.orbel",
            "<ZkParamGui><Script>var a = []; a.length = 4294967295; a.indexOf(1);</Script><Sheet "
            "name='s'/></ZkParamGui>");
        const QString missing = Folder.filePath("missing.orbel");
        const QString told
            = wrong + ":2:25: error: There is no class \"Labl\"; did you mean \"Label\"? [class-unknown]\n";
        // clang-format off
        add("findings of the wrong file only", {"check", right, wrong}, 1, told, "");
        add("component list", {"check", list}, 1, list + ":1:80: warning: The attribute \"x\" means nothing on \"Sheet\" [attribute-unknown]\n", "");
        add("missing file, and another one", {"check", missing, wrong}, 1, told, "orbel: " + missing + ": No such file or directory\n");
        add("change", {"check", right, "--changed", change}, 1, change + ":1:33: error: The form has no widget \"b\" [change-widget]\n", "");
        add("parameter document", {"check", right, "--params", document}, 1, document + ":1:13: warning: No control stands at \"b\" [document-element]\n", "");
        add("exception in a run", {"check", "--run", throws}, 1, throws + ":1:21: error: The script throws ReferenceError: Can't find variable: nosuch [script-exception]\n", "");
        add("hang in a run", {"check", "--run", hangs}, 1, hangs + ":1:1: error: The script did not end, and could not be stopped [script-endless]\n", "");
        add("definition under another name", {"check", document, other}, 1, document + ":1:1: error: There is no ValueString with the id \"ORBEL\" in the list [form-missing]\n" + other + ":1:1: error: There is no ValueString with the id \"ORBEL\" in the list; it is a definition, whose file name must end in \".orbel\" [form-missing]\n", "");
        add("codes as JSON", {"check", "--json", "--codes"}, 2, "", "orbel: --codes prints a page, and does not go with --json\n");
        add("document of a list", {"check", list, "--params", document}, 2, "", "orbel: --params wants exactly one form definition\n");
        add("reference in a file", {"reference", right}, 1, "", "orbel: " + right + ": the folder cannot be made\n");
        // clang-format on
    }

    void checkEndsAsTold()
    {
        const auto [arguments, status, out, err]
            = Fetch<QStringList, int, QString, QString>({"arguments", "status", "out", "err"});
        const Result result = Run(ORBEL_COMMAND, arguments);
        QCOMPARE(result.Out, out);
        QCOMPARE(result.Err, err);
        QCOMPARE(result.Status, status);
    }

    void aPipeIsReadOnce()
    {
        const QString list = Write("piped.xml",
            "<C><Component name='c'><ValueString id='ORBEL' value='&lt;ZkParamGui>&lt;Script>nosuch();"
            "&lt;/Script>&lt;/ZkParamGui>'/></Component></C>");
        const Result result = Run("sh", {"-c", "cat \"$1\" | \"$0\" check --run /dev/stdin", ORBEL_COMMAND, list});
        QCOMPARE(result.Err, QString());
        QVERIFY2(result.Out.startsWith("/dev/stdin:1:") && result.Out.endsWith("nosuch [script-exception]\n"),
            qPrintable(result.Out));
    }

    void formatsTellTheSame()
    {
        const QString wrong = Write("a b,%.orbel", Sheet("\n<Widget name='a' class='Labl'/>"));
        QCOMPARE(Run(ORBEL_COMMAND, {"check", "--format=github", wrong}).Out,
            "::error file=" + QString(wrong).replace("%", "%25").replace(",", "%2C")
                + ",line=2,col=25,title=class-unknown::There is no class \"Labl\"; did you mean \"Label\"?\n");
        const Result sarif = Run(ORBEL_COMMAND, {"check", "--format=sarif", wrong});
        const QJsonValue log(QJsonDocument::fromJson(sarif.Out.toUtf8()).object());
        const QJsonValue result = log["runs"][0]["results"][0];
        const QJsonValue place = result["locations"][0]["physicalLocation"];
        QCOMPARE(result["ruleId"].toString() + result["level"].toString(), QString("class-unknownerror"));
        QCOMPARE(place["region"]["startColumn"].toInt(), 25);
        QVERIFY(place["artifactLocation"]["uri"].toString().endsWith("/a%20b%2C%25.orbel"));
        QCOMPARE(Run("sh", {"-c", "\"$0\" check --codes > /dev/full", ORBEL_COMMAND}).Status, 1);
    }

    void jsonTellsTheSame()
    {
        const auto told = [](const QStringList &arguments) {
            return QJsonDocument::fromJson(Run(ORBEL_COMMAND, arguments).Out.toUtf8());
        };
        const QString wrong = Write("json.orbel", Sheet("\n<Widget name='a' class='Labl'/>"));
        const QJsonObject expected{{"file", wrong}, {"line", 2}, {"column", 25}, {"severity", "error"},
            {"code", "class-unknown"}, {"text", "There is no class \"Labl\"; did you mean \"Label\"?"},
            {"edit", QJsonObject{{"offset", 57}, {"length", 4}, {"replacement", "Label"}}}};
        QCOMPARE(told({"check", "--json", wrong}).array(), QJsonArray{expected});

        const QJsonObject all = told({"classes", "--json"}).object();
        const QJsonArray classes = all["classes"].toArray();
        QCOMPARE(classes.size(), Orbel::Registry::Classes().size());
        for (const QJsonValue &each : classes)
            QVERIFY(each["slots"].toArray().contains("setVisible(bool flag)")
                && each["signals"].toArray().contains("customPropertyChanged(QString name, QVariant value)"));
        QVERIFY(all["sheet"]["slots"].toArray().contains("applyNow()"));
        QVERIFY(Run(ORBEL_COMMAND, {"classes"}).Out.contains(QRegularExpression("\nSpinBox +value +A whole number")));
    }

    void schemaIsUpToDate() { QCOMPARE(Run(ORBEL_COMMAND, {"schema"}).Out.toUtf8(), BytesOf(Schema)); }

    void schemaJudges_data()
    {
        const auto add = Columns<QString, int>({"path", "status"});
        for (const QFileInfo &file : QDir(ORBEL_EXAMPLES_DIR "/forms").entryInfoList({"*.orbel"}))
            add(qPrintable(file.fileName()), file.filePath(), 0);
        QString numbers;
        for (const char *type : {"Int", "Int64", "UInt64", "Double"})
            numbers += QString("<Property name='p'><%1>\n 2\t</%1></Property>").arg(type);
        const QString custom = Sheet("<CustomProperties>" + numbers + "</CustomProperties>");
        add("numbers between blanks", Write("numbers.orbel", custom), 0);
        const auto broken = [&](const char *name, const QString &form) { add(name, Write(name, form), 3); };
        const QString property = "<Property name='text'><String>x</String></Property>";
        const auto label
            = [](const QString &body) { return Sheet("<Widget name='a' class='Label'>" + body + "</Widget>"); };
        // clang-format off
        broken("wrapper inside a widget", label("<Properties>" + property + "</Properties>"));
        broken("empty property", label("<Property name='text'/>"));
        broken("unknown class", Sheet("<Widget name='a' class='Labl'/>"));
        broken("unknown property", label(QString(property).replace("text", "txt")));
        broken("unknown type of value", label(QString(property).replace("String", "Text")));
        broken("fraction in an Int", label("<Property name='text'><Int>1.5</Int></Property>"));
        broken("two widgets of one name", Sheet("<Widget name='a' class='Label'/><Widget name='a' class='Label'/>"));
        broken("two values of a row", "<ZkParamGui><Enums><Enum name='e'><EnumValue><Value/><Value/></EnumValue></Enum></Enums></ZkParamGui>");
        // clang-format on
    }

    void schemaJudges()
    {
        const auto [path, status] = Fetch<QString, int>({"path", "status"});
        const Result result = Xmllint(path);
        QVERIFY2(result.Status == status, qPrintable(result.Err));
    }

    void referenceIsUpToDate()
    {
        const QString folder = Folder.filePath("reference");
        const Result result = Run(ORBEL_COMMAND, {"reference", folder});
        QCOMPARE(result.Err, QString());
        const QStringList pages = QDir(folder).entryList({"*.md"});
        QCOMPARE(pages.size(), Orbel::Registry::Classes().size() + 2);
        QCOMPARE(pages.join(' '), QDir(Docs + "reference").entryList({"*.md"}).join(' '));
        static const QRegularExpression picture("!\\[\\w+\\]\\((images/\\w+\\.png)\\)");
        for (const QString &page : pages) {
            const QByteArray text = BytesOf(folder + '/' + page);
            QVERIFY2(text == BytesOf(Docs + "reference/" + page), qPrintable(page + " is out of date"));
            const QString image = picture.match(text).captured(1);
            for (const QString &root : {folder, Docs + "reference"})
                QVERIFY2(image.isEmpty() || !QImage(root + '/' + image).isNull(), qPrintable(image));
        }
    }
};

ORBEL_TEST_MAIN(TestReference)
#include "tst_reference.moc"
