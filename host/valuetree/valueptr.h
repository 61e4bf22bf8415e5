#pragma once

#include "iobserver.h"
#include "lxexception.h"
#include "tree.h"
#include "valuebase.h"

#include <memory>

/// Points to a node of the tree without owning it, and to null once the node is destroyed.
template <class T> class ValuePtr : public IObserver
{
public:
    ValuePtr() = default;
    ValuePtr(const ValuePtr &) = delete;
    ValuePtr &operator=(const ValuePtr &) = delete;
    ~ValuePtr() override { Detach(); }

    void Update(Observable *subject, TChangeCode code) override
    {
        if (IsEnd(subject, code))
            LetGo();
    }
    /// Removes the node from the tree, which deletes it. Null afterwards.
    virtual void ReleaseNode()
    {
        if (!Node)
            return;
        const T *node = Node;
        const QString path = Node->GetPathName();
        Detach();
        Node = nullptr;
        Side = nullptr;
        // A node that the tree did not take has only its name, and that may be another node's path.
        if (static_cast<const ValueBase *>(node) != Tree::Instance()->GetNode(path)) {
            Homeless.reset();
            return;
        }
        Homeless.release();
        // Last: whoever is notified of the removal may destroy this pointer.
        Tree::Instance()->RemoveNode(path);
    }
    /// Points to this node from now on, which may be null.
    virtual void AttachNode(T *node)
    {
        // One that is being destroyed would not notify again.
        if (node && node->GetState() == ekStateDeleted)
            node = nullptr;
        if (node == Node)
            return;
        Detach();
        Node = node;
        Side = node;
        if (Side)
            Side->AddObserver(this);
        if (Homeless.get() != node)
            Homeless.reset();
    }

    /// Points to the `T` at the full path; to null, and false, when there is none.
    bool BindNode(const QString &path)
    {
        AttachNode(nullptr);
        T *node = dynamic_cast<T *>(Tree::Instance()->GetNode(path));
        AttachNode(node);
        return Node;
    }
    /// Points to the `T` at the full path, and makes it when there is none: true when it is new. The tree owns it; one
    /// that the tree does not take, since something else is there, lives as long as this pointer holds it.
    bool CreateNode(const QString &path);

    /// The node; null, and not to be followed, without one.
    T *get() const { return Node; }
    T *operator->() const { return Node; }
    T &operator*() const { return *Node; }
    explicit operator bool() const { return Node; }

protected:
    /// Whether the held node notifies that it is being destroyed.
    bool IsEnd(Observable *subject, TChangeCode code) const
    {
        return Side && subject == Side && code == ekChangeState && Node->GetState() == ekStateDeleted;
    }
    /// The held node as its observers see it; null without one.
    Observable *HeldSide() const { return Side; }

private:
    void Detach()
    {
        if (Side)
            Side->DeleteObserver(this);
    }
    void LetGo()
    {
        Detach();
        Node = nullptr;
        Side = nullptr;
        Homeless.release();
    }

    T *Node = nullptr;
    // Kept apart: a node that is half destroyed cannot be asked for its virtual base.
    Observable *Side = nullptr;
    std::unique_ptr<T> Homeless;
};

template <class T> bool ValuePtr<T>::CreateNode(const QString &path)
{
    if (BindNode(path))
        return false;
    const int name = path.lastIndexOf(QLatin1Char('/')) + 1;
    auto *const made = new T;
    made->SetName(path.mid(name), nullptr);
    // Before the tree has it: whoever awaits the path may remove the node at once.
    AttachNode(made);
    bool entered = false;
    try {
        entered = Tree::Instance()->AddNode(path.left(name), made);
    } catch (const LxException &) {
        // The form works without the tree's help, only nobody else finds the node.
    }
    if (!entered)
        Homeless.reset(Node);
    return true;
}
