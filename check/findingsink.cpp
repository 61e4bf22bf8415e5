#include "findingsink.h"

#include "filetext.h"

#include <algorithm>

namespace Orbel
{

namespace
{

constexpr int MostSuggestions = 100;

} // namespace

void FindingSink::Add(Code code, int place, const QString &text)
{
    Entries.append({code, place, text});
}

QString FindingSink::Suggest(const QString &name, const QStringList &names)
{
    return ++Suggestions > MostSuggestions ? QString() : DidYouMean(name, names);
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
            entry.Text});
    }
    return findings;
}

} // namespace Orbel
