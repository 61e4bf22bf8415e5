// Forms as people write them, right and wrong: each entry of tests/corpus shows by what the library makes of it that it
// is what it is said to be. tests/corpus/README.md tells how entries are written.

#include "componentlist.h"
#include "liveform.h"
#include "orbelcheck.h"

namespace
{

/// Lines of a text that tell of a mistake, and of these one suffices.
struct Place {
    QString Text;
    QSet<int> Lines;
};

struct Entry {
    QString Name;
    /// The form, or a component list, as "form", and what stands beside it: "document", "changed".
    QMap<QString, QString> Texts;
    QVector<Place> Mistakes;
    QStringList Acts;
    QStringList Shows;
};

Place PlaceOf(const QString &text, const QString &lines, const QString &marks)
{
    Place place{text, {}};
    const QStringList split = lines.split('\n');
    for (int i = 0; i < split.size(); ++i) {
        for (const QString &mark : marks.split(" || ")) {
            if (split[i].contains(mark) || mark == "*")
                place.Lines << i + 1;
        }
    }
    return place;
}

QVector<Entry> Load(const QString &path)
{
    QVector<Entry> entries;
    QString text;
    for (const QString &line : QString::fromUtf8(BytesOf(path)).split('\n')) {
        const QString word = line.section(' ', 1, 1);
        const QString rest = line.section(' ', 2);
        if (line.startsWith("=== ")) {
            entries << Entry{line.mid(4), {}, {}, {}, {}};
            text = "form";
        } else if (entries.isEmpty()) {
            continue;
        } else if (!line.startsWith("--- ")) {
            entries.last().Texts[text] += line + '\n';
        } else if (word == "at") {
            entries.last().Mistakes << PlaceOf(text, entries.last().Texts[text], rest);
        } else if (word == "do") {
            entries.last().Acts << rest;
        } else if (word == "shows") {
            entries.last().Shows << rest;
        } else {
            text = word;
        }
    }
    return entries;
}

/// The files of the corpus, or those of another folder.
QVector<Entry> AllEntries()
{
    const QString other = qEnvironmentVariable("ORBEL_CORPUS");
    QVector<Entry> entries;
    const QDir folder(other.isEmpty() ? ORBEL_SOURCE_DIR "/tests/corpus" : other);
    for (const QString &file : folder.entryList({"*.txt"}))
        entries += Load(folder.filePath(file));
    return entries;
}

/// The first form of a component list, and any other text as it stands.
QByteArray FormOf(const QByteArray &text)
{
    QXmlStreamReader reader(text);
    QByteArray found;
    ForEachDefinition(reader, [&](const QString &, const QString &form) {
        if (found.isEmpty())
            found = form.toUtf8();
    });
    return found.isEmpty() ? text : found;
}

/// The form of an entry on the screen; as "seen" what scripts ask of it once it is there.
class Seen : public QObject, public LiveForm
{
    Q_OBJECT

public:
    explicit Seen(const Form &parsed) : LiveForm(parsed, "/Form", {500, 700}) { }
    void Act(const QString &act)
    {
        const QString path = act.section(' ', 1, 1);
        const QString value = act.section(" = ", 1);
        if (act.startsWith("run "))
            form->EvaluateScript(act.mid(4));
        else if (act.startsWith("choose "))
            Choose(path, value);
        else if (act.startsWith("enter "))
            Enter(path, value);
        else if (act.startsWith("type "))
            Type(path, value);
        else if (act.startsWith("press "))
            Press(act.mid(6));
        else if (act.startsWith("click "))
            Click(path);
        else
            QFAIL(qPrintable("no such act: " + act));
    }

    Q_INVOKABLE QString text(const QString &path) const { return Shown(path); }
    Q_INVOKABLE QString label(const QString &path) const
    {
        const QString text = Label(path);
        for (const QLabel *label : window->findChildren<QLabel *>()) {
            if (label->text() == text && label->isVisible())
                return text;
        }
        return QString();
    }
    Q_INVOKABLE QString tip(const QString &path) const { return ToolTip(path); }
    Q_INVOKABLE QString note(const QString &path) const { return Note(path); }
    Q_INVOKABLE QString choices(const QString &path) const { return Choices(path).join(','); }
    Q_INVOKABLE QString controls() const { return Names(form); }
    Q_INVOKABLE QString document() const { return form->GetXmlSnapshot(false).simplified().replace("> <", "><"); }
    Q_INVOKABLE QString version() const { return form->GetVersion(); }
    Q_INVOKABLE bool shown(const QString &path) const { return IsShown(path); }
    Q_INVOKABLE bool editable(const QString &path) const { return CanEdit(path); }
    Q_INVOKABLE int width(const QString &path) const { return LiveForm::Find<QWidget>(path)->width(); }
    Q_INVOKABLE int height(const QString &path) const { return LiveForm::Find<QWidget>(path)->height(); }
    Q_INVOKABLE bool has(const QString &name) const { return Find(name) != nullptr; }
};

} // namespace

Q_DECLARE_METATYPE(Entry)

class TestCorpus : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aFormIsWhatItIsSaidToBe_data();
    void aFormIsWhatItIsSaidToBe();
    void theCheckerFindsMistakesAndNothingElse();
};

void TestCorpus::aFormIsWhatItIsSaidToBe_data()
{
    QTest::addColumn<Entry>("entry");
    for (const Entry &entry : AllEntries())
        QTest::newRow(qPrintable(entry.Name)) << entry;
}

void TestCorpus::aFormIsWhatItIsSaidToBe()
{
    QFETCH(Entry, entry);
    QStringList thrown;
    QString wrong;
    for (const Place &place : entry.Mistakes) {
        if (place.Lines.isEmpty())
            wrong += "\nno line of the " + place.Text + " is the one to look at";
    }
    const Form form(OrbelParser().ParseORBEL(FormOf(entry.Texts["form"].toUtf8())));
    if (!form) {
        QCOMPARE(entry.Shows, QStringList("no form"));
        return;
    }
    connect(form.data(), &OrbelFormular::si_scriptFailed, this, [&](int, const QString &text) { thrown << text; });
    form->SetScriptLimit(1000);
    Seen seen(form);
    if (entry.Texts.contains("changed"))
        form->SetChangedORBEL(entry.Texts["changed"]);
    if (entry.Texts.contains("document"))
        form->SetXmlString(entry.Texts["document"]);
    for (const QString &act : entry.Acts)
        seen.Act(act);
    Orbel::Settle();
    form->SetScriptValue("seen", &seen);
    QScriptEngine *const engine = form->GetScriptValues().first().engine();
    for (const QString &shows : entry.Shows) {
        const int arrow = shows.lastIndexOf(" => ");
        const QString is = arrow < 0 ? thrown.join("; ") : engine->evaluate(shows.left(arrow)).toString();
        const bool same
            = arrow < 0 ? shows.startsWith("throws ") && is.contains(shows.mid(7)) : is == shows.mid(arrow + 4);
        if (!same)
            wrong += "\nit is said: " + shows + "\nit shows:   " + is;
    }
    if (!thrown.isEmpty() && entry.Shows.filter(QRegularExpression("^throws ")).isEmpty())
        wrong += "\nit throws " + thrown.join("; ");
    QVERIFY2(wrong.isEmpty() && !entry.Shows.isEmpty(), qPrintable(wrong));
}

/// What the checker tells of a text of an entry.
Orbel::Findings FindingsIn(const Entry &entry, const QString &text)
{
    using Orbel::Check;
    const QByteArray form = entry.Texts["form"].toUtf8();
    const QByteArray bytes = entry.Texts[text].toUtf8();
    if (text == "changed")
        return Check::Changed(bytes, form);
    if (text == "document")
        return Check::Parameters(bytes, form);
    const bool isList = form.contains("<ValueString");
    return isList ? Check::ComponentList(form) + Check::RunComponentList(form, 1000)
                  : Check::Definition(form) + Check::RunDefinition(form, 1000);
}

/// At least 95 of 100 mistakes have a finding in one of the lines to look at, and nothing else is blamed.
void TestCorpus::theCheckerFindsMistakesAndNothingElse()
{
    int mistakes = 0;
    QStringList missed;
    QStringList blamed;
    QMap<QString, QPair<int, int>> kinds;
    for (const Entry &entry : AllEntries()) {
        QMap<QString, Orbel::Findings> found;
        for (const QString &text : entry.Texts.keys())
            found[text] = FindingsIn(entry, text);
        for (const Place &place : entry.Mistakes) {
            const Orbel::Findings &findings = found[place.Text];
            const bool isFound = std::any_of(findings.cbegin(), findings.cend(),
                [&](const Orbel::Finding &finding) { return place.Lines.contains(finding.Line); });
            ++mistakes;
            ++kinds[entry.Name.section(':', 0, 0)].first;
            kinds[entry.Name.section(':', 0, 0)].second += isFound ? 1 : 0;
            if (!isFound)
                missed << entry.Name;
        }
        for (const QString &text : entry.Mistakes.isEmpty() ? found.keys() : QStringList()) {
            for (const Orbel::Finding &finding : found[text]) {
                if (finding.Level != Orbel::Severity::Note)
                    blamed << QString("%1: %2 %3 [%4]").arg(entry.Name, text).arg(finding.Line).arg(finding.Text + ' ' + finding.Code);
            }
        }
    }
    for (auto kind = kinds.cbegin(); kind != kinds.cend(); ++kind)
        qInfo("%s: %d of %d", qPrintable(kind.key()), kind->second, kind->first);
    qInfo("%d of %d mistakes are found\nmissed:\n%s", mistakes - missed.size(), mistakes, qPrintable(missed.join('\n')));
    QVERIFY2(blamed.isEmpty(), qPrintable(blamed.join('\n')));
    QVERIFY(missed.size() * 20 <= mistakes);
}

ORBEL_TEST_MAIN(TestCorpus)

#include "tst_corpus.moc"
