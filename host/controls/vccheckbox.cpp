#include "vccheckbox.h"

#include <QPointer>

VCCheckBox::VCCheckBox(QWidget *parent, const char *name) : QCheckBox(parent)
{
    setObjectName(QString::fromUtf8(name));
    connect(this, &QCheckBox::toggled, this, [this] { Writer.Request(); });
}

bool VCCheckBox::SetBoolean(ValueBoolean *node)
{
    const bool bound = Node.Bind(node);
    ShowNode();
    return bound;
}

void VCCheckBox::Update(Observable *subject, TChangeCode code)
{
    if (Node.HasNews(subject, code))
        ShowNode();
}

void VCCheckBox::nextCheckState()
{
    if (!Node)
        return;
    const QPointer<VCCheckBox> self(this);
    Writer.After([this] { QCheckBox::nextCheckState(); });
    // Within a click the base class does not notice a state that an observer has put back.
    if (self)
        checkStateSet();
}

void VCCheckBox::WriteNode()
{
    if (!Node || Node->GetValue() == isChecked())
        return;
    const QPointer<VCCheckBox> self(this);
    Node->SetValue(isChecked(), this);
    if (self)
        ShowNode();
}

void VCCheckBox::ShowNode()
{
    if (Node)
        setChecked(Node->GetValue());
}
