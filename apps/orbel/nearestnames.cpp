#include "nearestnames.h"

#include "editdistance.h"

namespace Orbel
{

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
        const bool isNear = candidate.Distance <= qMax(name.size(), candidate.Name.size()) / 2;
        if (nearest.size() < count && (isNear || nearest.isEmpty()))
            nearest.append(candidate.Name);
    }
    return nearest;
}

} // namespace Orbel
