#include "measure.h"

#include <algorithm>
#include <ctime>
#include <QStringList>

namespace measure
{

namespace
{

constexpr double AllowedSpread = 1.5;

double Now()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e9 + double(now.tv_nsec);
}

double Median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    const int middle = values.size() / 2;
    return values.size() % 2 ? values.at(middle) : (values.at(middle - 1) + values.at(middle)) / 2;
}

double Spread(const QVector<double> &values)
{
    const auto ends = std::minmax_element(values.begin(), values.end());
    return *ends.second / *ends.first;
}

QString Amount(double amount, Unit unit)
{
    if (unit == Unit::Times)
        return QString::number(amount, 'f', 2);
    if (unit == Unit::Bytes)
        return QStringLiteral("%1 KB").arg(amount / 1024, 0, 'f', 1);
    if (amount < 1e3)
        return QStringLiteral("%1 ns").arg(amount, 0, 'f', 0);
    if (amount < 1e6)
        return QStringLiteral("%1 us").arg(amount / 1e3, 0, 'f', amount < 1e5 ? 1 : 0);
    return QStringLiteral("%1 ms").arg(amount / 1e6, 0, 'f', 1);
}

/// The goals of a column, for the sizes of the table.
QString Told(const QVector<Goal> &goals, double Goal::*number, const QVector<int> &sizes)
{
    QStringList told;
    for (const Goal &goal : goals) {
        if (goal.*number > 0 && sizes.contains(goal.size))
            told << QString::number(goal.*number)
                    + (told.isEmpty() ? QString() : QStringLiteral(" at %1").arg(goal.size));
    }
    return told.join(QLatin1String(", "));
}

double MustAt(const Row &row, int size)
{
    const auto goal
        = std::find_if(row.goals.begin(), row.goals.end(), [size](const Goal &each) { return each.size == size; });
    return goal == row.goals.end() ? 0 : goal->must;
}

QString RatioText(const Row &row, int size, const Cell &cell)
{
    QString text = QString::number(cell.ratio, 'f', 2);
    if (MustAt(row, size) > 0 && cell.ratio > MustAt(row, size))
        text += QLatin1String(" (!)");
    if (cell.spread > AllowedSpread)
        text += QLatin1String(" (~)");
    return text;
}

QString Joined(const QStringList &fields)
{
    return QLatin1String("| ") + fields.join(QLatin1String(" | ")) + QLatin1String(" |\n");
}

} // namespace

double TimeOf(const std::function<void()> &work)
{
    const double start = Now();
    work();
    return Now() - start;
}

Cell Compare(const Measured &ours, const Measured &peer, int repeats)
{
    QVector<double> oursTaken;
    QVector<double> peerTaken;
    ours();
    peer();
    for (int i = 0; i < repeats; ++i) {
        // Neither side always comes behind the other.
        if (i % 2 == 0)
            oursTaken.append(ours());
        peerTaken.append(peer());
        if (i % 2 == 1)
            oursTaken.append(ours());
    }
    QVector<double> ratios;
    for (int i = 0; i < repeats; ++i)
        ratios.append(oursTaken.at(i) / peerTaken.at(i));
    return {Median(oursTaken), Median(peerTaken), Median(ratios), std::max(Spread(oursTaken), Spread(peerTaken))};
}

QStringList Broken(const Row &row)
{
    QStringList broken;
    for (const auto &cell : row.cells) {
        const double must = MustAt(row, cell.first);
        const double ratio = cell.second.ratio;
        if (must > 0 && ratio > must * cell.second.spread)
            broken << QStringLiteral("%1, at %2: %3 is over %4, and turns spread %5 times only")
                          .arg(row.title)
                          .arg(cell.first)
                          .arg(ratio, 0, 'f', 2)
                          .arg(must)
                          .arg(cell.second.spread, 0, 'f', 2);
    }
    return broken;
}

QString Heading(const QVector<int> &sizes)
{
    QStringList fields{QStringLiteral("Ratio"), QStringLiteral("must"), QStringLiteral("aim")};
    QStringList rule{QStringLiteral("---"), QStringLiteral("---"), QStringLiteral("---")};
    for (int size : sizes) {
        fields << QString::number(size);
        rule << QStringLiteral("---");
    }
    fields << QStringLiteral("ours") << QStringLiteral("peer") << QStringLiteral("spread");
    rule << QStringLiteral("---") << QStringLiteral("---") << QStringLiteral("---");
    return Joined(fields) + Joined(rule);
}

QString Line(const Row &row, const QVector<int> &sizes)
{
    QStringList fields{row.title, Told(row.goals, &Goal::must, sizes), Told(row.goals, &Goal::aim, sizes)};
    QStringList amounts{QString(), QString(), QString()};
    for (int size : sizes) {
        const auto cell = std::find_if(
            row.cells.begin(), row.cells.end(), [size](const QPair<int, Cell> &made) { return made.first == size; });
        fields << (cell == row.cells.end() ? QString() : RatioText(row, size, cell->second));
        // The amounts are those of the size that the goals count for.
        if (cell != row.cells.end() && size == row.goals.constFirst().size)
            amounts = QStringList{Amount(cell->second.ours, row.unit), Amount(cell->second.peer, row.unit),
                QString::number(cell->second.spread, 'f', 2)};
    }
    return Joined(fields + amounts);
}

} // namespace measure
