#include "formchanges.h"

#include "exceptionstop.h"
#include "formlife.h"
#include "formlimits.h"
#include "orbeldelegate.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QScopeGuard>
#include <QSet>
#include <QThread>
#include <QTimer>
#include <QUndoStack>

#include <algorithm>
#include <memory>

namespace KV218
{

// How often to look whether the event loop of a host's command has come to its end.
static constexpr int MillisecondsOfLoop = 50;

/// How deep events and event loops stand in one another, which Qt knows for what is to be deleted later.
static int EventDepth()
{
    QObject probe;
    auto *const event = new QDeferredDeleteEvent; // goes with the probe
    QCoreApplication::postEvent(&probe, event);
    return event->loopLevel();
}

/// That of an event in the application's own event loop; where none runs yet, of one that the host has processed.
static int OutermostDepth()
{
    return QThread::currentThread()->loopLevel() > 0 ? 2 : 1;
}

FormChanges::FormChanges(FormLife *life) : Life(life)
{
    FollowDepth();
    auto *stack = new QUndoStack;
    stack->setUndoLimit(limit::UndoneChanges);
    Watch(stack);
}

void FormChanges::Watch(QUndoStack *stack)
{
    Stack = stack;
    connect(Stack, &QUndoStack::indexChanged, this, [this] {
        PushWaiting(false);
        TellLater();
    });
}

FormChanges::~FormChanges()
{
    if (QCoreApplication::instance())
        Stack->deleteLater();
    else
        delete Stack;
}

/// Comes along when control returns from the handler, or the event loop, that made the form: Qt deletes later than that
/// what was given up there.
void FormChanges::FollowDepth()
{
    LeastDepth = std::min(LeastDepth, EventDepth());
    if (LeastDepth <= OutermostDepth())
        return;
    auto *const returned = new QObject;
    connect(returned, &QObject::destroyed, this, &FormChanges::FollowDepth);
    returned->deleteLater();
}

void FormChanges::Close()
{
    blockSignals(true);
    Stack->blockSignals(true);
}

void FormChanges::Began(OrbelDelegate *control)
{
    RecordRunning(control);
    Running.append(control);
}

void FormChanges::Ended(OrbelDelegate *control)
{
    const int last = Running.lastIndexOf(control);
    if (last >= 0)
        Running.remove(last);
}

void FormChanges::RecordRunning(const OrbelDelegate *except)
{
    const auto running = Running;
    for (const QPointer<OrbelDelegate> &control : running) {
        if (control && control != except)
            control->RecordSoFar();
    }
}

void FormChanges::Record(OrbelDelegate *control, const QVariantList &before, const QVariantList &after, int session)
{
    auto entry = std::make_unique<ChangeEntry>(control, session, Moves);
    entry->Add(control, before, after);
    if (entry->IsEmpty())
        return;
    entry->SkipNextRedo();
    const CallScope call(Life);
    Push(entry.release());
    TellEdited(control);
}

void FormChanges::RecordAll(const Former &former)
{
    const CallScope call(Life);
    auto entry = std::make_unique<ChangeEntry>(tr("Parameters"), Moves);
    QVector<QPointer<OrbelDelegate>> changed;
    for (const auto &[control, before] : former) {
        if (!control || before == control->GetEdits())
            continue;
        entry->Add(control, before, control->GetEdits());
        changed.append(control);
    }
    if (!entry->IsEmpty()) {
        entry->SkipNextRedo();
        Push(entry.release());
    }
    for (const QPointer<OrbelDelegate> &control : qAsConst(changed)) {
        if (control)
            TellEdited(control);
    }
}

/// What handlers bring while an entry moves comes after it: the stack takes nothing meanwhile.
void FormChanges::Push(ChangeEntry *entry)
{
    Waiting.emplace_back(entry);
    Moves->Waits = true;
    PushWaiting(false);
    if (Waiting.empty())
        return;
    TellLater();
    if (IsMoving())
        return;
    const QScopedValueRollback<bool> busy(Busy, true);
    const Orbel::ExceptionStop::Zone zone; // as it would be on the stack
    entry->redo();
    entry->SkipNextRedo();
}

/// A command of a host's own does not tell that it runs, and the stack would destroy it. Each entry, on the stack or
/// waiting, holds a share of `Moves`: a look at all of them would cost each commit what the whole history is long.
bool FormChanges::HasHostsCommand() const
{
    for (int i = Stack->index(); i < Stack->count(); ++i) {
        if (!EntryAt(i))
            return true;
    }
    return Stack->count() > Moves.use_count() - 1 - static_cast<long>(Waiting.size());
}

/// Whether no command of a host's own can run, be it with an event loop of its own.
bool FormChanges::IsAtRest() const
{
    return EventDepth() <= std::max(OutermostDepth(), LeastDepth);
}

/// Takes what waits onto the stack; at rest, where no command of a host's own can run, in any case.
void FormChanges::PushWaiting(bool atRest)
{
    const CallScope call(Life);
    while (!Waiting.empty() && !IsMoving() && (atRest || !HasHostsCommand())) {
        const QScopedValueRollback<bool> busy(Busy, true);
        const Orbel::ExceptionStop::Zone zone; // it would come through the stack and leave an entry in two halves
        RedoPassedOver();
        Stack->push(TakeWaiting(true).release());
    }
}

std::unique_ptr<ChangeEntry> FormChanges::TakeWaiting(bool first)
{
    const auto place = first ? Waiting.begin() : Waiting.end() - 1;
    std::unique_ptr<ChangeEntry> entry = std::move(*place);
    Waiting.erase(place);
    Moves->Waits = !Waiting.empty();
    return entry;
}

/// A host that undid within the handlers of a change has met entries that stand before it: they are done as they were.
void FormChanges::RedoPassedOver()
{
    const auto next = [this] { return Stack->canRedo() ? EntryAt(Stack->index()) : nullptr; };
    for (ChangeEntry *entry = next(); entry && entry->TakePassedOver(); entry = next()) {
        entry->SkipNextRedo();
        Stack->redo();
    }
}

/// Takes back the last change that may not come onto the stack yet.
void FormChanges::UndoWaiting()
{
    bool dropped = true;
    while (dropped && !Waiting.empty()) {
        dropped = !Waiting.back()->Stands(true);
        if (const OrbelDelegate *locked = Waiting.back()->FindLocked(true)) {
            Q_EMIT refused(tr("%1 is locked").arg(locked->GetCaption()));
            return;
        }
        TakeWaiting(false)->undo();
    }
}

void FormChanges::Go(bool back)
{
    if (IsMoving())
        return;
    const CallScope call(Life);
    RecordRunning();
    PushWaiting(false);
    const auto rest = qScopeGuard([this] { PushWaiting(false); });
    const QScopedValueRollback<bool> busy(Busy, true);
    const Orbel::ExceptionStop::Zone zone; // as above
    if (!Waiting.empty()) {
        if (back)
            UndoWaiting();
        return;
    }
    RedoPassedOver();
    bool dropped = true;
    while (dropped && (back ? Stack->canUndo() : Stack->canRedo())) {
        const auto *entry = dynamic_cast<const ChangeEntry *>(Stack->command(Stack->index() - int(back)));
        const bool stands = !entry || entry->Stands(back);
        if (const OrbelDelegate *locked = entry ? entry->FindLocked(back) : nullptr) {
            Q_EMIT refused(tr("%1 is locked").arg(locked->GetCaption()));
            return;
        }
        const int count = Stack->count();
        if (back)
            Stack->undo();
        else
            Stack->redo();
        dropped = !stands || Stack->count() < count;
    }
}

void FormChanges::RevertAll()
{
    const CallScope call(Life);
    RecordRunning();
    auto entry = std::make_unique<ChangeEntry>(tr("Revert all"), Moves);
    for (OrbelDelegate *control : GetChanged()) {
        if (const auto applied = control->GetApplied())
            entry->Add(control, control->GetEdits(), *applied);
    }
    if (const OrbelDelegate *locked = entry->FindLocked(false))
        Q_EMIT refused(tr("%1 is locked").arg(locked->GetCaption()));
    else if (!entry->IsEmpty())
        Push(entry.release());
}

bool FormChanges::Revert(OrbelDelegate *control)
{
    const CallScope call(Life);
    const auto applied = control->GetApplied();
    if (!applied)
        return false;
    auto entry = std::make_unique<ChangeEntry>(control, 0, Moves);
    entry->Add(control, control->GetEdits(), *applied);
    if (entry->IsEmpty())
        return false;
    if (const OrbelDelegate *locked = entry->FindLocked(false)) {
        Q_EMIT refused(tr("%1 is locked").arg(locked->GetCaption()));
        return false;
    }
    Push(entry.release());
    return true;
}

/// The stack gives its entries as constants, but made none of them. A command of a host's own is null.
ChangeEntry *FormChanges::EntryAt(int index) const
{
    return const_cast<ChangeEntry *>(dynamic_cast<const ChangeEntry *>(Stack->command(index)));
}

QVector<ChangeEntry *> FormChanges::Entries() const
{
    QVector<ChangeEntry *> entries;
    for (int i = 0; i < Stack->count(); ++i)
        entries.append(EntryAt(i));
    return entries;
}

void FormChanges::TakeStack(FormChanges &former, const ChangeEntry::Heirs &heirs)
{
    const CallScope call(Life);
    former.PushWaiting(false);
    disconnect(Stack, nullptr, this, nullptr);
    disconnect(former.Stack, nullptr, &former, nullptr);
    QUndoStack *const own = Stack;
    Watch(former.Stack);
    former.Watch(own);
    const QVector<ChangeEntry *> entries = Entries();
    QVector<ChangeEntry *> gone;
    for (ChangeEntry *entry : entries) {
        if (entry && !entry->HandOver(heirs, Moves))
            gone.append(entry);
    }
    if (!gone.isEmpty() && !entries.contains(nullptr))
        RemoveEntries(entries, gone);
    for (std::unique_ptr<ChangeEntry> &entry : std::exchange(former.Waiting, {})) {
        if (entry->HandOver(heirs, Moves))
            Waiting.push_back(std::move(entry));
    }
    Moves->Waits = !Waiting.empty();
    LeastDepth = std::min(LeastDepth, former.LeastDepth);
    TellLater();
}

/// The stack gives up a command only when it moves it. All of them move once there and back, and nothing else with
/// them.
void FormChanges::RemoveEntries(const QVector<ChangeEntry *> &entries, const QVector<ChangeEntry *> &gone)
{
    const auto left = [&](int count) {
        return int(std::count_if(entries.begin(), entries.begin() + qMax(0, count),
            [&](ChangeEntry *entry) { return !gone.contains(entry); }));
    };
    const int index = left(Stack->index());
    const int clean = Stack->cleanIndex() < 0 ? -1 : left(Stack->cleanIndex());
    {
        const QSignalBlocker silent(Stack);
        for (ChangeEntry *entry : entries)
            entry->Freeze(true);
        for (ChangeEntry *entry : gone)
            entry->setObsolete(true);
        Stack->setIndex(0);
        Stack->setIndex(entries.size());
        Stack->setIndex(qMax(0, clean));
        clean < 0 ? Stack->resetClean() : Stack->setClean();
        Stack->setIndex(index);
        for (ChangeEntry *entry : Entries())
            entry->Freeze(false);
    }
    // Whoever hears of it may end the form.
    const QPointer<QUndoStack> stack(Stack);
    Q_EMIT stack->indexChanged(index);
    if (stack)
        Q_EMIT stack->cleanChanged(stack->isClean());
    if (stack)
        Q_EMIT stack->canUndoChanged(stack->canUndo());
    if (stack)
        Q_EMIT stack->undoTextChanged(stack->undoText());
    if (stack)
        Q_EMIT stack->canRedoChanged(stack->canRedo());
    if (stack)
        Q_EMIT stack->redoTextChanged(stack->redoText());
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

void FormChanges::TellLater()
{
    if (!std::exchange(Due, true))
        QMetaObject::invokeMethod(this, &FormChanges::Tell, Qt::QueuedConnection);
}

void FormChanges::Tell()
{
    Due = false;
    const CallScope call(Life);
    // A stack that a host moved to where it was emits nothing at its end.
    PushWaiting(IsAtRest());
    if (!Waiting.empty() && !std::exchange(Due, true))
        QTimer::singleShot(MillisecondsOfLoop, this, &FormChanges::Tell);
    Settle();
    SpellEntries();
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
    for (OrbelDelegate *known : inOrder) {
        const QPointer<OrbelDelegate> control = noted.value(known);
        const bool isChanged = control && control->IsChanged();
        if (control)
            control->ShowChanged(isChanged);
        if (control && control->GetReported() && !Differing.contains(control))
            Differing.append(control);
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

/// Gives the last entries their sentences, which cost more than the change itself: once for all steps of a turn.
void FormChanges::SpellEntries()
{
    bool spelled = false;
    for (int i = Stack->count() - 1; i >= 0; --i) {
        ChangeEntry *const entry = EntryAt(i);
        if (!entry)
            continue;
        if (!entry->Spell())
            break;
        spelled = true;
    }
    if (spelled && Stack->canUndo())
        Q_EMIT Stack->undoTextChanged(Stack->undoText());
}

} // namespace KV218
