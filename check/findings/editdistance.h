#pragma once

#include <QString>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace Orbel
{

/// The least number of letters to insert, remove and replace, and of neighbours to swap, that makes one text the other.
inline int EditDistance(const QString &from, const QString &to)
{
    // Distances from the part of `from` read so far to each beginning of `to`, and those of the last two parts.
    QVector<int> distances(to.size() + 1);
    std::iota(distances.begin(), distances.end(), 0);
    QVector<int> before(distances.size());
    QVector<int> earlier(distances.size());
    for (int i = 0; i < from.size(); ++i) {
        earlier.swap(before);
        before.swap(distances);
        distances[0] = i + 1;
        for (int j = 0; j < to.size(); ++j) {
            const int replaced = before[j] + (from[i] == to[j] ? 0 : 1);
            distances[j + 1] = std::min({replaced, before[j + 1] + 1, distances[j] + 1});
            if (i > 0 && j > 0 && from[i] == to[j - 1] && from[i - 1] == to[j])
                distances[j + 1] = std::min(distances[j + 1], earlier[j - 1] + 1);
        }
    }
    return distances.constLast();
}

} // namespace Orbel
