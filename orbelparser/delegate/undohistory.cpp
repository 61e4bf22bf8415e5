#include "undohistory.h"

#include "exceptionstop.h"
#include "formlife.h"
#include "formlimits.h"
#include "orbeldelegate.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QScopeGuard>
#include <QUndoStack>

#include <algorithm>

namespace KV218
{

UndoHistory::UndoHistory(FormLife *life) : Life(life)
{
    auto *stack = new QUndoStack;
    stack->setUndoLimit(limit::UndoneChanges);
    Watch(stack);
}

void UndoHistory::Watch(QUndoStack *stack)
{
    Stack = stack;
    connect(Stack, &QUndoStack::indexChanged, this, [this] {
        PushWaiting(false);
        Q_EMIT changed();
    });
}

UndoHistory::~UndoHistory()
{
    if (QCoreApplication::instance())
        Stack->deleteLater();
    else
        delete Stack;
}

void UndoHistory::Close()
{
    blockSignals(true);
    Stack->blockSignals(true);
}

void UndoHistory::Began(OrbelDelegate *control)
{
    RecordRunning(control);
    Running.append(control);
}

void UndoHistory::Ended(OrbelDelegate *control)
{
    const int last = Running.lastIndexOf(control);
    if (last >= 0)
        Running.remove(last);
}

void UndoHistory::RecordRunning(const OrbelDelegate *except)
{
    const auto running = Running;
    for (const QPointer<OrbelDelegate> &control : running) {
        if (control && control != except)
            control->RecordSoFar();
    }
}

std::unique_ptr<ChangeEntry> UndoHistory::NewEntry(const QString &text) const
{
    return std::make_unique<ChangeEntry>(text, Moves);
}

std::unique_ptr<ChangeEntry> UndoHistory::NewEntry(const OrbelDelegate *control, int session) const
{
    return std::make_unique<ChangeEntry>(control, session, Moves);
}

void UndoHistory::Push(std::unique_ptr<ChangeEntry> pushed)
{
    ChangeEntry *const entry = pushed.get();
    Waiting.push_back(std::move(pushed));
    Moves->Waits = true;
    PushWaiting(false);
    if (Waiting.empty())
        return;
    Q_EMIT changed();
    if (IsMoving())
        return;
    const QScopedValueRollback<bool> busy(Busy, true);
    const Orbel::ExceptionStop::Zone zone; // as it would be on the stack
    entry->redo();
    entry->SkipNextRedo();
}

/// A command of a host's own does not tell that it runs, and the stack would destroy it. Each entry, on the stack or
/// waiting, holds a share of `Moves`: a look at all of them would cost each commit what the whole history is long.
bool UndoHistory::HasHostsCommand() const
{
    for (int i = Stack->index(); i < Stack->count(); ++i) {
        if (!EntryAt(i))
            return true;
    }
    return Stack->count() > Moves.use_count() - 1 - static_cast<long>(Waiting.size());
}

/// Takes what waits onto the stack; at rest, where no command of a host's own can run, in any case.
void UndoHistory::PushWaiting(bool atRest)
{
    const CallScope call(Life);
    while (!Waiting.empty() && !IsMoving() && (atRest || !HasHostsCommand())) {
        const QScopedValueRollback<bool> busy(Busy, true);
        const Orbel::ExceptionStop::Zone zone; // it would come through the stack and leave an entry in two halves
        RedoPassedOver();
        Stack->push(TakeWaiting(true).release());
    }
}

std::unique_ptr<ChangeEntry> UndoHistory::TakeWaiting(bool first)
{
    const auto place = first ? Waiting.begin() : Waiting.end() - 1;
    std::unique_ptr<ChangeEntry> entry = std::move(*place);
    Waiting.erase(place);
    Moves->Waits = !Waiting.empty();
    return entry;
}

/// A host that undid within the handlers of a change has met entries that stand before it: they are done as they were.
void UndoHistory::RedoPassedOver()
{
    const auto next = [this] { return Stack->canRedo() ? EntryAt(Stack->index()) : nullptr; };
    for (ChangeEntry *entry = next(); entry && entry->TakePassedOver(); entry = next()) {
        entry->SkipNextRedo();
        Stack->redo();
    }
}

/// Takes back the last change that may not come onto the stack yet.
void UndoHistory::UndoWaiting()
{
    bool dropped = true;
    while (dropped && !Waiting.empty()) {
        dropped = !Waiting.back()->Stands(true);
        if (const OrbelDelegate *locked = Waiting.back()->FindLocked(true)) {
            Q_EMIT metLock(locked);
            return;
        }
        TakeWaiting(false)->undo();
    }
}

void UndoHistory::Go(bool back)
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
            Q_EMIT metLock(locked);
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

bool UndoHistory::PushAtRest()
{
    // A stack that a host moved to where it was emits nothing at its end.
    PushWaiting(Depth.IsAtRest());
    return Waiting.empty();
}

/// The stack gives its entries as constants, but made none of them. A command of a host's own is null.
ChangeEntry *UndoHistory::EntryAt(int index) const
{
    return const_cast<ChangeEntry *>(dynamic_cast<const ChangeEntry *>(Stack->command(index)));
}

QVector<ChangeEntry *> UndoHistory::Entries() const
{
    QVector<ChangeEntry *> entries;
    for (int i = 0; i < Stack->count(); ++i)
        entries.append(EntryAt(i));
    return entries;
}

void UndoHistory::TakeStack(UndoHistory &former, const ChangeEntry::Heirs &heirs)
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
    Depth.TakeOver(former.Depth);
    Q_EMIT changed();
}

/// The stack gives up a command only when it moves it. All of them move once there and back, and nothing else with
/// them.
void UndoHistory::RemoveEntries(const QVector<ChangeEntry *> &entries, const QVector<ChangeEntry *> &gone)
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
    // Whoever is notified may end the form.
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

void UndoHistory::SpellEntries()
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
