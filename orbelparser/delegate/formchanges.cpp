#include "formchanges.h"

#include "formlife.h"
#include "orbeldelegate.h"

#include <QSet>
#include <QTimer>

#include <algorithm>

namespace KV218
{

// How often to look whether the event loop of a host's command has come to its end.
static constexpr int MillisecondsBetweenLooks = 50;

FormChanges::FormChanges(FormLife *life) : Life(life), History(life)
{
    connect(&History, &UndoHistory::changed, this, &FormChanges::TellLater);
    connect(&History, &UndoHistory::metLock, this, &FormChanges::Refuse);
}

void FormChanges::Close()
{
    blockSignals(true);
    History.Close();
}

void FormChanges::TakeStack(FormChanges &former, const ChangeEntry::Heirs &heirs)
{
    const CallScope call(Life);
    History.TakeStack(former.History, heirs);
}

void FormChanges::Record(OrbelDelegate *control, const QVariantList &before, const QVariantList &after, int session)
{
    auto entry = History.NewEntry(control, session);
    entry->Add(control, before, after);
    if (entry->IsEmpty())
        return;
    entry->SkipNextRedo();
    const CallScope call(Life);
    History.Push(std::move(entry));
    TellEdited(control);
}

void FormChanges::RecordAll(const Former &former)
{
    const CallScope call(Life);
    auto entry = History.NewEntry(tr("Parameters"));
    QVector<QPointer<OrbelDelegate>> changed;
    for (const auto &[control, before] : former) {
        if (!control || before == control->GetEdits())
            continue;
        entry->Add(control, before, control->GetEdits());
        changed.append(control);
    }
    if (!entry->IsEmpty()) {
        entry->SkipNextRedo();
        History.Push(std::move(entry));
    }
    for (const QPointer<OrbelDelegate> &control : qAsConst(changed)) {
        if (control)
            TellEdited(control);
    }
}

void FormChanges::RevertAll()
{
    const CallScope call(Life);
    History.RecordRunning();
    auto entry = History.NewEntry(tr("Revert all"));
    for (OrbelDelegate *control : GetChanged()) {
        if (const auto applied = control->GetApplied())
            entry->Add(control, control->GetEdits(), *applied);
    }
    if (const OrbelDelegate *locked = entry->FindLocked(false))
        Refuse(locked);
    else if (!entry->IsEmpty())
        History.Push(std::move(entry));
}

bool FormChanges::Revert(OrbelDelegate *control)
{
    const CallScope call(Life);
    const auto applied = control->GetApplied();
    if (!applied)
        return false;
    auto entry = History.NewEntry(control, 0);
    entry->Add(control, control->GetEdits(), *applied);
    if (entry->IsEmpty())
        return false;
    if (const OrbelDelegate *locked = entry->FindLocked(false)) {
        Refuse(locked);
        return false;
    }
    History.Push(std::move(entry));
    return true;
}

void FormChanges::Note(OrbelDelegate *control)
{
    QPointer<OrbelDelegate> &noted = Noted[control];
    if (!noted)
        NotedInOrder.append(control);
    noted = control;
    TellLater();
}

QVector<OrbelDelegate *> FormChanges::GetChanged()
{
    const CallScope call(Life);
    Settle();
    QVector<OrbelDelegate *> changed;
    for (const QPointer<OrbelDelegate> &control : qAsConst(Changed)) {
        if (control && control->IsChanged())
            changed.append(control);
    }
    return changed;
}

QVector<OrbelDelegate *> FormChanges::GetDiffering()
{
    const CallScope call(Life);
    Settle();
    QVector<OrbelDelegate *> differing;
    for (const QPointer<OrbelDelegate> &control : qAsConst(Differing)) {
        if (control && control->GetReported())
            differing.append(control);
    }
    return differing;
}

void FormChanges::Refuse(const OrbelDelegate *locked)
{
    Q_EMIT refused(tr("%1 is locked").arg(locked->GetCaption()));
}

void FormChanges::TellLater()
{
    if (!std::exchange(Due, true))
        QMetaObject::invokeMethod(this, &FormChanges::Tell, Qt::QueuedConnection);
}

void FormChanges::Tell()
{
    Due = false;
    const CallScope call(Life);
    if (!History.PushAtRest() && !std::exchange(Due, true))
        QTimer::singleShot(MillisecondsBetweenLooks, this, &FormChanges::Tell);
    Settle();
    History.SpellEntries();
    Q_EMIT changed();
}

/// Brings the marks and the list of changed controls up to date.
void FormChanges::Settle()
{
    if (Noted.isEmpty())
        return;
    const auto noted = std::exchange(Noted, {});
    const auto inOrder = std::exchange(NotedInOrder, {});
    QSet<const OrbelDelegate *> listed;
    for (const QPointer<OrbelDelegate> &control : qAsConst(Changed))
        listed.insert(control);
    QSet<const OrbelDelegate *> differing;
    for (const QPointer<OrbelDelegate> &control : qAsConst(Differing))
        differing.insert(control);
    for (OrbelDelegate *known : inOrder) {
        const QPointer<OrbelDelegate> control = noted.value(known);
        const bool isChanged = control && control->IsChanged();
        if (control)
            control->ShowChanged(isChanged);
        if (control && control->GetReported() && !differing.contains(control)) {
            differing.insert(control);
            Differing.append(control);
        }
        if (isChanged && !listed.contains(control)) {
            listed.insert(control);
            Changed.append(control);
        }
    }
    const auto isOver = [](const QPointer<OrbelDelegate> &control) { return !control || !control->IsChanged(); };
    Changed.erase(std::remove_if(Changed.begin(), Changed.end(), isOver), Changed.end());
    const auto agrees = [](const QPointer<OrbelDelegate> &control) { return !control || !control->GetReported(); };
    Differing.erase(std::remove_if(Differing.begin(), Differing.end(), agrees), Differing.end());
}

} // namespace KV218
