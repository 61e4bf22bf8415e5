// The bridge between a form's private nodes and the application's own values of the same names.

#include "formbody.h"

#include "fetchsoon.h"
#include "orbeldelegate.h"
#include "propertynames.h"
#include "selectionitem.h"
#include "trace.h"
#include "valuenumeric.h"
#include "valueptr.h"
#include "valueselection.h"

#include <cmath>
#include <typeinfo>
#include <vector>

namespace KV218
{

namespace
{

bool IsNumeric(const ValueBase *value)
{
    const ValueType type = value->GetType();
    return type == ekTypeInt || type == ekTypeInt64 || type == ekTypeDouble;
}

/// The observers of a destination may end it, or the source: the source is read whole before the first change, and the
/// destination is watched.
using Watched = ValuePtr<ValueBase>;

void CopyItems(ValueSelection *destination, const ValueSelection *source, IObserver *observer)
{
    std::vector<SelectionItem> items;
    for (long i = 0; i < source->GetItemCount(); ++i)
        items.push_back(*source->GetItemIndex(i));
    Watched alive;
    alive.AttachNode(destination);
    destination->DeleteItems(observer);
    for (const SelectionItem &item : items) {
        if (alive)
            destination->AddItem(new SelectionItem(item), observer);
    }
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

/// A limit that is infinite is as much as none.
template <class T> T Bounded(T limit)
{
    if constexpr (std::is_floating_point_v<T>)
        return qBound(T(-1e308), limit, T(1e308));
    else
        return limit;
}

template <class Node> void SetLimitProperties(OrbelDelegate *delegate, const Node *node)
{
    if (!node)
        return;
    const auto minimum = Bounded(node->GetMin());
    const auto maximum = Bounded(node->GetMax());
    const auto step = node->GetStep();
    delegate->SetPropertyAlways(prop::Minimum, QVariant::fromValue(minimum));
    delegate->SetPropertyAlways(prop::Maximum, QVariant::fromValue(maximum));
    delegate->SetPropertyAlways(prop::SingleStep, QVariant::fromValue(step));
}

/// The choice stays where its text is among the new items.
void GiveItems(OrbelDelegate *delegate, ValueSelection *node, const ValueSelection *source)
{
    const QString chosen = node->GetStringValue();
    Watched alive;
    alive.AttachNode(node);
    CopyItems(node, source, delegate);
    if (alive)
        node->Select(chosen, delegate);
    delegate->TakeNode();
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
        // Meant: an empty source leaves the items in place, so the operator keeps the choices that there were.
        if (source && node && node != source && source->GetItemCount() > 0)
            GiveItems(delegate, node, source);
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
    const double minimum = from->GetMin();
    const double maximum = from->GetMax();
    const double step = from->GetStep();
    const double value = from->GetValue();
    Watched alive;
    alive.AttachNode(destination);
    to->SetMin(minimum, observer);
    if (alive)
        to->SetMax(maximum, observer);
    if (alive)
        to->SetStep(step, observer);
    if (alive)
        to->SetValue(value, observer);
}

void TraceInitFailure(int line)
{
    TraceFailure(QStringLiteral("Exception in FormBody::InitVTValue"), "orbelformular", line);
}

/// Makes a text the only item of a selection, and the current one.
void SelectOnly(ValueSelection *selection, const QString &text, IObserver *observer)
{
    Watched alive;
    alive.AttachNode(selection);
    selection->DeleteItems(observer);
    if (alive)
        selection->AddItem(text, text.toDouble(), 0, observer);
    if (alive)
        selection->Select(text, observer);
}

/// Null for a node of another class, be it derived from this one.
template <class Node> Node *Exactly(ValueBase &node)
{
    return typeid(node) == typeid(Node) ? static_cast<Node *>(&node) : nullptr;
}

/// False where both hold the same already.
bool GiveValue(ValueBase &source, ValueBase *destination, IObserver *observer)
{
    const auto *from = Exactly<ValueDouble>(source);
    auto *to = Exactly<ValueDouble>(*destination);
    if (from && to) {
        // As by their texts, of which those of 0 and -0 differ.
        const double number = from->GetValue();
        if (number == to->GetValue() && std::signbit(number) == std::signbit(to->GetValue()))
            return false;
        to->SetValue(number, observer);
        return true;
    }
    const QString text = source.GetStringValue();
    if (destination->GetStringValue() == text)
        return false;
    destination->SetStringValue(text, observer);
    return true;
}

/// A selection takes any text of a node that is none, if need be as its only item.
void SetText(ValueBase *local, bool anyText, const QString &text, IObserver *observer)
{
    auto *selection = anyText ? dynamic_cast<ValueSelection *>(local) : nullptr;
    if (!selection)
        local->SetStringValue(text, observer);
    else if (!selection->Select(text, observer))
        SelectOnly(selection, text, observer);
}

} // namespace

ValueBase *FormBody::GetVTValue(const QString &name) const
{
    const OrbelSheet::Widget widget = Sheet.GetWidget(name);
    if (!widget)
        return nullptr;
    // All of it takes part when a value is set.
    Orbel::FetchSoon(widget->GetDelegate(), sizeof(OrbelDelegate) + 128);
    return widget->GetDelegate()->GetVTValue();
}

ValueBase *FormBody::GetVTValue(ValueBase *local, IObserver *observer, bool init, ValueBase *source)
{
    if (!local)
        return nullptr;
    if (!source)
        source = GetVTValue(local->GetName());
    if (!source) {
        if (init)
            local->SetStringValue(QLatin1String(""), observer);
        return nullptr;
    }
    // Observers of the application's value may end it, or the form with the source.
    Watched from;
    from.AttachNode(source);
    const QString text = source->GetStringValue();
    const bool anyText = source->GetType() != ekTypeSelection;
    if (init) {
        Watched to;
        to.AttachNode(local);
        InitVTValue(local, source, observer);
        if (!to)
            return from.get();
        if (local->GetStringValue() == text) {
            // The value stands already, but the limits may be new.
            local->HasChanged(ekChangeValue, observer);
            return from.get();
        }
    }
    SetText(local, anyText, text, observer);
    return from.get();
}

void FormBody::GetVTValues(const QList<ValueBase *> &locals, IObserver *observer, bool init)
{
    // Meant: from the last to the first, so of two values at one path the first one stands at the end.
    for (int i = locals.size() - 1; i >= 0; --i)
        GetVTValue(locals.at(i), observer, init, nullptr);
}

bool FormBody::SetVTValue(ValueBase *local, IObserver *observer, bool apply)
{
    ValueBase *node = local ? GetVTValue(local->GetName()) : nullptr;
    if (!node || !GiveValue(*local, node, observer))
        return false;
    if (apply)
        Sheet.applyNow();
    return true;
}

bool FormBody::SetVTValue(const QString &name, const QString &value, IObserver *observer, bool apply)
{
    ValueBase *node = GetVTValue(name);
    if (!node || node->GetStringValue() == value)
        return false;
    node->SetStringValue(value, observer);
    if (apply)
        Sheet.applyNow();
    return true;
}

void FormBody::InitVTValue(const QString &name, ValueBase *value)
{
    try {
        const OrbelSheet::Widget widget = value ? Sheet.GetWidget(name) : OrbelSheet::Widget();
        if (widget)
            InitDelegate(widget->GetDelegate(), value);
    } catch (...) {
        TraceInitFailure(__LINE__);
    }
}

void FormBody::InitVTValue(ValueBase *destination, ValueBase *source, IObserver *observer)
{
    try {
        if (!destination || !source || destination->GetType() != source->GetType())
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

void FormBody::InitEnumeration(const QString &name, ValueSelection *selection, const QStringList *identifiers)
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
