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
    /// For each mistake one of the texts and its lines that tell of it, from 1; one of them suffices.
    QVector<QPair<QString, QSet<int>>> Mistakes;
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
        else if (word == "at")
            entries.last().Mistakes << qMakePair(
                text, LinesWith(rest.split(" || "), entries.last().Texts[text].split('\n')));
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
            QVERIFY2(!mistake.second.isEmpty(), "no line is the one to look at");
        const Form form(OrbelParser().ParseORBEL(FormOf(entry.Texts["form"].toUtf8())));
        QCOMPARE(form ? Differences(entry, form) : entry.Shows.join("\n").remove("no form"), QString());
    }

    /// At least 95 of 100 mistakes are told in one of the lines to look at, and nothing else is blamed.
    void theCheckerFindsMistakesAndNothingElse()
    {
        QMap<QString, QPair<int, int>> kinds; // found, and all
        QStringList missed;
        QStringList blamed;
        for (const Entry &entry : AllEntries()) {
            const QMap<QString, Orbel::Findings> found = FindingsIn(entry.Texts);
            for (const auto &[text, lines] : entry.Mistakes) {
                const bool isFound = std::any_of(found[text].cbegin(), found[text].cend(),
                    [&, &at = lines](const Orbel::Finding &finding) { return at.contains(finding.Line); });
                for (const QString &kind : {entry.Name.section(':', 0, 0), QString("all")}) {
                    kinds[kind].first += isFound ? 1 : 0;
                    ++kinds[kind].second;
                }
                missed << (isFound ? QStringList() : QStringList(entry.Name));
            }
            for (const QString &text : entry.Mistakes.isEmpty() ? found.keys() : QStringList()) {
                for (const Orbel::Finding &each : found[text])
                    if (each.Level != Orbel::Severity::Note)
                        blamed << QString("%1: %2 %3 [%4]").arg(entry.Name).arg(each.Line).arg(each.Text, each.Code);
            }
        }
        for (auto kind = kinds.cbegin(); kind != kinds.cend(); ++kind)
            qInfo("%s: %d of %d", qPrintable(kind.key()), kind->first, kind->second);
        qInfo("missed:\n%s", qPrintable(missed.join('\n')));
        QVERIFY2(blamed.isEmpty(), qPrintable(blamed.join('\n')));
        QVERIFY(missed.size() * 20 <= kinds["all"].second);
    }
};

ORBEL_TEST_MAIN(TestCorpus)

#include "tst_corpus.moc"
