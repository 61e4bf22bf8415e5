// The bridge between a form's private nodes and the application's own values of the same names.

#include "orbelformular.h"

#include "orbeldelegate.h"
#include "propertynames.h"
#include "selectionitem.h"
#include "trace.h"
#include "valuenumeric.h"
#include "valueselection.h"

namespace KV218
{

namespace
{

bool IsNumeric(const ValueBase *value)
{
    const ValueType type = value->GetType();
    return type == ekTypeInt || type == ekTypeInt64 || type == ekTypeDouble;
}

void CopyItems(ValueSelection *destination, const ValueSelection *source, IObserver *observer)
{
    destination->DeleteItems(observer);
    for (long i = 0; i < source->GetItemCount(); ++i)
        destination->AddItem(new SelectionItem(*source->GetItemIndex(i)), observer);
}

bool HasSameItems(const ValueSelection *a, const ValueSelection *b)
{
    if (a->GetItemCount() != b->GetItemCount())
        return false;
    for (long i = 0; i < a->GetItemCount(); ++i) {
        if (*a->GetItemIndex(i) != *b->GetItemIndex(i))
            return false;
    }
    return true;
}

template <class Node> void SetLimitProperties(OrbelDelegate *delegate, const Node *node)
{
    if (!node)
        return;
    delegate->SetPropertyAlways(prop::Minimum, QVariant::fromValue(node->GetMin()));
    delegate->SetPropertyAlways(prop::Maximum, QVariant::fromValue(node->GetMax()));
    delegate->SetPropertyAlways(prop::SingleStep, QVariant::fromValue(node->GetStep()));
}

/// Gives a control the limits or the items of the application's value.
void InitDelegate(OrbelDelegate *delegate, ValueBase *value)
{
    switch (value->GetType()) {
    case ekTypeInt:
        SetLimitProperties(delegate, dynamic_cast<ValueInt *>(value));
        break;
    case ekTypeInt64:
        SetLimitProperties(delegate, dynamic_cast<ValueInt64 *>(value));
        break;
    case ekTypeDouble:
        SetLimitProperties(delegate, dynamic_cast<ValueDouble *>(value));
        break;
    case ekTypeSelection: {
        const auto *source = dynamic_cast<ValueSelection *>(value);
        auto *node = dynamic_cast<ValueSelection *>(delegate->GetVTValue());
        // Meant: an empty source leaves the items in place.
        if (source && node && node != source && source->GetItemCount() > 0)
            CopyItems(node, source, delegate);
        break;
    }
    default:
        break;
    }
}

void InitNumeric(ValueBase *destination, ValueBase *source, IObserver *observer)
{
    auto *to = dynamic_cast<IValueNumeric *>(destination);
    const auto *from = dynamic_cast<IValueNumeric *>(source);
    if (!to || !from)
        return;
    to->SetMin(from->GetMin(), observer);
    to->SetMax(from->GetMax(), observer);
    to->SetStep(from->GetStep(), observer);
    to->SetValue(from->GetValue(), observer);
}

void TraceInitFailure(int line)
{
    TraceFailure(QStringLiteral("Exception in OrbelFormular::InitVTValue"), "orbelformular", line);
}

/// Makes a text the only item of a selection, and the current one.
void SelectOnly(ValueSelection *selection, const QString &text, IObserver *observer)
{
    selection->DeleteItems(observer);
    selection->AddItem(text, text.toDouble(), 0, observer);
    selection->Select(text, observer);
}

void SetText(ValueBase *local, const ValueBase *source, const QString &text, IObserver *observer)
{
    auto *selection = source->GetType() == ekTypeSelection ? nullptr : dynamic_cast<ValueSelection *>(local);
    if (!selection)
        local->SetStringValue(text, observer);
    else if (!selection->Select(text, observer))
        SelectOnly(selection, text, observer);
}

} // namespace

ValueBase *OrbelFormular::GetVTValue(const QString &name) const
{
    const OrbelSheet::Widget widget = Sheet.GetWidget(name);
    return widget ? widget->GetDelegate()->GetVTValue() : nullptr;
}

ValueBase *OrbelFormular::GetVTValue(ValueBase *local, IObserver *observer, bool init, ValueBase *source)
{
    if (!local)
        return nullptr;
    if (!source)
        source = GetVTValue(local->GetName());
    if (!source) {
        if (init)
            local->SetStringValue(QStringLiteral(""), observer);
        return nullptr;
    }
    const QString text = source->GetStringValue();
    if (init) {
        InitVTValue(local, source, observer);
        if (local->GetStringValue() == text) {
            // The value stands already, but the limits may be new.
            local->HasChanged(ekChangeValue, observer);
            return source;
        }
    }
    SetText(local, source, text, observer);
    return source;
}

void OrbelFormular::GetVTValues(const QList<ValueBase *> &locals, IObserver *observer, bool init)
{
    // Meant: from the last to the first.
    for (int i = locals.size() - 1; i >= 0; --i)
        GetVTValue(locals.at(i), observer, init);
}

bool OrbelFormular::SetVTValue(ValueBase *local, IObserver *observer, bool apply)
{
    return local && SetVTValue(local->GetName(), local->GetStringValue(), observer, apply);
}

bool OrbelFormular::SetVTValue(const QString &name, const QString &value, IObserver *observer, bool apply)
{
    ValueBase *node = GetVTValue(name);
    if (!node || node->GetStringValue() == value)
        return false;
    const QPointer<OrbelFormular> self(this);
    node->SetStringValue(value, observer);
    if (apply && self)
        Sheet.applyNow();
    return true;
}

void OrbelFormular::InitVTValue(const QString &name, ValueBase *value)
{
    try {
        const OrbelSheet::Widget widget = value ? Sheet.GetWidget(name) : OrbelSheet::Widget();
        if (widget)
            InitDelegate(widget->GetDelegate(), value);
    } catch (...) {
        TraceInitFailure(__LINE__);
    }
}

void OrbelFormular::InitVTValue(ValueBase *destination, ValueBase *source, IObserver *observer)
{
    try {
        if (destination->GetType() != source->GetType())
            return;
        if (IsNumeric(source)) {
            InitNumeric(destination, source, observer);
            return;
        }
        auto *to = dynamic_cast<ValueSelection *>(destination);
        const auto *from = dynamic_cast<ValueSelection *>(source);
        if (to && from && !HasSameItems(to, from))
            CopyItems(to, from, observer);
    } catch (...) {
        TraceInitFailure(__LINE__);
    }
}

void OrbelFormular::InitEnumeration(const QString &name, ValueSelection *selection, const QStringList *identifiers)
{
    const auto values = Enums.value(name);
    if (!values || !selection)
        return;
    values->ClearValues();
    for (long i = 0; i < selection->GetItemCount(); ++i) {
        const SelectionItem *item = selection->GetItemIndex(i);
        const QString value = identifiers && i < identifiers->size()
            ? identifiers->at(int(i))
            : QStringLiteral("%1").arg(item->GetValue(), 0, 'f', 2);
        values->AppendEnumValue(item->GetName(), name.toUpper() + QLatin1Char('_') + value, value);
    }
}

} // namespace KV218
