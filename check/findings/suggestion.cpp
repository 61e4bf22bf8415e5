#include "suggestion.h"

#include "editdistance.h"

#include <QRegularExpression>

#include <algorithm>

namespace Orbel
{

namespace
{

constexpr int MostNames = 10;

} // namespace

QString NearestName(const QString &name, const QStringList &names)
{
    QString nearest;
    int least = qMax(1, name.size() / 3) + 1;
    for (const QString &candidate : names) {
        // The shortest way to another length is longer already.
        if (candidate == name || qAbs(name.size() - candidate.size()) >= least)
            continue;
        const int distance = EditDistance(name.toLower(), candidate.toLower());
        if (distance < least && distance < candidate.size()) {
            nearest = candidate;
            least = distance;
        }
    }
    return nearest;
}

QString MisspeltName(const QString &name, const QStringList &names)
{
    static const QRegularExpression digits(QStringLiteral("\\d"));
    const QString stem = QString(name).remove(digits);
    const bool isNumbered = std::any_of(names.cbegin(), names.cend(),
        [&](const QString &other) { return other != name && QString(other).remove(digits) == stem; });
    return isNumbered ? QString() : NearestName(name, names);
}

QString DidYouMean(const QString &name, const QStringList &names)
{
    return DidYouMean(NearestName(name, names));
}

QString DidYouMean(const QString &nearest)
{
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
