#include "orbelspinboxlist.h"

#include "vcnumericfloatspin.h"

namespace KV218
{

OrbelSpinBoxList::OrbelSpinBoxList(OrbelWidget *widget) : SpinListDelegate(widget) { }

void OrbelSpinBoxList::CreateValueTree()
{
    CreateNodes(GetInt(prop::ItemCount, 0));
}

void OrbelSpinBoxList::CreateGUI(FloatGroupLayout *layout)
{
    // Meant: the controls are not kept, so nothing reaches them later but their nodes. A collapse or a lock of this moment
    // would never end for them.
    for (VCNumericFloatSpin *spin : CreateControls(layout))
        PropagateState(spin);
}

QString OrbelSpinBoxList::ItemText(const ValueInt &node) const
{
    // Meant: without `displayAdditiveOffset`, which counts in a single spin control.
    return node.GetStringValue();
}

void OrbelSpinBoxList::setPrefix(QString value)
{
    // Meant: the text goes to `value`, where it reaches no item.
    ChangeProperty(prop::Value, value);
}

void OrbelSpinBoxList::setFocus() { }

bool OrbelSpinBoxList::isEnabled(int) const
{
    return false;
}

void OrbelSpinBoxList::setEnabled(int, bool) { }

void OrbelSpinBoxList::EmitNumber(int index, int number)
{
    Q_EMIT valueChanged(index, number);
}

} // namespace KV218
