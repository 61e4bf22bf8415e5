#include "orbeldoublespinboxlist.h"

#include "newcontrol.h"
#include "spinbuilder.h"

namespace KV218
{

OrbelDelegate *NewDoubleSpinBoxList(OrbelWidget *widget)
{
    return NewControl<OrbelDoubleSpinBoxList>(widget);
}

OrbelDoubleSpinBoxList::OrbelDoubleSpinBoxList(OrbelWidget *widget) : SpinListDelegate(widget) { }

void OrbelDoubleSpinBoxList::CreateValueTree()
{
    // Meant: an `itemCount` that is stated decides, even when it is 0.
    const bool stated = !property(prop::ItemCount.data()).isNull();
    CreateNodes(GetInt(stated ? prop::ItemCount : prop::ShiftCount, 0));
}

void OrbelDoubleSpinBoxList::CreateGUI(FloatGroupLayout *layout)
{
    Items.clear();
    for (VCNumericFloatSpin *spin : CreateControls(layout))
        Items.append({spin});
}

QString OrbelDoubleSpinBoxList::ItemText(const ValueDouble &node) const
{
    // Meant: one decimal place stays one, though a single spin control shortens whole numbers then.
    return QString::number(node.GetValue(), 'f', DocumentDecimals(*this));
}

void OrbelDoubleSpinBoxList::EnableInput(bool enable, bool partial)
{
    const Call call(this);
    OrbelDelegate::EnableInput(enable, partial);
    InputEnabled = enable;
    if (!enable)
        return;
    // Meant: the items' own state counts here, not the property `enabled`.
    for (int i = 0; i < Items.size(); ++i)
        setEnabled(i, Items.at(i).Enabled);
}

void OrbelDoubleSpinBoxList::setFocus()
{
    const Call call(this);
    if (!Items.isEmpty() && Items.first().Control)
        Items.first().Control->setFocus();
}

void OrbelDoubleSpinBoxList::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    const auto items = Items;
    for (const Item &item : items)
        PropagateProperty(name, item.Control);
}

bool OrbelDoubleSpinBoxList::isEnabled(int index) const
{
    const VCNumericFloatSpin *control = Items.value(index).Control;
    return control && control->isEnabled();
}

void OrbelDoubleSpinBoxList::setEnabled(int index, bool flag)
{
    if (index < 0 || index >= Items.size())
        return;
    Item &item = Items[index];
    item.Enabled = flag;
    if (InputEnabled && item.Control)
        item.Control->setEnabled(flag);
}

void OrbelDoubleSpinBoxList::EmitNumber(int index, double number)
{
    Q_EMIT valueChanged(index, number);
    Q_EMIT shiftValueChanged(index, number);
}

} // namespace KV218
