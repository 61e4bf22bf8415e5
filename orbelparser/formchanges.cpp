#include "formchanges.h"

#include "changeentry.h"
#include "formlife.h"
#include "formlimits.h"
#include "orbeldelegate.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QUndoStack>

#include <memory>

namespace KV218
{

FormChanges::FormChanges(FormLife *life) : Life(life), Stack(new QUndoStack)
{
    Stack->setUndoLimit(limit::UndoneChanges);
    connect(Stack, &QUndoStack::indexChanged, this, [this] {
        const CallScope call(Life);
        Q_EMIT changed();
    });
}

FormChanges::~FormChanges()
{
    if (QCoreApplication::instance())
        Stack->deleteLater();
    else
        delete Stack;
}

void FormChanges::Record(OrbelDelegate *control, const QVariantList &before, int session)
{
    const QVariantList after = control->GetEdits();
    auto entry = std::make_unique<ChangeEntry>(control->SpellChange(before, after), session);
    entry->Add(control, before, after);
    if (entry->IsEmpty())
        return;
    entry->SkipNextRedo();
    Push(entry.release());
}

/// What a handler's event loop brings while an entry moves comes after it: the stack takes nothing meanwhile.
void FormChanges::Push(ChangeEntry *entry)
{
    if (Busy) {
        const auto kept = std::make_shared<std::unique_ptr<ChangeEntry>>(entry);
        QMetaObject::invokeMethod(
            this, [this, kept] { Push(kept->release()); }, Qt::QueuedConnection);
        return;
    }
    const CallScope call(Life);
    const QScopedValueRollback<bool> busy(Busy, true);
    Stack->push(entry);
}

void FormChanges::Go(bool back)
{
    if (Busy)
        return;
    const CallScope call(Life);
    const QScopedValueRollback<bool> busy(Busy, true);
    bool dropped = true;
    while (dropped && (back ? Stack->canUndo() : Stack->canRedo())) {
        const auto *entry = dynamic_cast<const ChangeEntry *>(Stack->command(Stack->index() - int(back)));
        dropped = entry && !entry->Stands(back);
        if (const OrbelDelegate *locked = entry ? entry->FindLocked(back) : nullptr) {
            Q_EMIT refused(tr("%1 is locked").arg(locked->GetCaption()));
            return;
        }
        if (back)
            Stack->undo();
        else
            Stack->redo();
    }
}

void FormChanges::RevertAll()
{
    const CallScope call(Life);
    auto entry = std::make_unique<ChangeEntry>(tr("Revert all"));
    for (OrbelDelegate *control : GetChanged()) {
        if (const QVariantList *applied = control->GetApplied())
            entry->Add(control, control->GetEdits(), *applied);
    }
    if (const OrbelDelegate *locked = entry->FindLocked(false))
        Q_EMIT refused(tr("%1 is locked").arg(locked->GetCaption()));
    else if (!entry->IsEmpty())
        Push(entry.release());
}

void FormChanges::Note(OrbelDelegate *control)
{
    Noted.insert(control, control);
    if (!std::exchange(Due, true))
        QMetaObject::invokeMethod(this, &FormChanges::Refresh, Qt::QueuedConnection);
}

QVector<OrbelDelegate *> FormChanges::GetChanged()
{
    const CallScope call(Life);
    Refresh();
    QVector<OrbelDelegate *> changed;
    for (const QPointer<OrbelDelegate> &control : qAsConst(Changed)) {
        if (control && control->IsChanged())
            changed.append(control);
    }
    return changed;
}

void FormChanges::Refresh()
{
    Due = false;
    if (Noted.isEmpty())
        return;
    const CallScope call(Life);
    const auto noted = std::exchange(Noted, {});
    for (const QPointer<OrbelDelegate> &control : noted) {
        const bool isChanged = control && control->IsChanged();
        if (control)
            control->ShowChanged(isChanged);
        if (isChanged && !Changed.contains(control))
            Changed.append(control);
    }
    const auto isOver = [](const QPointer<OrbelDelegate> &control) { return !control || !control->IsChanged(); };
    Changed.erase(std::remove_if(Changed.begin(), Changed.end(), isOver), Changed.end());
    Q_EMIT changed();
}

} // namespace KV218
