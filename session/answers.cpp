#include "answers.h"

namespace Orbel
{

Answers::Answers()
{
    Clock.start();
    Timer.setSingleShot(true);
    connect(&Timer, &QTimer::timeout, this, &Answers::Look);
}

void Answers::Await(const QVector<Change> &changes)
{
    for (const Change &change : changes) {
        Sent &sent = All[change.Path];
        if (!sent.IsAwaited())
            sent.Old = change.Old;
        sent.New = change.New;
        sent.Reported = QVariant();
        sent.Deadline = Time > 0 ? Clock.elapsed() + Time : -1;
    }
    if (Time > 0 && (!Timer.isActive() || Timer.remainingTime() > Time))
        Timer.start(Time);
}

Answers::Sent *Answers::Find(const QString &path)
{
    const auto found = All.find(path);
    return found == All.end() ? nullptr : &*found;
}

Answers::Sent Answers::Take(const QString &path)
{
    return All.take(path);
}

void Answers::Look()
{
    const qint64 now = Clock.elapsed();
    qint64 next = -1;
    QStringList late;
    for (auto sent = All.begin(); sent != All.end(); ++sent) {
        if (!sent->IsAwaited())
            continue;
        if (sent->Deadline <= now) {
            sent->Deadline = -1;
            late.append(sent.key());
        } else if (next < 0 || sent->Deadline < next) {
            next = sent->Deadline;
        }
    }
    if (next >= 0)
        Timer.start(int(next - now));
    if (!late.isEmpty())
        Q_EMIT overdue(late);
}

} // namespace Orbel
