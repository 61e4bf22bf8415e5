// Forms as people write them, right and wrong: each entry of tests/corpus shows by what the library makes of it that it
// is what it is said to be. The README there tells how entries are written.

#include "componentlist.h"
#include "liveform.h"
#include "orbelcheck.h"

namespace
{

struct Entry {
    QString Name;
    /// The form, or a component list, as "form", and what stands beside it: "document", "changed".
    QMap<QString, QString> Texts;
    struct Mistake {
        QString Text;
        /// Those that tell of it, from 1; one of them suffices.
        QSet<int> Lines;
        /// As the README tells: "at", "untold" or "also".
        QString Kind;
    };
    QVector<Mistake> Mistakes;
    QStringList Acts;
    QStringList Shows;
};

/// The lines that contain one of the marks.
QSet<int> LinesWith(const QStringList &marks, const QStringList &lines)
{
    QSet<int> found;
    for (int i = 0; i < lines.size(); ++i) {
        for (const QString &mark : marks)
            if (lines[i].contains(mark) || mark == "*")
                found << i + 1;
    }
    return found;
}

/// The entries of the corpus, or of the files in another folder.
QVector<Entry> AllEntries()
{
    const QString other = qEnvironmentVariable("ORBEL_CORPUS");
    const QDir folder(other.isEmpty() ? ORBEL_SOURCE_DIR "/tests/corpus" : other);
    QString lines;
    for (const QString &file : folder.entryList({"*.txt"}))
        lines += BytesOf(folder.filePath(file));
    QVector<Entry> entries;
    QString text;
    for (const QString &line : lines.split('\n')) {
        const QString word = line.section(' ', 1, 1);
        const QString rest = line.section(' ', 2);
        if (line.startsWith("=== ")) {
            entries << Entry{line.mid(4), {}, {}, {}, {}};
            text = "form";
        } else if (!line.startsWith("--- "))
            entries.last().Texts[text] += line + '\n';
        else if (word == "at" || word == "untold" || word == "also")
            entries.last().Mistakes << Entry::Mistake{
                text, LinesWith(rest.split(" || "), entries.last().Texts[text].split('\n')), word};
        else if (word == "do")
            entries.last().Acts << rest;
        else if (word == "shows")
            entries.last().Shows << rest;
        else
            text = word;
    }
    return entries;
}

/// The last form of a component list, and any other text as it stands.
QByteArray FormOf(const QByteArray &text)
{
    QXmlStreamReader reader(text);
    QByteArray found = text;
    ForEachDefinition(reader, [&](const QString &, const QString &form) { found = form.toUtf8(); });
    return found;
}

/// What the checker tells of each text of an entry.
QMap<QString, Orbel::Findings> FindingsIn(const QMap<QString, QString> &texts)
{
    using Orbel::Check;
    const QByteArray form = texts["form"].toUtf8();
    const bool isList = !form.contains("<ZkParamGui");
    QMap<QString, Orbel::Findings> found;
    found["form"] = isList ? Check::ComponentList(form) + Check::RunComponentList(form, 1000)
                           : Check::Definition(form) + Check::RunDefinition(form, 1000);
    if (texts.contains("changed"))
        found["changed"] = Check::Changed(texts["changed"].toUtf8(), form);
    if (texts.contains("document"))
        found["document"] = Check::Parameters(texts["document"].toUtf8(), form);
    return found;
}

/// The form of an entry on the screen: what the operator does there by name, and as "seen" what scripts ask of it.
class Seen : public QObject, public LiveForm
{
    Q_OBJECT

public:
    explicit Seen(const Form &parsed) : LiveForm(parsed, "/Form", {500, 700}) { }

    Q_INVOKABLE void choose(const QString &path, const QString &text) { Choose(path, text); }
    Q_INVOKABLE void enter(const QString &path, const QString &text) { Enter(path, text); }
    Q_INVOKABLE void type(const QString &path, const QString &text) { Type(path, text); }
    Q_INVOKABLE void click(const QString &path, const QString &) { Click(path); }
    Q_INVOKABLE void press(const QString &keys, const QString &) { Press(keys); }
    Q_INVOKABLE void run(const QString &script, const QString &) { form->EvaluateScript(script); }

    Q_INVOKABLE QString text(const QString &path) const { return Shown(path); }
    Q_INVOKABLE QString choices(const QString &path) const { return Choices(path).join(','); }
    Q_INVOKABLE QString controls() const { return Names(form); }
    Q_INVOKABLE QString document() const { return form->GetXmlSnapshot(false).simplified().replace("> <", "><"); }
    Q_INVOKABLE QString version() const { return form->GetVersion(); }
    Q_INVOKABLE bool shown(const QString &path) const { return IsShown(path); }
    Q_INVOKABLE bool editable(const QString &path) const { return CanEdit(path); }
    Q_INVOKABLE bool has(const QString &name) const { return Find(name) != nullptr; }
    Q_INVOKABLE QString label(const QString &path) const
    {
        const QList<QLabel *> labels = window->findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(),
                   [text = Label(path)](QLabel *label) { return label->text() == text && label->isVisible(); })
            ? Label(path)
            : QString();
    }
};

/// What a form shows otherwise than the entry says, and what it throws unless that is said.
QString Differences(const Entry &entry, const Form &form)
{
    QStringList thrown;
    const QObject life;
    QObject::connect(
        form.data(), &OrbelFormular::si_scriptFailed, &life, [&](int, const QString &text) { thrown << text; });
    form->SetScriptLimit(1000);
    Seen seen(form);
    form->SetChangedORBEL(entry.Texts["changed"]);
    form->SetXmlString(entry.Texts["document"]);
    for (const QString &act : entry.Acts)
        QMetaObject::invokeMethod(&seen, qPrintable(act.section(' ', 0, 0)),
            Q_ARG(QString, act.section(' ', 1).section(" = ", 0, 0)), Q_ARG(QString, act.section(" = ", 1)));
    Orbel::Settle();
    form->SetScriptValue("seen", &seen);
    QString told = entry.Shows.filter("throws ").isEmpty() && !thrown.isEmpty() ? "throws " + thrown.join("; ") : "";
    for (const QString &said : entry.Shows) {
        const int arrow = said.lastIndexOf(" => ");
        const QString is = arrow < 0 ? "throws " + thrown.filter(said.mid(7)).join("; ")
                                     : form->GetScriptValues().first().engine()->evaluate(said.left(arrow)).toString();
        if (arrow < 0 ? is == "throws " : is != said.mid(arrow + 4))
            told += "\nit is said: " + said + "\nit shows:   " + is;
    }
    return told;
}

} // namespace

Q_DECLARE_METATYPE(Entry)

class TestCorpus : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aFormIsWhatItIsSaidToBe_data()
    {
        QTest::addColumn<Entry>("entry");
        for (const Entry &entry : AllEntries())
            QTest::newRow(qPrintable(entry.Name)) << entry;
    }
    void aFormIsWhatItIsSaidToBe()
    {
        QFETCH(Entry, entry);
        for (const auto &mistake : entry.Mistakes)
            QVERIFY2(!mistake.Lines.isEmpty(), "no line is the one to look at");
        const Form form(OrbelParser().ParseORBEL(FormOf(entry.Texts["form"].toUtf8())));
        QCOMPARE(form ? Differences(entry, form) : entry.Shows.join("\n").remove("no form"), QString());
    }

    /// One by one as the entries say, so that what is found once stays found; the page for authors has the sums.
    void theCheckerFindsMistakesAndNothingElse()
    {
        int all = 0;
        int untold = 0;
        int right = 0;
        QStringList wrong;
        for (const Entry &entry : AllEntries()) {
            const QMap<QString, Orbel::Findings> found = FindingsIn(entry.Texts);
            QMap<QString, QSet<int>> lines;
            for (const Entry::Mistake &mistake : entry.Mistakes) {
                lines[mistake.Text] += mistake.Lines;
                const Orbel::Findings &findings = found[mistake.Text];
                const bool isTold = std::any_of(findings.cbegin(), findings.cend(),
                    [&](const Orbel::Finding &finding) { return mistake.Lines.contains(finding.Line); });
                wrong << (isTold == (mistake.Kind != "untold") ? QStringList() : QStringList(entry.Name));
                all += mistake.Kind == "also" ? 0 : 1;
                untold += mistake.Kind == "untold" ? 1 : 0;
            }
            right += entry.Mistakes.isEmpty() ? 1 : 0;
            for (const QString &text : found.keys()) {
                for (const Orbel::Finding &each : found[text])
                    if (each.Level != Orbel::Severity::Note && !lines[text].contains(each.Line))
                        wrong << QString("%1: %2 %3 [%4]").arg(entry.Name).arg(each.Line).arg(each.Text, each.Code);
            }
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join('\n')));
        const QString sums = "Of the %1 mistakes in `tests/corpus` it finds %2, and blames none of the %3 forms there";
        QVERIFY(
            BytesOf(ORBEL_SOURCE_DIR "/docs/checks.md").contains(sums.arg(all).arg(all - untold).arg(right).toUtf8()));
    }
};

ORBEL_TEST_MAIN(TestCorpus)

#include "tst_corpus.moc"
