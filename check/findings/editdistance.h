#pragma once

#include <QString>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace Orbel
{

/// The least number of letters to insert, remove and replace that makes one text the other.
inline int EditDistance(const QString &from, const QString &to)
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

} // namespace Orbel
