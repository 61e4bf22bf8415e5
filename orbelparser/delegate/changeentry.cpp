#include "changeentry.h"

#include "orbeldelegate.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace KV218
{

ChangeEntry::ChangeEntry(const QString &text, Moves moves)
    : QUndoCommand(text), HasOwnText(true), Session(0), MovesOfForm(std::move(moves))
{
}

ChangeEntry::ChangeEntry(const OrbelDelegate *control, int session, Moves moves)
    : QUndoCommand(control->objectName()), HasOwnText(false), Session(session), MovesOfForm(std::move(moves))
{
}

void ChangeEntry::Add(OrbelDelegate *control, const QVariantList &before, const QVariantList &after)
{
    for (int i = 0; i < before.size() && before.size() == after.size(); ++i) {
        if (!OrbelDelegate::IsSameEdit(before.at(i), after.at(i)))
            Parts.append({control, i, control->GetEditShape(), before.at(i), after.at(i)});
    }
}

bool ChangeEntry::Spell()
{
    if (std::exchange(Spelled, true))
        return false;
    const OrbelDelegate *control = HasOwnText ? nullptr : Parts.first().Control.data();
    if (!control)
        return true;
    QVariantList before = control->GetEdits();
    QVariantList after = before;
    for (const Part &part : qAsConst(Parts)) {
        // A list or table of the control may have another shape now.
        if (part.Index >= before.size() || part.Shape != control->GetEditShape()) {
            setText(control->GetCaption());
            return true;
        }
        before[part.Index] = part.Before;
        after[part.Index] = part.After;
    }
    setText(control->SpellChange(before, after));
    return true;
}

bool ChangeEntry::Part::Stands(const QVariantList &values, bool back) const
{
    return Shape == Control->GetEditShape() && Index < values.size()
        && OrbelDelegate::IsSameEdit(values.at(Index), Side(!back));
}

bool ChangeEntry::Stands(bool back) const
{
    return std::any_of(Parts.begin(), Parts.end(),
        [back](const Part &part) { return part.Control && part.Stands(part.Control->GetEdits(), back); });
}

const OrbelDelegate *ChangeEntry::FindLocked(bool back) const
{
    for (const Part &part : Parts) {
        if (part.Control && !part.Control->MayEdit() && part.Stands(part.Control->GetEdits(), back))
            return part.Control;
    }
    return nullptr;
}

bool ChangeEntry::HandOver(const Heirs &heirs, const Moves &moves)
{
    MovesOfForm = moves;
    QVector<Part> kept;
    for (const Part &part : qAsConst(Parts)) {
        const OrbelDelegate *former = part.Control;
        const auto [heir, shape] = heirs.value(former);
        const int place = heir && part.Shape == shape ? heir->TranslatePlace(*former, part.Index) : -1;
        if (place < 0 || place >= heir->GetEdits().size())
            continue;
        kept.append({heir, place, heir->GetEditShape(), heir->TranslateEdit(*former, part.Before),
            heir->TranslateEdit(*former, part.After)});
    }
    Parts = kept;
    return !Parts.isEmpty();
}

bool ChangeEntry::mergeWith(const QUndoCommand *next)
{
    const auto *other = dynamic_cast<const ChangeEntry *>(next);
    if (!other || other->Session != Session || other->Parts.size() != 1 || Parts.size() != 1)
        return false;
    Part &own = Parts.first();
    const Part &further = other->Parts.first();
    // Between the two a host may have set another value.
    const bool follows = own.Control == further.Control && own.Index == further.Index && own.Shape == further.Shape
        && OrbelDelegate::IsSameEdit(own.After, further.Before);
    if (!follows)
        return false;
    own.After = further.After;
    Spelled = false;
    setObsolete(OrbelDelegate::IsSameEdit(own.Before, own.After));
    return true;
}

void ChangeEntry::redo()
{
    if (!std::exchange(Done, false))
        Move(false);
}

void ChangeEntry::Move(bool back)
{
    // A handler may lead back here.
    if (Moving || Frozen)
        return;
    const QScopedValueRollback<bool> moving(Moving, true);
    const QScopedValueRollback<int> moves(MovesOfForm->Moving, MovesOfForm->Moving + 1);
    const OrbelDelegate *locked = FindLocked(back);
    PassedOver = false;
    bool moved = false;
    for (auto first = Parts.begin(); first != Parts.end();) {
        const auto isOther = [&](const Part &part) { return part.Control != first->Control; };
        const auto last = std::find_if(first, Parts.end(), isOther);
        moved |= MoveControl(first, last, back);
        first = last;
    }
    if (moved || locked)
        return;
    PassedOver = back && IsAheadOfOthers();
    setObsolete(!PassedOver && !Stands(!back));
}

/// Whether there are changes that have come after it, and are not on the stack.
bool ChangeEntry::IsAheadOfOthers() const
{
    const auto isBeingChanged = [](const Part &part) { return part.Control && part.Control->IsBeingChanged(); };
    return MovesOfForm->Waits || std::any_of(Parts.begin(), Parts.end(), isBeingChanged);
}

bool ChangeEntry::MoveControl(QVector<Part>::iterator first, QVector<Part>::iterator last, bool back)
{
    OrbelDelegate *const control = first->Control;
    if (!control || !control->MayEdit())
        return false;
    const OrbelDelegate::Call call(control);
    QVariantList values = control->GetEdits();
    QVector<Part *> standing;
    for (auto part = first; part != last; ++part) {
        if (!part->Stands(values, back)) // clazy:exclude=strict-iterators
            continue;
        values[part->Index] = part->Side(back);
        standing.append(&*part);
    }
    if (standing.isEmpty())
        return false;
    // Limits and handlers may have made another value of it, which then counts for the way back, or kept it.
    const QVariantList now = control->MoveEdits(values);
    bool moved = false;
    for (Part *part : qAsConst(standing)) {
        const bool isKept = part->Stands(now, back);
        if (!isKept && part->Index < now.size())
            part->Side(back) = now.at(part->Index);
        moved |= !isKept;
    }
    return moved;
}

} // namespace KV218
