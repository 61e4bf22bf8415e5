#pragma once

#include <QHash>
#include <QPointer>
#include <QUndoCommand>
#include <QVariant>
#include <QVector>

#include <memory>
#include <utility>

namespace KV218
{

class OrbelDelegate;

/// One change of the operator on the form's undo stack. Moving it either way leaves alone what others have set since;
/// one that moves no value becomes obsolete, unless a lock is the reason, or they stand already where they would go.
class ChangeEntry : public QUndoCommand
{
public:
    /// What the entries of a form share: how many are on their way, for a host may have the stack move several, and
    /// whether some are not on the stack yet.
    struct Traffic {
        int Moving = 0;
        bool Waits = false;
    };
    using Moves = std::shared_ptr<Traffic>;

    ChangeEntry(const QString &text, Moves moves);
    /// A change of one control, whose object name is the text until Spell(). Entries of one `session` other than 0 that
    /// follow one another are one.
    ChangeEntry(const OrbelDelegate *control, int session, Moves moves);

    /// Takes in the values of a control that differ.
    void Add(OrbelDelegate *control, const QVariantList &before, const QVariantList &after);
    bool IsEmpty() const { return Parts.isEmpty(); }
    /// Makes a text of the control and its values where none was given. False when that was done already.
    bool Spell();
    /// The values stand already when the entry comes onto the stack.
    void SkipNextRedo() { Done = true; }
    /// Whether it was undone, and has moved nothing, while a change of its control was on the way or one was not on the
    /// stack yet; not a second time.
    bool TakePassedOver() { return std::exchange(PassedOver, false); }
    /// A control of another form that takes the place of one, which had this shape when its form ended.
    struct Heir {
        OrbelDelegate *Control = nullptr;
        int FormersShape = 0;
    };
    using Heirs = QHash<const OrbelDelegate *, Heir>;
    /// Hands the entry over to another form; what belongs to a control without an heir goes. False when nothing is
    /// left.
    bool HandOver(const Heirs &heirs, const Moves &moves);
    /// Has the entry move nothing when the stack moves it, or again what it does.
    void Freeze(bool frozen) { Frozen = frozen; }
    /// Whether there is a value to move: `back` by undo.
    bool Stands(bool back) const;
    /// The first control with such a value that the operator may not change now; null for none.
    const OrbelDelegate *FindLocked(bool back) const;

    /// Another one than those that a host's commands are likely to have.
    int id() const override { return Session ? 0x4f42454c : -1; }
    bool mergeWith(const QUndoCommand *next) override;
    void undo() override { Move(true); }
    void redo() override;

private:
    struct Part {
        QPointer<OrbelDelegate> Control;
        int Index;
        int Shape;
        QVariant Before;
        QVariant After;

        QVariant &Side(bool before) { return before ? Before : After; }
        const QVariant &Side(bool before) const { return before ? Before : After; }
        bool Stands(const QVariantList &values, bool back) const;
    };

    void Move(bool back);
    bool IsAheadOfOthers() const;
    bool MoveControl(QVector<Part>::iterator first, QVector<Part>::iterator last, bool back);

    const bool HasOwnText;
    const int Session;
    Moves MovesOfForm;
    /// Those of one control follow one another.
    QVector<Part> Parts;
    bool Spelled = false;
    bool Done = false;
    bool Moving = false;
    bool Frozen = false;
    bool PassedOver = false;
};

} // namespace KV218
