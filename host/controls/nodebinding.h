#pragma once

#include "iobserver.h"
#include "operatoract.h"
#include "survives.h"
#include "valuebase.h"

#include <utility>

namespace Orbel
{

/// What a bound control holds of its node: observes it for the control, and releases it when it is destroyed. `Node` is
/// ValueBase, a class derived from it, or an interface that the node has beside it.
template <class Node> class NodeBinding
{
public:
    /// `observer` is the control; it is not owned and outlives this.
    explicit NodeBinding(IObserver *observer) : Observer(observer) { }
    NodeBinding(const NodeBinding &) = delete;
    NodeBinding &operator=(const NodeBinding &) = delete;
    ~NodeBinding() { Release(); }

    /// Watches `node`, which is not owned, in place of the one before. False, and no node at all, for null and for a
    /// node that is going away.
    bool Bind(Node *node)
    {
        Release();
        auto *base = dynamic_cast<ValueBase *>(node);
        if (!base || base->GetState() == ekStateDeleted)
            return false;
        Held = node;
        Base = base;
        Side = base;
        Side->AddObserver(Observer);
        return true;
    }

    /// Ends the binding; nothing without one.
    void Release()
    {
        if (Observable *side = std::exchange(Side, nullptr))
            side->DeleteObserver(Observer);
        Held = nullptr;
        Base = nullptr;
    }

    /// True for a notification after which the bound node has to be shown anew: every one but a change of state.
    /// Releases the node if the notification announces its destruction.
    bool TakeNotification(const Observable *subject, TChangeCode code)
    {
        if (!Side || subject != Side)
            return false;
        if (code == ekChangeState && Base->GetState() == ekStateDeleted)
            Release();
        return code != ekChangeState;
    }

    /// Runs `set`, by which the operator sets the node and which leaves `control` out, and has the control show what
    /// the node holds then; `session` as of OperatorAct. False when somebody who was told has deleted the control,
    /// which holds this.
    template <class Control, class Set> bool Write(Control *control, const Set &set, int session = 0)
    {
        const OperatorAct act(Base, session);
        return Survives(control, set)
            && (!Side || Survives(control, [this, control] { control->Update(Side, ekChangeValue); }));
    }

    /// The bound node; null without one.
    Node *get() const { return Held; }
    Node *operator->() const { return Held; }
    explicit operator bool() const { return Held; }

private:
    IObserver *Observer;
    Node *Held = nullptr;
    ValueBase *Base = nullptr;
    // Kept apart: a node that is half destroyed cannot be asked for its virtual base.
    Observable *Side = nullptr;
};

} // namespace Orbel
