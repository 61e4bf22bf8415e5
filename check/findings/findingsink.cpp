#include "findingsink.h"

#include "filetext.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace Orbel
{

namespace
{

constexpr int MostSuggestions = 100;
/// Characters of one text of the file that a finding repeats.
constexpr int MostQuoted = 80;

/// A finding is one line, whatever stands in the file.
QString Printable(const QString &text)
{
    QString line;
    for (const QChar letter : text) {
        const QChar::Category kind = letter.category();
        if (letter == QLatin1Char('\n'))
            line += QLatin1String("\\n");
        else if (letter == QLatin1Char('\t'))
            line += QLatin1String("\\t");
        else if (kind == QChar::Separator_Line || kind == QChar::Separator_Paragraph)
            line += QStringLiteral("\\u%1").arg(int(letter.unicode()), 4, 16, QLatin1Char('0'));
        else if (kind == QChar::Other_Control)
            line += QStringLiteral("\\x%1").arg(int(letter.unicode()), 2, 16, QLatin1Char('0'));
        else
            line += letter;
    }
    return line;
}

/// Cuts what stands in quotation marks. A mark inside a quoted text ends it only where a word could end.
QString Shortened(const QString &text)
{
    static const QRegularExpression quoted(QStringLiteral("(?<![^ (])\"(.*?)\"(?=$|[ ,;.?)])"));
    QString shorter;
    int from = 0;
    for (auto match = quoted.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        if (found.capturedLength(1) <= MostQuoted)
            continue;
        const bool splits = text.at(found.capturedStart(1) + MostQuoted - 1).isHighSurrogate();
        shorter += text.midRef(from, found.capturedStart(1) - from)
            + found.capturedRef(1).left(MostQuoted - (splits ? 1 : 0)) + QStringLiteral("...");
        from = found.capturedEnd(1);
    }
    return shorter + text.midRef(from);
}

/// Whether a place stands in <![CDATA[ ]]>, where nothing is escaped.
bool IsInSection(const QString &text, int place)
{
    return place > 0
        && text.lastIndexOf(QLatin1String("<![CDATA["), place - 1) > text.lastIndexOf(QLatin1String("]]>"), place - 1);
}

/// An empty text stands nowhere.
FindingEdit EditOf(const Mend &mend, const FileText &file)
{
    if (mend.Becomes.contains(QLatin1Char('&')) && IsInSection(file.Text(), mend.Place))
        return FindingEdit();
    if (mend.Is.isEmpty() || mend.Is == mend.Becomes || file.Text().midRef(mend.Place, mend.Is.size()) != mend.Is)
        return FindingEdit();
    return {mend.Place, mend.Is.size(), mend.Becomes};
}

} // namespace

void FindingSink::Add(Code code, int place, const QString &text, const Mend &mend)
{
    Entries.append({code, place, Shortened(Printable(text)), mend});
}

void FindingSink::AddMisspelt(Code code, int place, const QString &text, const QString &name, const QStringList &names)
{
    const QString meant = Nearest(name, names);
    if (meant.isEmpty())
        Add(code, place, text);
    else
        Add(code, place, text + DidYouMean(meant), Mend{place, name, meant.toHtmlEscaped()});
}

QString FindingSink::Suggest(const QString &name, const QStringList &names)
{
    return DidYouMean(Nearest(name, names));
}

QString FindingSink::Nearest(const QString &name, const QStringList &names)
{
    return ++Suggestions > MostSuggestions ? QString() : NearestName(name, names);
}

void FindingSink::TakeNew(const FindingSink &other, const FindingSink &known)
{
    QHash<QPair<int, QString>, int> counts;
    for (const Entry &entry : known.Entries)
        ++counts[{int(entry.What), entry.Text}];
    QSet<QPair<int, int>> told;
    for (const Entry &entry : qAsConst(Entries))
        told.insert({int(entry.What), entry.Place});
    for (const Entry &entry : other.Entries) {
        if (counts[{int(entry.What), entry.Text}]-- > 0 || told.contains({int(entry.What), entry.Place}))
            continue;
        told.insert({int(entry.What), entry.Place});
        Entries.append(entry);
    }
}

bool FindingSink::Has(Code code) const
{
    return std::any_of(Entries.cbegin(), Entries.cend(), [code](const Entry &entry) { return entry.What == code; });
}

Findings FindingSink::Sorted(const FileText &file) const
{
    QVector<Entry> entries = Entries;
    std::stable_sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) { return a.Place < b.Place; });
    Findings findings;
    findings.reserve(entries.size());
    for (const Entry &entry : qAsConst(entries)) {
        const CodeInfo &info = InfoOf(entry.What);
        findings.append({file.LineOf(entry.Place), file.ColumnOf(entry.Place), info.severity, QLatin1String(info.name),
            entry.Text, EditOf(entry.Edit, file)});
    }
    return findings;
}

} // namespace Orbel
