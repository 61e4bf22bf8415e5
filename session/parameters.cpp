#include "parameters.h"

#include "ivaluenumeric.h"
#include "orbeldelegate.h"
#include "orbelformular.h"
#include "propertynames.h"
#include "suggestion.h"
#include "valuebase.h"

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;
using KV218::OrbelDelegate;
using KV218::OrbelFormular;

constexpr double Unlimited = 1e300; // greater bounds are none

QStringList PathsOf(OrbelFormular &form)
{
    QStringList paths;
    const KV218::OrbelSheet &sheet = form.GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        if (const OrbelDelegate *control = sheet.GetWidgetAt(i)->GetDelegate())
            paths.append(control->GetXmlPath());
    }
    return paths;
}

ControlInfo::Kind KindOf(const OrbelDelegate &control, const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return ControlInfo::Switch;
    case QMetaType::Int:
    case QMetaType::LongLong:
        return ControlInfo::Whole;
    case QMetaType::Double:
        return ControlInfo::Real;
    case QMetaType::QString:
        return control.GetString(prop::EnumName, QString()).isEmpty() ? ControlInfo::Text : ControlInfo::OneOf;
    case QMetaType::QVariantList:
        return ControlInfo::List;
    default:
        return ControlInfo::None;
    }
}

/// A limit of a node as a value of the control; invalid for one that is none.
QVariant LimitOf(const OrbelDelegate &control, double limit, const QVariant &value)
{
    const bool isWhole = value.userType() == QMetaType::Int;
    const double offset = isWhole ? control.GetInt(prop::DisplayAdditiveOffset, 0) : 0;
    const double none = isWhole ? double(std::numeric_limits<int>::max()) : Unlimited;
    if (qAbs(limit) >= none)
        return QVariant();
    QVariant typed(limit - offset);
    typed.convert(value.userType());
    return typed;
}

void FillLimits(const OrbelDelegate &control, const QVariant &value, ControlInfo *info)
{
    if (const auto *node = dynamic_cast<const IValueNumeric *>(control.GetVTValue())) {
        info->Minimum = LimitOf(control, node->GetMin(), value);
        info->Maximum = LimitOf(control, node->GetMax(), value);
        info->Step = QVariant(node->GetStep());
        info->Step.convert(value.userType());
        return;
    }
    // Of a list no node stands for all.
    const double scale = control.GetDouble(prop::DisplayScalingFactor, 1.0);
    const auto stated = [&](QLatin1String name) {
        const QVariant bound = control.property(name.data());
        return bound.isValid() ? QVariant(bound.toDouble() / scale) : QVariant();
    };
    info->Minimum = stated(prop::Minimum);
    info->Maximum = stated(prop::Maximum);
    info->Step = stated(prop::SingleStep);
}

QVector<Choice> ChoicesOf(OrbelFormular &form, const OrbelDelegate &control)
{
    const auto rows = form.GetEnum(control.GetString(prop::EnumName, QString()));
    QVector<Choice> choices;
    for (int i = 0; i < rows->GetValueCount(); ++i) {
        const KV218::OrbelEnumValue &row = rows->GetValueAt(i);
        choices.append({row.GetValue(), control.SpellEdit(0, row.GetDisplayName())});
    }
    return choices;
}

ControlInfo InfoOf(OrbelFormular &form, const KV218::OrbelWidget &widget)
{
    const OrbelDelegate &control = *widget.GetDelegate();
    const QVariant value = control.GetValue();
    ControlInfo info;
    info.Path = control.GetXmlPath();
    info.Name = widget.GetName();
    info.Class = widget.GetClass();
    info.Label = control.GetCaption();
    info.What = KindOf(control, value);
    info.Decimals = control.GetInt(prop::Decimals, 0);
    if (info.What == ControlInfo::Whole || info.What == ControlInfo::Real || info.What == ControlInfo::List)
        FillLimits(control, value, &info);
    // What is shown in kHz is a value in Hz all the same.
    const bool isFrequency = value.userType() == QMetaType::LongLong;
    info.Unit = isFrequency ? QStringLiteral("Hz") : control.GetString(prop::Unit, QString());
    if (info.What == ControlInfo::OneOf)
        info.Choices = ChoicesOf(form, control);
    return info;
}

/// Several controls may have one path, and one that is no path at all.
QHash<QString, QVector<const OrbelDelegate *>> ChangedByPath(OrbelFormular &form)
{
    QHash<QString, QVector<const OrbelDelegate *>> controls;
    const KV218::OrbelSheet &sheet = form.GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const OrbelDelegate *control = sheet.GetWidgetAt(i)->GetDelegate();
        if (control && control->IsChanged())
            controls[control->GetXmlPath()].append(control);
    }
    return controls;
}

Change ChangeOf(const OrbelDelegate &control)
{
    const QVariantList now = control.GetEdits();
    const auto applied = control.GetApplied();
    Change change;
    change.Path = control.GetXmlPath();
    change.Label = control.GetCaption();
    change.New = control.ValueOf(now);
    if (applied) {
        change.Old = control.ValueOf(*applied);
        const auto [before, after] = control.SpellSides(*applied, now);
        change.OldText = before;
        change.NewText = after;
    } else {
        change.NewText = control.SpellEdits(now);
    }
    return change;
}

} // namespace

OrbelDelegate *FindControl(OrbelFormular &form, const QString &path, QString *error)
{
    const KV218::OrbelSheet::Widget widget = form.GetSheet().GetWidget(path);
    OrbelDelegate *const control = widget ? widget->GetDelegate() : nullptr;
    if (!control && error)
        *error = QStringLiteral("There is no parameter \"%1\"").arg(path) + DidYouMean(path, PathsOf(form));
    return control;
}

void NameInError(const OrbelDelegate &control, QString *error)
{
    if (error)
        error->prepend(QStringLiteral("Parameter \"%1\": ").arg(control.GetXmlPath()));
}

QVector<ControlInfo> ControlsOf(OrbelFormular &form)
{
    QVector<ControlInfo> infos;
    const KV218::OrbelSheet &sheet = form.GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const KV218::OrbelSheet::Widget widget = sheet.GetWidgetAt(i);
        if (widget->GetDelegate())
            infos.append(InfoOf(form, *widget));
    }
    return infos;
}

QVector<Change> ChangesOf(OrbelFormular &form)
{
    QVector<Change> changes;
    const QStringList paths = form.GetChanged();
    const auto controls = ChangedByPath(form);
    QHash<QString, int> told;
    for (const QString &path : paths) {
        if (const OrbelDelegate *control = controls.value(path).value(told[path]++))
            changes.append(ChangeOf(*control));
    }
    return changes;
}

} // namespace Orbel
