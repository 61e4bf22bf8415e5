#pragma once

#include <functional>
#include <QStringList>
#include <QVector>

/// How two pieces of work are measured side by side, and how the result is printed.
namespace measure
{

/// A count of something; what matters is that both sides count the same: nanoseconds, or bytes.
using Measured = std::function<double()>;

/// Nanoseconds of processor time that this process takes for a piece of work. Other programs of the machine do not
/// count.
double TimeOf(const std::function<void()> &work);

/// Both sides at one size of the form: medians, the median of the turns' ratios, and the greater of the two quotients
/// of worst and best repeat.
struct Cell {
    double ours = 0;
    double peer = 0;
    double ratio = 0;
    double spread = 0;
};

/// Measures in turns, after one turn that does not count.
Cell Compare(const Measured &ours, const Measured &peer, int repeats);

/// What a ratio must not exceed in a form of so many controls, and what it should come to. A must of 0 is none.
struct Goal {
    int size = 1000;
    double must = 0;
    double aim = 0;
};

/// What the amounts of a row count.
enum class Unit { Nanoseconds, Bytes, Times };

/// One line of the table. The amounts that it tells are those at the size of the first goal.
struct Row {
    QString title;
    QVector<Goal> goals;
    Unit unit = Unit::Nanoseconds;
    QVector<QPair<int, Cell>> cells;
};

/// The row's cells that break their must by more than they spread, each told in a line; empty for none.
QStringList Broken(const Row &row);

/// The heading of a table in Markdown for these sizes.
QString Heading(const QVector<int> &sizes);
/// The line of a row. A ratio over its must is marked "(!)", one whose repeats spread too far "(~)".
QString Line(const Row &row, const QVector<int> &sizes);

} // namespace measure
