#pragma once

#include "changeentry.h"
#include "restdepth.h"

#include <QObject>
#include <QPointer>
#include <QVector>

#include <memory>
#include <vector>

class QUndoStack;

namespace KV218
{

class FormLife;
class OrbelDelegate;

/// The finished changes of a form as entries of an undo stack that the host may see and move as well, and put commands
/// of its own onto. An entry that comes while others move, or while such a command may be running, waits until it may
/// come onto the stack; the operator can undo it before.
class UndoHistory : public QObject
{
    Q_OBJECT

public:
    /// `life` is the form's; not owned; it outlives this.
    explicit UndoHistory(FormLife *life);
    ~UndoHistory() override;

    /// See OrbelFormular::GetUndoStack().
    QUndoStack *GetStack() const { return Stack; }
    /// See FormChanges::Close().
    void Close();

    /// See FormChanges::Began().
    void Began(OrbelDelegate *control);
    void Ended(OrbelDelegate *control);
    /// Has all controls, but one, that are being changed record what they have been changed by so far.
    void RecordRunning(const OrbelDelegate *except = nullptr);

    /// An entry of this history to be filled.
    std::unique_ptr<ChangeEntry> NewEntry(const QString &text) const;
    std::unique_ptr<ChangeEntry> NewEntry(const OrbelDelegate *control, int session) const;
    /// What handlers bring while an entry moves comes after it: the stack takes nothing meanwhile.
    void Push(std::unique_ptr<ChangeEntry> entry);
    /// Takes what waits onto the stack where no handler can be waiting in an event loop of its own. False when
    /// something waits on.
    bool PushAtRest();
    /// Gives the last entries their sentences, which cost more than the change itself: once for all steps of a turn.
    void SpellEntries();

    /// See FormChanges.
    void Undo() { Go(true); }
    void Redo() { Go(false); }
    void TakeStack(UndoHistory &former, const ChangeEntry::Heirs &heirs);
    bool IsMoving() const { return Busy || Moves->Moving > 0; }

Q_SIGNALS:
    /// The stack or what waits for it has changed.
    void changed();
    /// Nothing was undone or redone, since this control is locked.
    void metLock(const OrbelDelegate *control);

private:
    void Watch(QUndoStack *stack);
    bool HasHostsCommand() const;
    ChangeEntry *EntryAt(int index) const;
    QVector<ChangeEntry *> Entries() const;
    void RemoveEntries(const QVector<ChangeEntry *> &entries, const QVector<ChangeEntry *> &gone);
    void PushWaiting(bool atRest);
    std::unique_ptr<ChangeEntry> TakeWaiting(bool first);
    void RedoPassedOver();
    void UndoWaiting();
    void Go(bool back);

    FormLife *const Life;
    RestDepth Depth;
    /// Deleted later: a receiver of its signals may end the form.
    QUndoStack *Stack = nullptr;
    QVector<QPointer<OrbelDelegate>> Running;
    /// Entries move, or come.
    bool Busy = false;
    const ChangeEntry::Moves Moves = std::make_shared<ChangeEntry::Traffic>();
    std::vector<std::unique_ptr<ChangeEntry>> Waiting;
};

} // namespace KV218
