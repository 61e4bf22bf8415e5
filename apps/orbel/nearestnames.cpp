#include "nearestnames.h"

#include <QVector>

#include <algorithm>
#include <numeric>

namespace
{

/// The least number of single-letter edits between two texts.
int EditDistance(const QString &from, const QString &to)
{
    // Distances from the part of `from` read so far to each beginning of `to`.
    QVector<int> distances(to.size() + 1);
    std::iota(distances.begin(), distances.end(), 0);
    for (const QChar letter : from) {
        int diagonal = distances[0]++;
        for (int j = 0; j < to.size(); ++j) {
            const int replaced = diagonal + (letter == to[j] ? 0 : 1);
            diagonal = distances[j + 1];
            distances[j + 1] = std::min({replaced, diagonal + 1, distances[j] + 1});
        }
    }
    return distances.constLast();
}

} // namespace

QStringList NearestNames(const QString &name, const QStringList &names, int count)
{
    struct Candidate {
        QString Name;
        int Distance;
    };
    QStringList distinct = names;
    distinct.removeDuplicates();
    QVector<Candidate> candidates;
    for (const QString &candidate : qAsConst(distinct))
        candidates.append({candidate, EditDistance(name.toLower(), candidate.toLower())});
    std::stable_sort(candidates.begin(), candidates.end(),
        [](const Candidate &a, const Candidate &b) { return a.Distance < b.Distance; });
    QStringList nearest;
    for (const Candidate &candidate : qAsConst(candidates)) {
        if (nearest.size() < count)
            nearest.append(candidate.Name);
    }
    return nearest;
}
