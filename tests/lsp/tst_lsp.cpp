// The language server: messages and their frames, what it answers at which place, random messages and edits, and the
// built program as a process with a recorded session.

#include "brokenforms.h"
#include "document.h"
#include "languageserver.h"
#include "messagereader.h"
#include "testcase.h"

#include <QtCore>

#include <memory>
#include <random>

namespace
{

const QString Uri = "file:///form.orbel";

QJsonObject Parsed(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

/// Whether all members of what is expected, and all elements of its arrays, are found in what came.
bool Holds(const QJsonValue &expected, const QJsonValue &found)
{
    if (expected.isObject()) {
        const QStringList keys = expected.toObject().keys();
        return found.isObject() && std::all_of(keys.cbegin(), keys.cend(), [&](const QString &key) {
            return found.toObject().contains(key) && Holds(expected[key], found[key]);
        });
    }
    if (!expected.isArray())
        return expected == found;
    const QJsonArray all = found.toArray();
    const QJsonArray wanted = expected.toArray();
    return found.isArray() && wanted.isEmpty() <= all.isEmpty()
        && std::all_of(wanted.cbegin(), wanted.cend(), [&](const QJsonValue &each) {
               return std::any_of(
                   all.cbegin(), all.cend(), [&](const QJsonValue &other) { return Holds(each, other); });
           });
}

/// A server in this process, and what it said.
class Client
{
public:
    Client() : Server([this](const QJsonObject &message) { Said.append(message); })
    {
        QObject::connect(&Server, &Orbel::LanguageServer::ended, [this](int status) { Status = status; });
    }

    void Start()
    {
        const char capabilities[] = "{'textDocument':{'completion':{'completionItem':{'snippetSupport':true}}}}";
        Ask("initialize", {{"capabilities", Parsed(QByteArray(capabilities).replace('\'', '"'))}});
    }

    void Send(const QJsonObject &message) { Server.Take(QJsonDocument(message).toJson()); }
    void Tell(const QString &method, const QJsonObject &params)
    {
        Send({{"jsonrpc", "2.0"}, {"method", method}, {"params", params}});
    }

    QJsonObject Ask(const QString &method, const QJsonObject &params)
    {
        Send({{"jsonrpc", "2.0"}, {"id", 1}, {"method", method}, {"params", params}});
        Server.Settle();
        for (int i = Said.size() - 1; i >= 0; --i) {
            if (Said.at(i).contains("id"))
                return Said.at(i);
        }
        return {};
    }

    void Open(const QString &text, const QString &uri = Uri)
    {
        Tell("textDocument/didOpen", {{"textDocument", QJsonObject{{"uri", uri}, {"version", 1}, {"text", text}}}});
        Document = QJsonObject{{"uri", uri}};
        Lines = std::make_unique<Orbel::TextLines>(text);
    }

    QJsonObject At(int index) const
    {
        const Orbel::TextPosition position = Lines->PositionOf(index);
        return {{"line", position.Line}, {"character", position.Character}};
    }

    /// Asks about an index of the text that was opened last.
    QJsonObject AskAt(const QString &request, int index, QJsonObject params = {})
    {
        params.insert("textDocument", Document);
        params.insert("position", At(index));
        params.insert("range", QJsonObject{{"start", At(0)}, {"end", At(INT_MAX)}});
        return Ask("textDocument/" + request, params);
    }

    QJsonObject LastDiagnostics()
    {
        Server.Settle();
        for (int i = Said.size() - 1; i >= 0; --i) {
            if (Said.at(i).value("method") == "textDocument/publishDiagnostics")
                return Said.at(i).value("params").toObject();
        }
        return {};
    }

    QVector<QJsonObject> Said;
    int Status = -1;
    Orbel::LanguageServer Server;
    QJsonObject Document;
    std::unique_ptr<Orbel::TextLines> Lines;
};

/// A form to ask about; `widget` stands in its sheet, `script` is its script.
QString Form(const QString &widget, const QString &script = QString())
{
    return "<ZkParamGui version=\"1\"><Enums><Enum name=\"Mode\"><EnumValue><DisplayName>A</DisplayName>"
           "<EnumIdentifier>AM</EnumIdentifier><Value>am</Value></EnumValue></Enum></Enums>\n<Sheet name=\"sheet\">\n"
           "<Widget name=\"mode\" class=\"ComboBox\"><Property name=\"enumName\"><String>Mode</String></Property>"
           "<Property name=\"parameterXmlTag\"><String>Rx/Mode</String></Property></Widget>\n"
        + widget + "\n<Widget name=\"last\" class=\"CheckBox\"/></Sheet>\n<Script><![CDATA[\n" + script
        + "\n]]></Script></ZkParamGui>";
}

/// The applied edits of a text, which do not meet.
QString Edited(QString text, const QJsonArray &edits)
{
    const Orbel::TextLines lines(text);
    QMap<int, QPair<int, QString>> byPlace;
    const auto index = [&](const QJsonValue &at) {
        return lines.IndexOf({at["line"].toInt(), at["character"].toInt()});
    };
    for (const QJsonValue &edit : edits)
        byPlace.insert(-index(edit["range"]["start"]), {index(edit["range"]["end"]), edit["newText"].toString()});
    for (auto edit = byPlace.cbegin(); edit != byPlace.cend(); ++edit)
        text.replace(-edit.key(), edit->first + edit.key(), edit->second);
    return text;
}

/// A form of as many controls as people have in one piece.
QString LongForm()
{
    QStringList lines{"<ZkParamGui version=\"1\">", "  <Sheet name=\"sheet\">"};
    for (int i = 0; lines.size() < 1351 - 9; ++i)
        lines << QString("    <Widget name=\"gain%1\" class=\"SpinBox\">").arg(i)
              << QString("      <Property name=\"labelText\"><String>Gain %1</String></Property>").arg(i)
              << "      <Property name=\"visible\"><Bool>true</Bool></Property>"
              << "      <Property name=\"enabled\"><Bool>true</Bool></Property>"
              << "      <Property name=\"value\"><Int>20</Int></Property>"
              << "      <Property name=\"generateParameterXml\"><Bool>true</Bool></Property>"
              << QString("      <Property name=\"parameterXmlTag\"><String>Rx/Gain%1</String></Property>").arg(i)
              << "      <Property name=\"maximum\"><Int>60</Int></Property>"
              << "    </Widget>";
    lines << "  </Sheet>"
          << "  <Script><![CDATA["
          << "gain0.valueChanged.connect(function (value) {"
          << "    gain1.setValue(value);"
          << "});";
    while (lines.size() < 1349)
        lines << "gain0.setValue(10);";
    return (lines << "]]></Script>"
                  << "</ZkParamGui>")
        .join('\n');
}

} // namespace

class TestLsp : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void framesAreFoundInAnyStream_data()
    {
        const auto add = Columns<QByteArray, QByteArray>({"stream", "messages"});
        const QByteArray huge = QByteArray::number(Orbel::MessageReader::MostBytes + 3);
        // clang-format off
        add("one after the other", "Content-Length: 2\r\n\r\n{}Content-Length: 3\r\n\r\n[1]", "{}|[1]");
        add("other fields, other letters", "X: 1\r\ncontent-length:2\r\nY: 2\r\n\r\n{}", "{}");
        add("noise in front", "noise\r\n\r\nContent-Length: 2\r\n\r\n{}", "{}");
        add("no length", "Content-Type: a\r\n\r\nContent-Length: 2\r\n\r\n{}", "{}");
        add("a negative length", "Content-Length: -2\r\n\r\nContent-Length: 2\r\n\r\n{}", "{}");
        add("cut short", "Content-Length: 4\r\n\r\n{}Content-Length: 2\r\n\r\n{}", "{}Co");
        add("found again", "Content-Length: 4\r\n\r\n{}Content-Length: 2\r\n\r\n{}Content-Length: 2\r\n\r\n[]", "{}Co|[]");
        add("not whole", "Content-Length: 4\r\n\r\n{}", "");
        add("beyond what is taken", "Content-Length: " + huge + "\r\n\r\nContent-Length: 2\r\n\r\n{}", "");
        // clang-format on
    }

    void framesAreFoundInAnyStream()
    {
        const auto [stream, messages] = Fetch<QByteArray, QByteArray>({"stream", "messages"});
        for (const int size : {1, 7, 1000}) {
            Orbel::MessageReader reader;
            QByteArrayList found;
            for (int at = 0; at < stream.size(); at += size) {
                reader.Feed(stream.mid(at, size));
                while (const auto message = reader.Next())
                    found.append(*message);
            }
            QCOMPARE(found.join('|'), messages);
        }
    }

    void theProtocolIsKept_data()
    {
        const auto add = Columns<QStringList, QString>({"messages", "answers"});
        const QString start = "{'jsonrpc':'2.0','id':1,'method':'initialize','params':{}}";
        const QString hover = "{'id':2,'method':'textDocument/hover','params':{}}";
        const QString shutdown = "{'id':3,'method':'shutdown'}";
        const QString exit = "{'method':'exit'}";
        // clang-format off
        add("a request before the first", {hover, start}, "2:-32002 1:ok");
        add("a second beginning", {start, start}, "1:ok 1:-32600");
        add("no JSON", {"{", start}, "null:-32700 1:ok");
        add("JSON that nests too deep", {QString(5000, '['), start}, "null:-32700 1:ok");
        add("no message", {"[]", "{}", "3", "{'id':{},'method':'a'}", "{'id':4,'method':5}"},
            "null:-32600 null:-32600 null:-32700 null:-32600 4:-32600");
        add("an unknown request", {start, "{'id':'x','method':'textDocument/none'}"}, "1:ok x:-32601");
        add("unknown notifications and answers", {start, "{'method':'$/none'}", "{'method':'none'}", "{'id':7,'result':1}"}, "1:ok");
        add("a document that is not open", {start, hover}, "1:ok 2:-32602");
        add("a request taken back", {start, hover, "{'method':'$/cancelRequest','params':{'id':2}}"}, "2:-32800 1:ok");
        add("what is gone cannot be taken back", {start, "{'method':'$/cancelRequest','params':{'id':2}}", hover}, "1:ok 2:-32602");
        add("the end", {start, shutdown, exit}, "1:ok 3:ok exit0");
        add("the end without a word", {start, exit}, "1:ok exit1");
        add("an end before the beginning", {exit}, "exit1");
        add("behind the end", {start, shutdown, hover, shutdown}, "1:ok 3:ok 2:-32600 3:-32600");
        add("edits that make no sense", {start, "{'method':'textDocument/didOpen','params':{'textDocument':{'uri':'a','text':5}}}",
            "{'method':'textDocument/didChange','params':{'textDocument':{'uri':'a'},'contentChanges':[{'range':1,'text':'x'}]}}",
            "{'method':'textDocument/didClose','params':[]}"}, "1:ok");
        // clang-format on
    }

    void theProtocolIsKept()
    {
        const auto [messages, answers] = Fetch<QStringList, QString>({"messages", "answers"});
        Client client;
        for (const QString &message : messages)
            client.Server.Take(QString(message).replace('\'', '"').toUtf8());
        client.Server.Settle();
        QStringList heard;
        for (const QJsonObject &answer : client.Said) {
            const QJsonValue id = answer.value("id");
            heard << (id.isNull() ? "null" : id.toVariant().toString()) + ':'
                    + (answer.contains("result") ? "ok" : QString::number(answer.value("error")["code"].toInt()));
        }
        if (client.Status >= 0)
            heard << QString("exit%1").arg(client.Status);
        QCOMPARE(heard.join(' '), answers);
    }

    void placesCountUnitsOfUtf16()
    {
        const QString text = QString("\u00e4\U0001f4fbb\r\nc\rd\n");
        const Orbel::TextLines lines(text);
        QCOMPARE(lines.Count(), 4);
        for (const int index : {0, 1, 3, 4, 6, 7, 8, 9, 10})
            QCOMPARE(lines.IndexOf(lines.PositionOf(index)), index);
        QCOMPARE(lines.IndexOf({0, 99}), 4);
        QCOMPARE(lines.IndexOf({-1, 5}), 0);
        QCOMPARE(lines.IndexOf({99, 0}), text.size());
        QCOMPARE(lines.PositionOf(99).Line, 3);
    }

    void completionKnowsItsPlace_data()
    {
        const auto add = Columns<QString, QString, QString>({"text", "offered", "withheld"});
        const auto property = [](const QString &rest) { return Form("<Widget name=\"g\" class=\"SpinBox\">" + rest); };
        const auto script = [](const QString &code) {
            return Form(
                "<Widget name=\"gain\" class=\"SpinBox\"><Property name=\"value\"><Int>1</Int></Property></Widget>",
                code);
        };
        // clang-format off
        add("nothing yet", "@", "ZkParamGui", "Widget");
        add("in a form", "<ZkParamGui><@", "Sheet Enums Script", "Widget Property");
        add("in a sheet", Form("<@"), "Widget Properties", "Property Enum Int");
        add("in a widget", property("<@"), "Property CustomProperties", "Properties Widget");
        add("in a sheet, no bracket", Form("@"), "Widget", "Property");
        add("in a property", property("<Property name=\"value\"><@"), "Int", "String Bool Property");
        add("in a property that nobody knows", property("<Property name=\"x\"><@"), "Int String Bool", "Property");
        add("an end tag", property("</@"), "Widget>", "Property>");
        add("a choice", Form("</Sheet><Enums><Enum name='E'><@"), "EnumValue", "Enum Value");
        add("attributes", Form("<Widget name='a' @"), "class", "name version");
        add("classes", Form("<Widget class=\"Sp@"), "SpinBox ComboBox", "Widget");
        add("properties of this class", property("<Property name=\"@"), "minimum suffix enabled", "enumName checked");
        add("what is stated is not stated again", property("<Property name=\"value\"><Int>1</Int></Property><Property name=\"@"), "minimum", "value");
        add("what is stated below neither", property("<Property name=\"@\"/>\n<Property name=\"value\"><Int>1</Int></Property></Widget>"), "minimum", "value");
        add("properties of the sheet", Form("<Properties><Property name=\"@"), "parametersXmlRootTag", "minimum");
        add("custom properties", property("<CustomProperties><Property name=\"@"), "", "minimum");
        add("truth", property("<Property name=\"visible\"><Bool>@"), "true false", "");
        add("enumerations", Form("<Widget class='ComboBox'><Property name='enumName'><String>@"), "Mode", "am");
        add("values of the enumeration", Form("<Widget name='n' class='ComboBox'><Property name='enumName'><String>Mode</String></Property><Property name='currentValue'><String>@"), "am", "Mode");
        add("words that mean something", property("<Property name='applyMode'><String>@"), "ekInstantApplyMode", "");
        add("groups of parameters", property("<Property name='parameterXmlTag'><String>@"), "Rx/", "Rx/Mode");
        add("an enumeration that is missing", "<ZkParamGui><Enums><Enum name=\"@\"/></Enums><Sheet><Widget class='ComboBox'><Property name='enumName'><String>Band</String></Property></Widget></Sheet></ZkParamGui>", "Band", "");
        add("in a comment", Form("<!-- <@ -->"), "", "Widget");
        add("behind an element that is not closed", Form("<Widget name='a' class='Label'>\n<Property name='text'><String>a\n<Widget class='@"), "Label", "");
        add("globals", script("@"), "mode gain Mode sheet Math function", "minimum");
        add("globals behind a half statement", script("var level = 1;\nif (gain.value > @"), "level gain", "");
        add("members of this class", script("gain.@"), "value setValue valueChanged setVisible", "setCurrentValue checked");
        add("members, half typed", script("gain.setV@"), "setValue setVisible", "gain");
        add("choices", script("mode.setCurrentValue(Mode.@"), "AM", "gain");
        add("behind a signal", script("gain.valueChanged.@"), "connect disconnect", "value");
        add("values in a text", script("mode.setCurrentValue(\"@"), "am", "gain");
        add("values compared", script("if (mode.currentValue == '@"), "am", "gain");
        add("members of the language", script("Math.@"), "floor", "gain");
        add("members of the sheet", script("sheet.@"), "resetModifiedParameter", "currentValue");
        add("parameters of this function", script("function f(one) { var two; @ } function g(other) {}"), "one two f g", "other");
        add("in a comment of the script", script("// gain.@"), "", "value gain");
        add("in a repetition", Form("<Repeat each='n' from='1' to='2'><Widget class='Label'/><@"), "Widget", "Property");
        add("in a component list", "<L><Component name='a'><ValueString id='ORBEL' value='&lt;ZkParamGui&gt;&lt;Sheet&gt;&lt;Widget class=&quot;@&quot;/&gt;&lt;/Sheet&gt;&lt;/ZkParamGui&gt;'/></Component></L>", "SpinBox", "Widget");
        // clang-format on
    }

    void completionKnowsItsPlace()
    {
        const auto [text, offered, withheld] = Fetch<QString, QString, QString>({"text", "offered", "withheld"});
        Client client;
        client.Start();
        client.Open(QString(text).remove('@'), text.startsWith("<L>") ? "file:///list.xml" : Uri);
        QStringList labels;
        for (const QJsonValue &item : client.AskAt("completion", text.indexOf('@')).value("result")["items"].toArray())
            labels << item["label"].toString();
        for (const QString &label : offered.split(' ', Qt::SkipEmptyParts))
            QVERIFY2(labels.contains(label), qPrintable(label + " is none of " + labels.join(' ')));
        for (const QString &label : withheld.split(' ', Qt::SkipEmptyParts))
            QVERIFY2(!labels.contains(label), qPrintable(label));
    }

    void namesAreFoundEverywhere_data()
    {
        const auto add = Columns<QString, QString, QStringList>({"from", "to", "refused"});
        const QString script = "function follow(gain) { gain = 1; return mode.currentValue == Mode.AM; }\n"
                               "mode.setCurrentValue('am'); follow(Mode.AM); var x = {mode: 1}; x.mode = 2;";
        const QString text = Form("<Widget name=\"gain\" class=\"SpinBox\"><Property name=\"parameterXmlTag\">"
                                  "<String>Rx/Gain</String></Property></Widget>",
            script + " gain.setValue(3);");
        const auto row = [&](const char *name, const char *at, int beyond, const QString &becomes,
                             const QStringList &refused = {"", "1a", "if", "last", "Math", "a b"}) {
            const int index = text.indexOf(at) + beyond;
            add(name, QString(text).insert(index, '@'), becomes, refused);
        };
        const auto changed = [&](const QString &pattern, const QString &by) {
            return QString(text).replace(QRegularExpression(pattern), by);
        };
        // clang-format off
        row("a widget, from its element", "\"mode\"", 2, changed("\"mode\"|\\bmode(?=\\.)", "NEW").replace("=NEW", "=\"NEW\""));
        row("a widget, from the script", "mode.set", 1, changed("\"mode\"|\\bmode(?=\\.)", "NEW").replace("=NEW", "=\"NEW\""));
        row("a parameter of the same name as a widget", "gain = 1", 1, changed("gain(?=\\)| = 1)", "NEW"));
        row("a widget hidden by a parameter", "gain.setV", 1, changed("gain(?=\\.|\" class)", "NEW"));
        row("an enumeration", "Mode.AM", 1, changed("Mode(?=\\.|<|\">)(?!</String></Property></W)", "NEW"));
        row("a choice", "Mode.AM", 6, changed("(?<=er>|\\.)AM", "NEW"), {"", "1a", "if", "a b"});
        row("a value", "'am'", 2, changed("am(?=<|')", "NEW"), {"", "<"});
        row("a function", "follow(M", 1, changed("follow", "NEW"));
        row("a group of parameters", "Rx/Gain", 1, changed("Rx", "NEW"), {"", "1a", "a/b"});
        row("the last part of a parameter", "Rx/Gain", 4, changed("(?<=Rx/)Gain", "NEW"), {"", "1a", "a/b", "Mode"});
        row("no class", "SpinBox", 1, QString());
        row("no property", "currentValue", 1, QString());
        row("no word of the language", "return", 1, QString());
        // clang-format on
    }

    void namesAreFoundEverywhere()
    {
        const auto [from, to, refused] = Fetch<QString, QString, QStringList>({"from", "to", "refused"});
        const QString text = QString(from).remove('@');
        Client client;
        client.Start();
        client.Open(text);
        const int place = from.indexOf('@');
        const QJsonObject renamed = client.AskAt("rename", place, {{"newName", "NEW"}});
        QCOMPARE(renamed.contains("error"), to.isEmpty());
        QCOMPARE(client.AskAt("prepareRename", place).contains("error"), to.isEmpty());
        if (to.isEmpty())
            return;
        const QJsonArray edits = renamed.value("result")["changes"][Uri].toArray();
        QCOMPARE(Edited(text, edits), to);
        QCOMPARE(client.AskAt("references", place).value("result").toArray().size(), edits.size());
        QVERIFY(!client.AskAt("definition", place).value("result").toArray().isEmpty());
        for (const QString &name : refused)
            QVERIFY2(client.AskAt("rename", place, {{"newName", name}}).contains("error"), qPrintable(name));
    }

    void hoverTellsWhatTheReferenceTells_data()
    {
        const auto add = Columns<QString, QString>({"at", "told"});
        add("an element", "Enu|mValue>", "One choice");
        add("an end tag's element", "Sp|inBox", "**SpinBox**");
        add("a property", "mini|mum", "The least number");
        add("a widget in the script", "ga|in.set", "`SpinBox`");
        add("a slot", "gain.setVa|lue", "Sets the number, in node units");
        add("a signal", "value|Changed", "has changed the number");
        add("a choice", "Mode.A|M", "`am`");
        add("an enumeration", "Mo|de.AM", "Enumeration");
        add("nothing", "a| + 1", "");
    }

    void hoverTellsWhatTheReferenceTells()
    {
        const auto [at, told] = Fetch<QString, QString>({"at", "told"});
        Client client;
        client.Start();
        const QString text = Form(
            "<Widget name=\"gain\" class=\"SpinBox\"><Property name=\"minimum\"><Int>1</Int></Property></Widget>",
            "gain.setValue(Mode.AM); gain.valueChanged.connect(print); a + 1;");
        client.Open(text);
        const int index = text.indexOf(QString(at).remove('|')) + at.indexOf('|');
        const QString found = client.AskAt("hover", index).value("result")["contents"]["value"].toString();
        QVERIFY2(told.isEmpty() ? found.isEmpty() : found.contains(told), qPrintable(found));
    }

    /// Each mistake for which the checker knows what was meant can be mended by one action, and by the one for all.
    void whatWasMeantIsAQuickFix()
    {
        int mended = 0;
        for (const BrokenForm &form : BrokenForms()) {
            if (form.kind != BrokenForm::Definition && form.kind != BrokenForm::List)
                continue;
            const QString text = QString(form.text).remove('@');
            Client client;
            client.Start();
            client.Open(text, form.kind == BrokenForm::List ? "file:///list.xml" : Uri);
            const QJsonArray actions = client.AskAt("codeAction", 0).value("result").toArray();
            const QJsonArray found = client.LastDiagnostics().value("diagnostics").toArray();
            for (const QJsonValue &diagnostic : found) {
                const QString message = diagnostic["message"].toString();
                const bool hasAction = Holds(QJsonArray{QJsonObject{{"diagnostics", QJsonArray{diagnostic}}}}, actions);
                const bool isPlain = message.contains("did you mean") || message.endsWith("does not state visible")
                    || message.endsWith("does not state enabled");
                QVERIFY2(hasAction || !isPlain, qPrintable(QString(form.name) + ": " + message));
                mended += hasAction;
            }
        }
        QVERIFY(mended > 10);
    }

    void formattingIsTheCommands()
    {
        Client client;
        client.Start();
        const QString text = Form("<Widget   name='a'\r\n class=\"Label\"/>\r\n\r\n\r\n", "a  =  1;\r\n");
        client.Open(text);
        const QString once = Edited(text, client.AskAt("formatting", 0).value("result").toArray());
        QVERIFY(once != text && once.contains("a  =  1;"));
        client.Open(once);
        QCOMPARE(client.AskAt("formatting", 0).value("result"), QJsonValue(QJsonArray()));
        client.Open(text.left(300));
        QVERIFY(client.AskAt("formatting", 0).contains("error"));
    }

    /// Whatever is typed, in whatever order, in the end only the text counts.
    void editsInAnyOrderGiveTheSameAsAFreshStart()
    {
        std::mt19937 random(1);
        const auto upTo = [&](int most) { return int(random() % unsigned(most + 1)); };
        const QStringList scraps{"<", ">", "\"", "/", "</Widget>", "<Widget name=\"", "]]>", "<![CDATA[", "&", "\r\n",
            "\n", "\u00e4", "\U0001f4fb", "<!--", "-->", "gain.", "function (", "}", "<Property name='value'><Int>",
            QChar(0xd800)};
        const QStringList requests{
            "completion", "hover", "definition", "references", "documentSymbol", "codeAction", "formatting"};
        const QString example = BytesOf(ORBEL_EXAMPLES_DIR "/forms/receiver.orbel");
        for (int round = 0; round < FromEnvironment("ORBEL_LSP_ROUNDS", 8); ++round) {
            Client client;
            client.Start();
            client.Open(example);
            QString text = example;
            for (int edit = 0; edit < 12; ++edit) {
                const Orbel::TextLines lines(text);
                const auto at = [&](int index) {
                    const Orbel::TextPosition position = lines.PositionOf(index);
                    return QJsonObject{{"line", position.Line}, {"character", position.Character}};
                };
                const int from = upTo(text.size());
                const int to = qMin(text.size(), from + (upTo(3) ? 0 : upTo(80)));
                const int first = lines.IndexOf(lines.PositionOf(from));
                const QString scrap = scraps.at(upTo(scraps.size() - 1));
                const QJsonObject range{{"start", at(from)}, {"end", at(to)}};
                client.Tell("textDocument/didChange",
                    {{"textDocument", client.Document},
                        {"contentChanges", QJsonArray{QJsonObject{{"range", range}, {"text", scrap}}}}});
                text.replace(first, lines.IndexOf(lines.PositionOf(to)) - first, scrap);
                client.Lines = std::make_unique<Orbel::TextLines>(text);
                client.AskAt(requests.at(upTo(requests.size() - 1)), upTo(text.size()));
            }
            Client fresh;
            fresh.Start();
            fresh.Open(text);
            QCOMPARE(client.LastDiagnostics().value("diagnostics"), fresh.LastDiagnostics().value("diagnostics"));
            for (const QString &request : requests)
                QCOMPARE(client.AskAt(request, text.size() / 2), fresh.AskAt(request, text.size() / 2));
        }
    }

    /// Messages of a session, cut short, torn and made up. The server answers the next sound one.
    void randomMessagesEndNothing()
    {
        std::mt19937 random(7);
        QByteArrayList sound;
        for (const QByteArray &line : BytesOf(ORBEL_SOURCE_DIR "/tests/lsp/session.txt").split('\n')) {
            if (line.startsWith("--> ") && !line.contains("\"shutdown\"") && !line.contains("\"exit\""))
                sound.append(line.mid(4));
        }
        Client client;
        Orbel::MessageReader reader;
        const int count = FromEnvironment("ORBEL_LSP_MESSAGES", 3000);
        int answered = 0;
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < count; ++i) {
            QByteArray message = sound.at(int(random() % unsigned(sound.size())));
            const unsigned kind = random() % 8;
            for (unsigned change = random() % 4; kind > 4 && change > 0; --change)
                message[int(random() % unsigned(message.size()))]
                    = kind == 5 ? char(random()) : "\"{}[]:,0-9el\\"[random() % 13];
            QByteArray frame = "Content-Length: " + QByteArray::number(message.size()) + "\r\n\r\n" + message;
            if (kind == 7)
                frame.truncate(int(random() % unsigned(frame.size())));
            reader.Feed(frame);
            while (const auto next = reader.Next())
                client.Server.Take(*next);
            // Now and then the typing pauses.
            if (i % 50 == 0)
                client.Server.Settle();
            answered += int(std::count_if(client.Said.cbegin(), client.Said.cend(),
                [](const QJsonObject &said) { return said.contains("result"); }));
            client.Said.clear();
        }
        const QByteArray last = "{\"id\":\"last\",\"method\":\"unknown\"}";
        reader.Feed(
            QByteArray(1 << 20, '\n') + "Content-Length: " + QByteArray::number(last.size()) + "\r\n\r\n" + last);
        while (const auto next = reader.Next())
            client.Server.Take(*next);
        client.Server.Settle();
        QVERIFY(std::any_of(client.Said.cbegin(), client.Said.cend(),
            [](const QJsonObject &said) { return said.value("id") == "last"; }));
        qInfo("%d messages in %.1f s, %d of them with a result", count, double(clock.elapsed()) / 1000, answered);
        QVERIFY(answered > count / 20);
    }

    /// The answers while one types in a long form: each follows an edit, so that nothing is known beforehand.
    void answersComeWhileOneTypes()
    {
        const QString text = LongForm();
        QCOMPARE(text.count('\n') + 1, 1351);
        QElapsedTimer clock;
        const auto best = [&](const std::function<void()> &act) {
            qint64 least = INT64_MAX;
            for (int i = 0; i < 9; ++i) {
                clock.start();
                act();
                least = qMin(least, clock.nsecsElapsed());
            }
            return double(least) / 1e6;
        };
        const double parse = best([&] { Orbel::Document((Orbel::PlacedText(text))); });
        Client client;
        client.Start();
        client.Open(text);
        const int element = text.indexOf("<Property name=\"maximum", text.size() / 2) + 17;
        const int script = text.lastIndexOf("gain0.setValue") + 6;
        const auto ask = [&](const char *request, int place) {
            return best([&] {
                const QJsonObject range{{"start", client.At(place)}, {"end", client.At(place)}};
                client.Tell("textDocument/didChange",
                    {{"textDocument", client.Document},
                        {"contentChanges", QJsonArray{QJsonObject{{"range", range}, {"text", ""}}}}});
                client.Send({{"jsonrpc", "2.0"}, {"id", 1}, {"method", QString("textDocument/") + request},
                    {"params", QJsonObject{{"textDocument", client.Document}, {"position", client.At(place)}}}});
                client.Said.clear();
                const auto isAnswer = [](const QJsonObject &said) { return said.contains("id"); };
                while (std::none_of(client.Said.cbegin(), client.Said.cend(), isAnswer))
                    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            });
        };
        for (const auto &[name, request, place] : {std::make_tuple("completion in the sheet", "completion", element),
                 std::make_tuple("completion in the script", "completion", script),
                 std::make_tuple("hover in the sheet", "hover", element),
                 std::make_tuple("hover in the script", "hover", script)}) {
            const double time = ask(request, place);
            qInfo("%s: %.1f ms, %.1f parses of %.1f ms", name, time, time / parse, parse);
            QVERIFY2(time < 35 * parse, name);
        }
    }

    void aRecordedSessionIsAnswered()
    {
        QProcess server;
        server.start(ORBEL_COMMAND, {"lsp", "--stdio"});
        Orbel::MessageReader reader;
        QVector<QJsonObject> waiting;
        const auto next = [&] {
            while (const auto message = reader.Next())
                waiting.append(Parsed(*message));
            return !waiting.isEmpty();
        };
        int number = 0;
        for (const QByteArray &line : BytesOf(ORBEL_SOURCE_DIR "/tests/lsp/session.txt").split('\n')) {
            ++number;
            const QByteArray text = line.mid(4);
            if (line.startsWith("-->"))
                server.write("Content-Length: " + QByteArray::number(text.size()) + "\r\n\r\n" + text);
            if (!line.startsWith("<--"))
                continue;
            while (!next() && server.waitForReadyRead(60000))
                reader.Feed(server.readAllStandardOutput());
            QVERIFY2(!waiting.isEmpty(), qPrintable(QString::number(number)));
            const QJsonObject found = waiting.takeFirst();
            QVERIFY2(Holds(Parsed(text), found),
                qPrintable(QString("line %1: ").arg(number) + QJsonDocument(found).toJson()));
        }
        QVERIFY(server.waitForFinished(60000));
        QCOMPARE(server.exitStatus(), QProcess::NormalExit);
        QCOMPARE(server.exitCode(), 0);
    }

    /// Names of the script that nobody makes come out by running it, and have their mend like all others.
    void scriptsAreRunWhenTheTypingPauses()
    {
        QProcess server;
        server.start(ORBEL_COMMAND, {"lsp"});
        const QString text = Form("<Widget name=\"gain\" class=\"SpinBox\"/>", "gain.setValeu(3);");
        const auto send = [&](const QString &method, const QJsonObject &params, int id = 0) {
            QJsonObject message{{"method", method}, {"params", params}};
            if (id > 0)
                message.insert("id", id);
            server.write(Orbel::Framed(message));
        };
        send("initialize", {}, 1);
        send("textDocument/didOpen", {{"textDocument", QJsonObject{{"uri", Uri}, {"text", text}}}});
        Orbel::MessageReader reader;
        QJsonObject found;
        const auto wants = [&](const char *what) {
            while (!QJsonDocument(found).toJson().contains(what) && server.waitForReadyRead(60000)) {
                reader.Feed(server.readAllStandardOutput());
                while (const auto message = reader.Next())
                    found = Parsed(*message);
            }
            return QJsonDocument(found).toJson().contains(what);
        };
        QVERIFY(wants("did you mean \\\"setValue\\\"?"));
        const QJsonObject all{{"start", QJsonObject()}, {"end", QJsonObject{{"line", 99}}}};
        send("textDocument/codeAction", {{"textDocument", QJsonObject{{"uri", Uri}}}, {"range", all}}, 2);
        QVERIFY(wants("Change to \\\"setValue\\\""));
        server.kill();
        server.waitForFinished();
    }

    void aClientThatGoesEndsTheServer()
    {
        for (const bool shutsDown : {false, true}) {
            QProcess server;
            server.start(ORBEL_COMMAND, {"lsp"});
            for (const QByteArray body : {"{\"id\":1,\"method\":\"initialize\"}", "{\"id\":2,\"method\":\"shutdown\"}"})
                server.write(shutsDown ? "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body
                                       : "Content-Le");
            server.closeWriteChannel();
            QVERIFY(server.waitForFinished(60000));
            QCOMPARE(server.exitCode(), shutsDown ? 0 : 1);
        }
    }

    void settingsForEditorsAreSound()
    {
        int files = 0;
        QDirIterator walk(
            ORBEL_SOURCE_DIR "/editors", {"*.json", "*.code-snippets"}, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            QJsonParseError error;
            const QJsonObject settings = QJsonDocument::fromJson(BytesOf(walk.next()), &error).object();
            QVERIFY2(error.error == QJsonParseError::NoError && !settings.isEmpty(),
                qPrintable(walk.filePath() + error.errorString()));
            // What a manifest names is there.
            const QJsonValue parts = settings.value("contributes");
            QStringList named{settings.value("main").toString()};
            for (const char *part : {"snippets", "grammars"}) {
                for (const QJsonValue &entry : parts[QLatin1String(part)].toArray())
                    named << entry["path"].toString();
            }
            named << parts["languages"][0]["configuration"].toString();
            for (const QString &path : named)
                QVERIFY2(QFile::exists(walk.fileInfo().dir().filePath(path)), qPrintable(path));
            ++files;
        }
        QVERIFY(files >= 4);
    }
};

ORBEL_TEST_MAIN(TestLsp)
#include "tst_lsp.moc"
