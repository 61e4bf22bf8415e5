// What the operator changes by a control: how it is seen, recorded, put back, and told.

#include "orbeldelegate.h"

#include "devicenote.h"
#include "formdoor.h"
#include "formlimits.h"
#include "operatoract.h"
#include "orbelwidget.h"
#include "propertynames.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <algorithm>
#include <memory>
#include <utility>

namespace KV218
{

/// A check box, say, cannot be, and takes no notice of the property.
static bool IsReadOnly(const Face &face)
{
    const QWidget *widget = face.Widget;
    return widget && widget->metaObject()->indexOfProperty(prop::ReadOnly.data()) >= 0
        && widget->property(prop::ReadOnly.data()).toBool();
}

/// Kept to the end of the act, which is the control's and may be over later than the form.
struct OrbelDelegate::JoinedAct {
    JoinedAct(const OrbelDelegate *delegate, int session) : Running(delegate), Session(session) { }

    const Call Running;
    const int Session;
    EditState AtStart;
    /// What has been recorded so far left this.
    QVariantList Before;
};

/// What there was in the places of `now`; what has come since stands for itself.
static QVariantList Fitted(const QVariantList &former, const QVariantList &now)
{
    return former.mid(0, now.size()) + now.mid(former.size());
}

QVariantList OrbelDelegate::NodeTexts() const
{
    QVariantList texts;
    for (const ValueBase *node : GetNodes())
        texts.append(node->GetStringValue());
    return texts;
}

QVariantList OrbelDelegate::GetEdits() const
{
    return NodeTexts();
}

void OrbelDelegate::PutEdits(const QVariantList &values)
{
    PutReported(values);
}

void OrbelDelegate::PutReported(const QVariantList &values)
{
    const QVariantList before = GetEdits();
    // Observers of one node may end the others, or set them, which stays.
    for (int i = 0; i < values.size() && i < before.size(); ++i) {
        const auto nodes = GetNodes();
        if (i < nodes.size() && before.at(i) != values.at(i))
            nodes.at(i)->SetStringValue(values.at(i).toString(), nullptr);
    }
}

QVariantList OrbelDelegate::MoveEdits(const QVariantList &values)
{
    const Call call(this);
    RecordSoFar();
    std::optional<QVariantList> reached;
    const QScopedValueRollback<std::optional<QVariantList> *> moved(Reached, &reached);
    EditState stands = GetEditState();
    const QVariantList former = stands.Values;
    {
        const QScopedValueRollback<EditState *> before(EditsBefore, EditsBefore ? EditsBefore : &stands);
        // What moves is no part of a change that is on its way.
        const Orbel::OperatorAct::Pause pause;
        const QScopedValueRollback<JoinedAct *> act(Act, nullptr);
        const QScopedValueRollback<OperatorChange *> change(OpenChange, nullptr);
        PutEdits(values);
    }
    BeginAnew();
    if (!AreSameEdits(former, GetEdits()))
        Form().TellEdited();
    return reached.value_or(GetEdits());
}

/// The operator begins a change of his own, while handlers hear of an entry that moves.
void OrbelDelegate::EndMove(const QVariantList &now)
{
    if (Reached && !*Reached)
        *Reached = now;
}

void OrbelDelegate::RecordSoFar()
{
    if (Act)
        Form().Record(Act->Before, NodeTexts(), Act->Session);
    if (OpenChange)
        OpenChange->Record();
    BeginAnew();
}

/// What is changed from now on belongs to the change that is on its way.
void OrbelDelegate::BeginAnew()
{
    if (Act)
        Act->Before = NodeTexts();
    if (OpenChange)
        OpenChange->Begin();
}

void OrbelDelegate::Touch()
{
    Touched = Touched || Form().isActive();
}

QVariantList OrbelDelegate::TranslateEdits(const OrbelDelegate &former, const QVariantList &edits) const
{
    QVariantList own = GetEdits();
    for (int i = 0; i < edits.size(); ++i) {
        const int place = TranslatePlace(former, i);
        if (place >= 0 && place < own.size())
            own[place] = TranslateEdit(former, edits.at(i));
    }
    return own;
}

int OrbelDelegate::TranslatePlace(const OrbelDelegate &, int place) const
{
    return place;
}

QVariant OrbelDelegate::TranslateEdit(const OrbelDelegate &, const QVariant &value) const
{
    return value;
}

void OrbelDelegate::TakeValues(const OrbelDelegate &former, const QVariantList &edits)
{
    const QVariantList values = TranslateEdits(former, edits);
    if (GetNodes().isEmpty())
        PutEdits(values);
    else
        OrbelDelegate::PutEdits(values);
}

QString OrbelDelegate::SpellEdit(int, const QVariant &value) const
{
    return value.toString();
}

QString OrbelDelegate::SpellEditPart(int index) const
{
    return QString::number(index + 1);
}

QString OrbelDelegate::ToldEdit(const QString &text)
{
    const QString line = text.simplified();
    if (line.size() > limit::ToldValue)
        return line.left(limit::ToldValue) + QChar(0x2026);
    return line.isEmpty() ? QCoreApplication::translate("KV218::OrbelDelegate", "(empty)") : line;
}

OrbelDelegate::Sides OrbelDelegate::TellSides(const QVariantList &before, const QVariantList &after) const
{
    Sides sides;
    for (int i = 0; i < before.size() && i < after.size(); ++i) {
        if (IsSameEdit(before.at(i), after.at(i)))
            continue;
        sides.Before.append(ToldEdit(SpellEdit(i, before.at(i))));
        sides.After.append(ToldEdit(SpellEdit(i, after.at(i))));
        sides.LastIndex = i;
    }
    return sides;
}

static constexpr int MostTold = 3; // of values that have changed at once

static QString Counted(int values)
{
    return QCoreApplication::translate("KV218::OrbelDelegate", "%1 values").arg(values);
}

QPair<QString, QString> OrbelDelegate::SpellSides(const QVariantList &before, const QVariantList &after) const
{
    const Sides sides = TellSides(before, after);
    const int count = sides.Before.size();
    if (count > MostTold)
        return {Counted(count), Counted(count)};
    const QString separator = QStringLiteral(", ");
    return {sides.Before.join(separator), sides.After.join(separator)};
}

QString OrbelDelegate::SpellChange(const QVariantList &before, const QVariantList &after) const
{
    const Sides sides = TellSides(before, after);
    const int count = sides.Before.size();
    if (count == 0)
        return GetCaption();
    if (count > MostTold)
        return QCoreApplication::translate("KV218::OrbelDelegate", "%1: %2 values").arg(GetCaption()).arg(count);
    const bool isPart = count == 1 && after.size() > 1;
    const QString who = isPart ? GetCaption() + QLatin1Char(' ') + SpellEditPart(sides.LastIndex) : GetCaption();
    const QString separator = QStringLiteral(", ");
    return QStringLiteral("%1: %2 \u2192 %3").arg(who, sides.Before.join(separator), sides.After.join(separator));
}

bool OrbelDelegate::IsSameEdit(const QVariant &one, const QVariant &other)
{
    if (!one.isValid() || !other.isValid())
        return one.toString() == other.toString();
    const bool sameText = one.userType() == QMetaType::Double || one.toString() == other.toString();
    return one.userType() == other.userType() && IsSame(one, other) && sameText;
}

QString OrbelDelegate::GetCaption() const
{
    QString caption = GetTranslated(prop::LabelText).simplified();
    while (caption.endsWith(QLatin1Char(':')))
        caption.chop(1);
    return caption.isEmpty() ? WidgetName() : caption;
}

bool OrbelDelegate::MayEdit() const
{
    if (Closed || !IsDefined(prop::Enabled) || !GetBool(prop::Enabled, true))
        return false;
    const QVector<Face> faces = GetBool(prop::ReadOnly, false) ? GetFaces() : QVector<Face>();
    return std::none_of(faces.begin(), faces.end(), &IsReadOnly);
}

void OrbelDelegate::ComeIntoView()
{
    const Call call(this);
    Form().Show();
}

bool OrbelDelegate::IsChanged() const
{
    if (!Modified || !ChangeShows || (OwnerWidget && !OwnerWidget->IsSelected()))
        return false;
    if (!Applied)
        return true;
    const EditState now = GetEditState();
    return now.Shape != Applied->Shape || !AreSameEdits(now.Values, Applied->Values);
}

bool OrbelDelegate::AreSameEdits(const QVariantList &one, const QVariantList &other)
{
    return one.size() == other.size() && std::equal(one.begin(), one.end(), other.begin(), &IsSameEdit);
}

std::optional<QVariantList> OrbelDelegate::GetApplied() const
{
    if (!Applied || Applied->Shape != GetEditShape())
        return {};
    return Fitted(Applied->Values, GetEdits());
}

void OrbelDelegate::ShowChanged(bool changed)
{
    SettleDevice(changed);
    if (!Label)
        return;
    const RowLabel::Mark answer = GetAnswer();
    const RowLabel::Mark own = changed ? RowLabel::Changed : answer;
    Label->SetMark(answer == RowLabel::Refused ? answer : GetReported() ? RowLabel::Differs : own);
}

void OrbelDelegate::JoinAct(const Observable *node)
{
    Orbel::OperatorAct *const act = Orbel::OperatorAct::On(node);
    if (!act)
        return;
    const auto joined = std::make_shared<JoinedAct>(this, act->GetSession());
    auto record = [this, joined, outer = EditsBefore, outerAct = Act] {
        EditsBefore = outer;
        Act = outerAct;
        if (Act)
            Act->Before = NodeTexts();
        Form().Ended();
        Form().Record(joined->Before, NodeTexts(), joined->Session);
    };
    if (!act->AtEnd(this, std::move(record)))
        return;
    for (const ValueBase *own : GetNodes())
        joined->Before.append(own == node ? act->GetBefore() : own->GetStringValue());
    joined->AtStart = {joined->Before, GetEditShape()};
    EndMove(joined->Before);
    // In the order of time; the outer act goes on with what stands after this one.
    if (Act)
        Form().Record(Act->Before, joined->Before, Act->Session);
    EditsBefore = EditsBefore ? EditsBefore : &joined->AtStart;
    Act = joined.get();
    Form().Began();
}

void OrbelDelegate::LeaveToOthers(const Observable *node)
{
    if (!Act || Orbel::OperatorAct::On(node))
        return;
    const auto nodes = GetNodes();
    for (int i = 0; i < nodes.size() && i < Act->Before.size(); ++i) {
        if (nodes.at(i) == node)
            Act->Before[i] = nodes.at(i)->GetStringValue();
    }
}

void OrbelDelegate::MarkTyping()
{
    const Call call(this);
    EditState stands = Modified ? EditState() : GetEditState();
    const QScopedValueRollback<EditState *> before(EditsBefore, EditsBefore ? EditsBefore : &stands);
    setModified(false);
}

OrbelDelegate::OperatorChange::OperatorChange(OrbelDelegate *delegate) : Running(delegate), Delegate(delegate)
{
    if (Delegate->OpenChange && Delegate->Notices == 0) {
        Delegate = nullptr;
        return;
    }
    Outer = std::exchange(Delegate->OpenChange, this);
    OuterNotices = std::exchange(Delegate->Notices, 0);
    OuterBefore = Delegate->EditsBefore;
    if (Outer)
        Outer->Record();
    Begin();
    AtStart = Before;
    Delegate->EndMove(Before.Values);
    Delegate->EditsBefore = OuterBefore ? OuterBefore : &AtStart;
    Delegate->Form().Began();
}

OrbelDelegate::OperatorChange::~OperatorChange()
{
    if (!Delegate)
        return;
    Delegate->OpenChange = Outer;
    Delegate->Notices = OuterNotices;
    Delegate->EditsBefore = OuterBefore;
    Delegate->Form().Ended();
    Record();
    if (Outer)
        Outer->Begin();
}

void OrbelDelegate::OperatorChange::Begin()
{
    Before = Delegate->GetEditState();
}

void OrbelDelegate::OperatorChange::Record()
{
    const EditState now = Delegate->GetEditState();
    if (now.Shape != Before.Shape)
        return;
    // Handlers may have added values, or taken some away.
    QVariantList before = Fitted(Before.Values, now.Values);
    for (int i = 0; i < before.size() && !Own.isEmpty(); ++i) {
        if (!Own.contains(i))
            before[i] = now.Values.at(i);
    }
    Delegate->Touch();
    Delegate->Form().Record(before, now.Values, 0);
}

OrbelDelegate::EditNotice::EditNotice(OrbelDelegate *delegate, const QSet<int> &indices)
    : Running(delegate), Delegate(delegate)
{
    if (Delegate->Notices++ == 0 && Delegate->OpenChange)
        Delegate->OpenChange->Own += indices;
}

} // namespace KV218
