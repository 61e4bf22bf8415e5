#pragma once

#include "orbeldelegate.h"
#include "ownednode.h"

#include <QPointer>

namespace KV218
{

/// What controls with one node and one Qt control have in common. `Node` is the class of the node, which the delegate
/// owns and watches; `Widget` the class of the control, which belongs to its parent widget.
template <class Node, class Widget> class BoundDelegate : public OrbelDelegate
{
public:
    explicit BoundDelegate(OrbelWidget *widget) : OrbelDelegate(widget), ValueNode(this) { }

    ValueBase *GetVTValue() const override { return ValueNode.get(); }
    QVector<Face> GetFaces() const override { return {{Control.data()}}; }

protected:
    /// Gives the control the keyboard focus; nothing before CreateGUI().
    void FocusControl()
    {
        if (Control)
            Control->setFocus();
    }
    /// Commits what is typed into a control that takes typing; nothing before CreateGUI().
    void FinishControl()
    {
        if (Control)
            Control->endEdit();
    }

    /// Null before CreateValueTree(), when the tree refused the node, and once the node is withdrawn.
    Orbel::OwnedNode<Node> ValueNode;
    /// Null before CreateGUI() and once the window was destroyed.
    QPointer<Widget> Control;
};

} // namespace KV218
