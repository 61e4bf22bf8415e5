#include "vccheckbox.h"

VCCheckBox::VCCheckBox(QWidget *parent, const char *name) : QCheckBox(parent)
{
    setObjectName(QString::fromUtf8(name));
    connect(this, &QCheckBox::toggled, this, [this] { Late.Request(&VCCheckBox::WriteNode); });
}

bool VCCheckBox::SetBoolean(ValueBoolean *node)
{
    const bool bound = Node.Bind(node);
    ShowNode();
    return bound;
}

void VCCheckBox::Update(Observable *subject, TChangeCode code)
{
    if (Node.TakeNotification(subject, code))
        ShowNode();
}

void VCCheckBox::nextCheckState()
{
    if (Node)
        Late.After([this] { QCheckBox::nextCheckState(); });
}

void VCCheckBox::WriteNode()
{
    if (Node && Node->GetValue() != isChecked())
        Node.Write(this, [this] { Node->SetValue(isChecked(), this); });
}

void VCCheckBox::ShowNode()
{
    if (!Node)
        return;
    setChecked(Node->GetValue());
    // Within a click the base class does not notice a state that an observer has put back.
    checkStateSet();
}
