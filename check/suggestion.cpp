#include "suggestion.h"

#include <QVector>

#include <algorithm>
#include <numeric>

namespace Orbel
{

namespace
{

constexpr int MostNames = 10;

/// The least number of single-letter edits between two texts; any number above `most` when there are more than that.
int EditDistance(const QString &from, const QString &to, int most)
{
    if (qAbs(from.size() - to.size()) > most)
        return most + 1;
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

QString NearestName(const QString &name, const QStringList &names)
{
    QString nearest;
    int least = qMax(1, name.size() / 3) + 1;
    for (const QString &candidate : names) {
        const int distance = EditDistance(name.toLower(), candidate.toLower(), least - 1);
        if (distance < least && distance < candidate.size()) {
            nearest = candidate;
            least = distance;
        }
    }
    return nearest;
}

QString DidYouMean(const QString &name, const QStringList &names)
{
    const QString nearest = NearestName(name, names);
    return nearest.isEmpty() ? QString() : QStringLiteral("; did you mean \"%1\"?").arg(nearest);
}

QString Quoted(const QStringList &names)
{
    QStringList quoted;
    for (const QString &name : names.mid(0, MostNames))
        quoted.append(QLatin1Char('"') + name + QLatin1Char('"'));
    const int rest = names.size() - quoted.size();
    return quoted.join(QLatin1String(", ")) + (rest > 0 ? QStringLiteral(" and %1 more").arg(rest) : QString());
}

} // namespace Orbel
