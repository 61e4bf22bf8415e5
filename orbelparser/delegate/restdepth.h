#pragma once

#include <QObject>

#include <algorithm>
#include <limits>

namespace KV218
{

/// Tells whether control is in an event loop of a handler that may have begun since this was made, or in none. Qt does
/// not tell which event loops run; it knows how deep they stand in one another.
class RestDepth : public QObject
{
    Q_OBJECT

public:
    RestDepth();

    /// False where a handler may be waiting below the event that runs.
    bool IsAtRest() const;
    /// Counts as if it had been made where another one was.
    void TakeOver(const RestDepth &former) { Least = std::min(Least, former.Least); }

private:
    void Follow();

    /// The least depth of events and event loops since this was made.
    int Least = std::numeric_limits<int>::max();
};

} // namespace KV218
