// What a host has to do with a control's values: as data, and as what its device has.

#include "orbeldelegate.h"

#include "assistive.h"
#include "devicenote.h"
#include "editquery.h"
#include "formdoor.h"
#include "inputlock.h"
#include "ivaluenumeric.h"
#include "numbertext.h"
#include "propertynames.h"
#include "typedvalue.h"

#include <QCoreApplication>
#include <QWidget>

#include <algorithm>

namespace KV218
{

QVariant OrbelDelegate::ValueOf(const QVariantList &edits) const
{
    const QVector<ValueBase *> nodes = GetNodes();
    QVariantList values;
    for (int i = 0; i < nodes.size() && i < edits.size(); ++i)
        values.append(HostNumber(ValueOfText(*nodes.at(i), edits.at(i).toString())));
    return values.size() > 1 || HasSeveralValues() ? QVariant(values) : values.value(0);
}

bool OrbelDelegate::EditsOf(const QVariant &value, QVariantList *edits, QString *error) const
{
    const QVector<ValueBase *> nodes = GetNodes();
    const bool isList = nodes.size() > 1 || HasSeveralValues();
    const QVariantList values = isList ? value.toList() : QVariantList{value};
    if (nodes.isEmpty())
        return Refuse(QStringLiteral("It has no value"), error);
    if (values.size() != nodes.size())
        return Refuse(QStringLiteral("A list of %1 values is wanted").arg(nodes.size()), error);
    edits->clear();
    for (int i = 0; i < nodes.size(); ++i) {
        QString text;
        if (!EditOf(*nodes.at(i), values.at(i), &text, error))
            return false;
        edits->append(text);
    }
    return true;
}

bool OrbelDelegate::EditOf(const ValueBase &node, const QVariant &value, QString *text, QString *error) const
{
    if (!dynamic_cast<const IValueNumeric *>(&node))
        return TextOfValue(node, value, text, error);
    double number = 0;
    if (!NumberOfValue(node, value, &number, error))
        return false;
    const double held = NodeNumber(number);
    const QString beyond = BeyondLimits(node, held);
    *text = Orbel::NumberToText(held);
    return beyond.isNull() || Refuse(beyond, error);
}

/// Nearly all reports are of what stands there already.
bool OrbelDelegate::HoldsAlready(const QVariant &value) const
{
    const int type = value.userType();
    if (type == QMetaType::QString || type == QMetaType::Bool) {
        const QVariant held = GetValue();
        return held.userType() == type && held == value;
    }
    const bool isNumber = type == QMetaType::Double || type == QMetaType::Int || type == QMetaType::LongLong;
    const auto *node = isNumber ? dynamic_cast<const IValueNumeric *>(GetVTValue()) : nullptr;
    return node && node->GetValue() == NodeNumber(value.toDouble());
}

bool OrbelDelegate::Report(const QVariant &value, QString *error)
{
    if (!Modified && !Device && HoldsAlready(value))
        return true;
    QVariantList edits;
    if (!EditsOf(value, &edits, error))
        return false;
    const Call call(this);
    const bool stands = AreSameEdits(edits, GetEdits());
    if (IsChanged())
        KeepAgainst(edits);
    else if (!stands || Modified || Device)
        TakeReport(edits, stands);
    return true;
}

/// The operator has changed the value and not applied it.
void OrbelDelegate::KeepAgainst(const QVariantList &values)
{
    const QVariantList *former = GetReported();
    if (former && Applied && AreSameEdits(*former, values) && AreSameEdits(Applied->Values, values))
        return;
    SetApplied(values);
    if (IsChanged()) {
        NeedDevice()->Reported = values;
    } else {
        // The device has what he was about to apply.
        if (Device)
            Device->Reported.reset();
        resetModified();
        Form().SettleModified();
    }
    TellDevice();
}

/// What is being typed goes on in its field, whatever the node holds.
void OrbelDelegate::TakeReport(const QVariantList &values, bool stands)
{
    const bool typing = IsBeingEdited();
    const bool differed = GetReported();
    if (!stands) {
        const FormDoor::Reporting reporting(Form());
        PutReported(values);
    }
    if (typing && !stands)
        NeedDevice()->Reported = values;
    else if (!typing && Device)
        Device->Reported.reset();
    if (typing && Modified) {
        SetApplied(GetEdits());
    } else if (Modified) {
        resetModified();
        Form().SettleModified();
    }
    if ((typing && !stands) || differed != bool(GetReported()))
        TellDevice();
}

bool OrbelDelegate::EnterValue(const QVariant &value, QString *error)
{
    QVariantList edits;
    if (!EditsOf(value, &edits, error))
        return false;
    const OperatorChange change(this);
    PutEdits(edits);
    return true;
}

bool OrbelDelegate::TakeReported()
{
    if (!GetReported())
        return false;
    const Call call(this);
    if (IsBeingEdited()) {
        Orbel::InputLock drop;
        QCoreApplication::sendEvent(Form().GetSheetWidget()->window()->focusWidget(), &drop);
    }
    LookAgain();
    return !IsChanged() || Form().Revert();
}

void OrbelDelegate::BecomeChanged(const QVariantList *applied)
{
    if (!GenerateXml || (applied && AreSameEdits(GetEdits(), *applied)))
        return;
    if (applied)
        SetApplied(*applied);
    Modified = true;
    ChangeShows = true;
    SetAnswer(RowLabel::None, QString());
    Form().Note();
}

DeviceNote *OrbelDelegate::NeedDevice()
{
    if (!Device) {
        Device = std::make_unique<DeviceNote>(this);
        Assistive::PropertyChanged(this, prop::ToolTip);
    }
    return Device.get();
}

/// The operator's change or edit is over by which the device differed: applied, put back, taken back.
void OrbelDelegate::SettleDevice(bool changed)
{
    if (!Device)
        return;
    if (Device->Reported && !changed && !IsBeingEdited())
        Device->Reported.reset();
    if (Device->IsEmpty())
        Device.reset();
}

void OrbelDelegate::TellDevice()
{
    Form().Note();
}

void OrbelDelegate::LookAgain()
{
    Form().Note();
}

const QVariantList *OrbelDelegate::GetReported() const
{
    return Device && Device->Reported ? &*Device->Reported : nullptr;
}

QString OrbelDelegate::SpellReported() const
{
    const QVariantList *reported = GetReported();
    if (!reported)
        return QString();
    const QString differing = SpellSides(*reported, GetEdits()).first;
    if (!differing.isEmpty())
        return differing;
    return SpellEdits(*reported);
}

QString OrbelDelegate::SpellEdits(const QVariantList &edits) const
{
    constexpr int mostTold = 3;
    QStringList all;
    for (int i = 0; i < qMin(mostTold, edits.size()); ++i)
        all.append(ToldEdit(SpellEdit(i, edits.at(i))));
    return all.join(QStringLiteral(", "));
}

void OrbelDelegate::SetAnswer(RowLabel::Mark answer, const QString &reason)
{
    if (answer == RowLabel::None && !Device)
        return;
    NeedDevice()->Answer = answer;
    Device->Reason = reason;
    TellDevice();
}

RowLabel::Mark OrbelDelegate::GetAnswer() const
{
    return Device ? Device->Answer : RowLabel::None;
}

QString OrbelDelegate::GetDeviceText() const
{
    return Device ? Device->GetText() : QString();
}

bool OrbelDelegate::IsBeingEdited() const
{
    const QWidget *form = Form().GetSheetWidget();
    QWidget *const focus = form ? form->window()->focusWidget() : nullptr;
    if (!focus)
        return false;
    const QVector<Face> faces = GetFaces();
    return std::any_of(faces.begin(), faces.end(), [focus](const Face &face) {
        return face.Widget && (face.Widget == focus || face.Widget->isAncestorOf(focus));
    }) && EditQuery::IsEditing(focus);
}

} // namespace KV218
