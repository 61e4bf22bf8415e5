#pragma once

#include "undohistory.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QVector>

namespace KV218
{

class FormLife;
class OrbelDelegate;

/// What the operator has changed in a form: a stack of his finished changes, which can be undone and redone, and the
/// controls whose changes wait to be applied. Changes of the host and of scripts are not recorded.
///
/// Undo goes the operator's road. It puts back a value only where the one stands that its change left; what the host or
/// a script has set since stays, and an entry of which nothing stands any more is dropped. An entry of a control that
/// is locked stays and does nothing.
class FormChanges : public QObject
{
    Q_OBJECT

public:
    /// `life` is the form's; not owned; it outlives this.
    explicit FormChanges(FormLife *life);

    /// See OrbelFormular::GetUndoStack().
    QUndoStack *GetStack() const { return History.GetStack(); }

    /// From now on nothing is emitted, nor by the stack, which is cleared when it is destroyed: the form has ended.
    void Close();

    /// Undoes or redoes the last change that is not dropped by it; emits refused() where that is locked.
    void Undo() { History.Undo(); }
    void Redo() { History.Redo(); }
    /// Puts back what was applied last, as one change; where that is not known, nothing.
    void RevertAll();
    /// Puts back what was applied last in one control, as one change; false where that is not known or nothing else.
    bool Revert(OrbelDelegate *control);
    /// Takes the stack of another form, whose controls have these heirs here; that one has an empty one then. Neither
    /// may be on the way. Entries of a control without an heir are removed, as far as no command of a host's own stands
    /// among them; an undo that meets one passes over it.
    void TakeStack(FormChanges &former, const ChangeEntry::Heirs &heirs);
    /// Whether an entry is on its way. A host may move the stack itself, by many entries at once.
    bool IsMoving() const { return History.IsMoving(); }
    /// Asks for what was typed and changed to be applied.
    void Apply() { Q_EMIT applyWanted(); }

    /// The operator begins to change a control, and has done so. What undoes or reverts in between, or begins to change
    /// another control, comes after what has been changed so far.
    void Began(OrbelDelegate *control) { History.Began(control); }
    void Ended(OrbelDelegate *control) { History.Ended(control); }
    /// The operator changed a control from the ones to the other values. Changes of one `session` other than 0 become
    /// one.
    void Record(OrbelDelegate *control, const QVariantList &before, const QVariantList &after, int session);
    /// Controls with the values that they had before.
    using Former = QVector<QPair<QPointer<OrbelDelegate>, QVariantList>>;
    /// The operator has changed them at once, by a document for instance.
    void RecordAll(const Former &former);
    /// A control's modified state, or the value of a modified one, may have changed.
    void Note(OrbelDelegate *control);
    /// The controls with changes that wait to be applied, in the order in which they were changed.
    QVector<OrbelDelegate *> GetChanged();
    /// The controls in which the operator's value stands in place of the device's, in the order in which that began.
    QVector<OrbelDelegate *> GetDiffering();

    /// Must stand around a change that the device brings: what becomes modified by it is not the operator's.
    void BeginReport() { ++Reports; }
    void EndReport() { --Reports; }
    bool IsReporting() const { return Reports > 0; }
    /// Must be told when the operator has finished a change of a control that is not recorded.
    void TellEdited(OrbelDelegate *control) { Q_EMIT edited(control); }

Q_SIGNALS:
    /// The stack or the list of changed controls has changed. Emitted once an event round, and never from within a
    /// change; a slot may end the form.
    void changed();
    /// Nothing was undone, for this reason.
    void refused(const QString &reason);
    void applyWanted();
    /// The operator has finished a change of this control, or undone one. A slot may end the form.
    void edited(OrbelDelegate *control);

private:
    void Refuse(const OrbelDelegate *locked);
    void TellLater();
    void Tell();
    void Settle();

    FormLife *const Life;
    UndoHistory History;
    QHash<OrbelDelegate *, QPointer<OrbelDelegate>> Noted;
    /// The same in the order in which they came.
    QVector<OrbelDelegate *> NotedInOrder;
    QVector<QPointer<OrbelDelegate>> Changed;
    QVector<QPointer<OrbelDelegate>> Differing;
    int Reports = 0;
    /// Whether an event is posted that emits the changes.
    bool Due = false;
};

} // namespace KV218
