#pragma once

#include "change.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>
#include <QVariant>

namespace Orbel
{

/// What was applied, by parameter path, and whether the device has answered it. Knows no form.
class Answers : public QObject
{
    Q_OBJECT

public:
    struct Sent {
        /// As in Change; of several changes that came before an answer, the old value of the first.
        QVariant Old;
        QVariant New;
        /// What the device has reported since; invalid for nothing.
        QVariant Reported;
        /// By Clock; nothing is awaited from a negative one on.
        qint64 Deadline = -1;

        bool IsAwaited() const { return Deadline >= 0; }
    };

    Answers();

    /// In milliseconds; 0 awaits none. Counts for what is sent from then on.
    void SetTime(int milliseconds) { Time = milliseconds; }
    void Await(const QVector<Change> &changes);
    /// Whether there is anything to look for.
    bool IsAnyAwaited() const { return !All.isEmpty(); }
    /// Null for a path of which nothing was sent since the last answer.
    Sent *Find(const QString &path);
    /// The answer has come; gives what it is about.
    Sent Take(const QString &path);

Q_SIGNALS:
    /// No answer has come in time; it may still come. A slot may end this.
    void overdue(const QStringList &paths);

private:
    void Look();

    QHash<QString, Sent> All;
    QElapsedTimer Clock;
    QTimer Timer;
    int Time = 0;
};

} // namespace Orbel
