#include "vccheckbox.h"

#include "outofview.h"

#include <QButtonGroup>

#include <optional>

namespace
{

/// For the moment in which a box is unchecked. Before it unchecks a button in no group, Qt searches all that its parent
/// holds for others.
class GroupOfOne : public QButtonGroup
{
};

} // namespace

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

/// Nobody who is told of the state meets the box in a group that is not the host's.
void VCCheckBox::checkStateSet()
{
    if (auto *alone = dynamic_cast<GroupOfOne *>(group()))
        alone->removeButton(this);
    QCheckBox::checkStateSet();
}

void VCCheckBox::WriteNode()
{
    if (Node && Node->GetValue() != isChecked())
        Node.Write(this, [this] { Node->SetValue(isChecked(), this); });
}

/// setChecked(); a box out of view asks for no repaint.
void VCCheckBox::SetChecked(bool checked)
{
    const bool isPlain = isCheckable() && !group() && !autoExclusive() && !isTristate();
    std::optional<GroupOfOne> alone;
    if (isPlain && !checked && isChecked()) {
        alone.emplace().setExclusive(false);
        alone->addButton(this);
    }
    if (checked == isChecked() || !isPlain || !Orbel::IsOutOfView(this)) {
        setChecked(checked);
        return;
    }
    {
        const Orbel::RepaintsNothing quiet(this);
        setChecked(checked);
    }
    Q_EMIT stateChanged(checkState());
    Q_EMIT toggled(checked);
}

void VCCheckBox::ShowNode()
{
    if (!Node)
        return;
    SetChecked(Node->GetValue());
    // Within a click the base class does not notice a state that an observer has put back.
    checkStateSet();
}
