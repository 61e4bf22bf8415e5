// What the pages for authors say: of each class its members, its example and its script, and the ten steps of the
// tutorial.

#include "definitionlayout.h"
#include "liveform.h"
#include "orbelcheck.h"
#include "registry.h"

using namespace Orbel;

namespace
{

QString TextOf(const QString &path)
{
    QFile file(ORBEL_SOURCE_DIR "/" + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString Page(const QString &name)
{
    return TextOf("docs/" + name + ".md");
}

/// The blocks of a language on a page.
QStringList Blocks(const QString &page, const QString &language)
{
    const QRegularExpression block("```" + language + "\n(.*?)\n```", QRegularExpression::DotMatchesEverythingOption);
    QStringList blocks;
    for (auto matches = block.globalMatch(page); matches.hasNext();)
        blocks.append(matches.next().captured(1));
    return blocks;
}

/// The form with that script.
QString WithScript(QString form, const QString &script)
{
    return form.replace("</ZkParamGui>", "<Script><![CDATA[" + script + "]]></Script></ZkParamGui>");
}

/// What `orbel check --run` tells, without notes or with them.
QString Mistakes(const QString &definition, bool notes)
{
    QStringList texts;
    const QByteArray document = definition.toUtf8();
    for (const Finding &finding : Check::Definition(document) + Check::RunDefinition(document, 1000)) {
        if (notes || !Check::IsClean({finding}))
            texts.append(finding.Text);
    }
    return texts.join('\n');
}

/// A form as the tutorial has its readers write it.
struct GrowingForm {
    QString Text;

    void Take(const QString &language, const QString &block)
    {
        const auto put
            = [this](const QString &before, const QString &lines) { Text.replace(before, lines + '\n' + before); };
        if (language == "js")
            put("]]></Script>", block);
        else if (block.startsWith("<Enums"))
            put("  <Sheet", block);
        else if (block.startsWith("<Properties"))
            Text.replace("<Sheet name=\"sheet\">", "<Sheet name=\"sheet\">\n" + block);
        else if (!block.startsWith("<Widget"))
            Text = block;
        const QRegularExpression widget(
            "(<Widget name=\"\\w+\").*?</Widget>", QRegularExpression::DotMatchesEverythingOption);
        for (auto found = widget.globalMatch(block); block.startsWith("<Widget") && found.hasNext();) {
            const auto match = found.next();
            const int there = Text.indexOf(match.captured(1));
            if (there < 0)
                put("  </Sheet>", match.captured());
            else
                Text.replace(there, widget.match(Text, there).capturedLength(), match.captured());
        }
    }
};

/// A form whose script prints into a list.
struct PrintingForm : LiveForm {
    explicit PrintingForm(const QString &definition) : LiveForm(Tapped(definition), "/Form", {600, 900})
    {
        log.Watch("sheet", form->GetSheet().GetUi());
    }
    QStringList Printed() const { return form->GetScriptValues().value("printed").toVariant().toStringList(); }

    /// Does what a sentence of a script's comment, or of a table of the tutorial, says; false for no such sentence.
    bool Do(QString sentence)
    {
        const QList<QPair<QString, std::function<void(const QStringList &)>>> acts{
            {"enters? (.+) into (.+)", [&](auto &said) { Enter(said[2], said[1]); }},
            {"types (.+) into (.+)", [&](auto &said) { Type(said[2], said[1]); }},
            {"chooses? (.+) in (.+)", [&](auto &said) { Choose(said[2], said[1]); }},
            {"clicks? (.+)", [&](auto &said) { Click(said[1]); }},
            {"press(?:es)? (.+)", [&](auto &said) { Press(said[1]); }},
            {"sets (.+) to (.+)", [&](auto &said) { Get(said[1])->GetVTValue()->SetStringValue(said[2], nullptr); }},
            {"brings (.+)",
                [&](auto &said) { form->SetXmlString("<Parameters><All>" + said[1] + "</All></Parameters>"); }},
            {"look", [](auto &) {}}};
        for (const auto &[pattern, act] : acts) {
            const auto match = QRegularExpression("^" + pattern + "$").match(sentence.remove('`'));
            if (match.hasMatch())
                return act(match.capturedTexts()), true;
        }
        return false;
    }

    /// Whether what a sentence of such a table says is to be seen; what is seen instead comes into `seen`.
    bool Sees(const QString &sentence, QString &seen)
    {
        const QStringList said = sentence.split('`');
        const QString what = said.size() == 3 ? said[0] + said[2] : said.value(2);
        if (what == " shows ")
            return (seen = Shown(said[1])) == said[3];
        if (what == " is hidden" || what == " is shown")
            return IsShown(said[1]) == (what == " is shown");
        if (what == "the document holds ")
            return (seen = form->GetXmlString(false).simplified()).contains(said[1]);
        seen = log.Take();
        return sentence.startsWith("the host is told") && seen.contains("si_par") != sentence.endsWith("nothing");
    }

private:
    static Form Tapped(const QString &definition)
    {
        Form form = Parse(definition);
        form->EvaluateScript("var printed = []; print = function (text) { printed.push('' + text); }");
        return form;
    }
};

} // namespace

class TestPages : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pagesSayWhatHolds_data()
    {
        const auto row = Columns<QString>({"page"});
        row("sheet", "Sheet");
        for (const ClassInfo &info : Registry::Classes())
            row(info.name, info.name);
    }
    void pagesSayWhatHolds()
    {
        const auto [name] = Fetch<QString>({"page"});
        const QString page = Page("reference/" + name);
        const QString example = Blocks(page, "xml").value(Blocks(page, "xml").size() - 1);
        const QString script = Blocks(page, "js").value(0);
        QVERIFY(name == "Sheet" || example.contains("class=\"" + name + '"'));
        QVERIFY(!script.isEmpty());
        QVERIFY2(!page.contains("`: \n"), "a member without a meaning");
        const ClassInfo *info = Registry::FindClass(name);
        for (const MemberInfo &row : info ? info->delegate->members : QVector<MemberInfo>()) {
            const QRegularExpression member("- `([\\w<>]+ )?" + QRegularExpression::escape(row.member) + "[(`]");
            QVERIFY2(page.contains(member), row.member);
        }
        QCOMPARE(Mistakes(example, false), QString());
        QCOMPARE(Mistakes(WithScript(example, script), false), QString());

        PrintingForm form(WithScript(example, script));
        QStringList expected;
        for (const QString &line : script.split('\n')) {
            const auto said = QRegularExpression("//.*-> (.*)$").match(line);
            const auto act
                = QRegularExpression("^// The (?:operator|host|document) (\\w+s .*)\\.(?: ->|$)").match(line);
            if (act.hasMatch())
                QVERIFY2(form.Do(act.captured(1)), qPrintable(line));
            if (said.hasMatch())
                expected.append(said.captured(1));
        }
        QCOMPARE(form.Printed().join('\n'), expected.join('\n'));
    }

    void tutorialDoesWhatItSays_data()
    {
        const auto row = Columns<int>({"step"});
        for (int step = 1; step <= 10; ++step)
            row(qPrintable(Page("authoring").section("\n## ", step, step).section('\n', 0, 0)), step);
    }
    void tutorialDoesWhatItSays()
    {
        const auto [step] = Fetch<int>({"step"});
        const QRegularExpression part("```(xml|js)\n(.*?)\n```|\n\\| ([^\n]+) \\| ([^\n]+) \\|(?=\n)",
            QRegularExpression::DotMatchesEverythingOption);
        const QString before = Page("authoring").section("\n## ", 1, step - 1);
        const QString page = (step > 1 ? before : QString()) + "\n## " + Page("authoring").section("\n## ", step, step);
        GrowingForm grown;
        std::unique_ptr<PrintingForm> form;
        int told = 0;
        for (auto parts = part.globalMatch(page); parts.hasNext();) {
            const auto match = parts.next();
            const QString act = match.captured(3), sights = match.captured(4), row = act + ": " + sights;
            if (act.isEmpty()) {
                form.reset();
                grown.Take(match.captured(1), match.captured(2));
            } else if (match.capturedStart() < before.size() || act == "Do") {
                continue;
            } else if (act == "check") {
                const QString mistakes = Mistakes(grown.Text, true);
                QCOMPARE(mistakes.isEmpty(), sights == "nothing is told");
                for (const QString &sight : sights.split("; "))
                    QVERIFY2(mistakes.contains(sight.section('`', 1, 1)), qPrintable(row + '\n' + mistakes));
            } else {
                if (!form)
                    form = std::make_unique<PrintingForm>(grown.Text);
                QVERIFY2(form->Do(act), qPrintable(row));
                QString seen;
                for (const QString &sight : sights.split("; "))
                    QVERIFY2(form->Sees(sight, seen), qPrintable(row + '\n' + seen));
            }
            told += !act.isEmpty();
        }
        QVERIFY(told > 0);
        if (step == 10)
            QCOMPARE(DefinitionLayout::OfText(grown.Text).GetText(), TextOf("examples/forms/tutorial.orbel"));
    }
};

ORBEL_TEST_MAIN(TestPages)
#include "tst_pages.moc"
