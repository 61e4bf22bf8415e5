#pragma once

#include "iobserver.h"
#include "observable.h"
#include "valuestate.h"

#include <utility>

namespace Orbel
{

/// Owns a node that an observer watches: attaches the observer, detaches it and deletes the node at the end, and lets
/// go of a node that is destroyed before. Movable, so that a list of nodes is a list of these.
template <class Node> class OwnedNode
{
public:
    /// `observer` is not owned and outlives this.
    explicit OwnedNode(IObserver *observer) : Observer(observer) { }
    OwnedNode(OwnedNode &&other) noexcept : Observer(other.Observer)
    {
        Held = std::exchange(other.Held, nullptr);
        Side = std::exchange(other.Side, nullptr);
    }
    OwnedNode &operator=(OwnedNode &&other) noexcept
    {
        std::swap(Observer, other.Observer);
        std::swap(Held, other.Held);
        std::swap(Side, other.Side);
        return *this;
    }
    ~OwnedNode() { Delete(); }

    /// Owns `node`, or nothing when it is null, in place of the node it had, which is deleted.
    void Adopt(Node *node)
    {
        if (node == Held)
            return;
        Delete();
        Held = node;
        Side = node;
        if (Side)
            Side->AddObserver(Observer);
    }
    /// Stops watching and gives the node to the caller; null when there is none.
    Node *Detach()
    {
        if (Observable *side = std::exchange(Side, nullptr))
            side->DeleteObserver(Observer);
        return std::exchange(Held, nullptr);
    }
    /// Stops watching and leaves the node to whoever deletes it.
    void Forget() { Detach(); }

    /// Whether a notification came from this node.
    bool IsSubject(const Observable *subject) const { return Side && subject == Side; }
    /// True for a value change of this node. Drops the node if the notification announces its destruction.
    bool TakeNotification(Observable *subject, TChangeCode code)
    {
        if (!IsSubject(subject))
            return false;
        if (code == ekChangeState && Held->GetState() == ekStateDeleted)
            Forget();
        return code == ekChangeValue;
    }

    /// The node; null, and not to be followed, without one.
    Node *get() const { return Held; }
    Node *operator->() const { return Held; }
    Node &operator*() const { return *Held; }
    explicit operator bool() const { return Held; }

private:
    void Delete()
    {
        Node *const node = Detach();
        // One that is going already is deleted by whoever began it.
        if (node && node->GetState() != ekStateDeleted)
            delete node;
    }

    IObserver *Observer;
    Node *Held = nullptr;
    // Kept apart: a node that is half destroyed cannot be asked for its virtual base.
    Observable *Side = nullptr;
};

} // namespace Orbel
