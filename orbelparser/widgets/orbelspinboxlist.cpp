#include "orbelspinboxlist.h"

#include "inputlock.h"
#include "newcontrol.h"
#include "vcnumericfloatspin.h"

namespace KV218
{

OrbelDelegate *NewSpinBoxList(OrbelWidget *widget)
{
    return NewControl<OrbelSpinBoxList>(widget);
}

OrbelSpinBoxList::OrbelSpinBoxList(OrbelWidget *widget) : SpinListDelegate(widget) { }

void OrbelSpinBoxList::CreateValueTree()
{
    CreateNodes(GetInt(prop::ItemCount, 0));
}

void OrbelSpinBoxList::CreateGUI(FloatGroupLayout *layout)
{
    // Meant: the controls are not kept, so nothing reaches them later but their nodes. A collapse or a lock of this
    // moment would never end for them.
    for (VCNumericFloatSpin *spin : CreateControls(layout)) {
        PropagateState(spin);
        spin->installEventFilter(this);
    }
}

bool OrbelSpinBoxList::eventFilter(QObject *, QEvent *event)
{
    // What is being typed stays with the items, which no lock reaches.
    const bool isLock = event->type() == Orbel::InputLock::Kind();
    if (isLock)
        event->ignore();
    return isLock;
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
