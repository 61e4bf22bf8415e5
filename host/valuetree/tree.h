#pragma once

#include "hostexport.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>

class IObserver;
class Observable;
class TreeItem;
class ValueBase;

/// The application-wide registry of values. A path is the names of the branches and of the node, joined by "/", and is
/// compared as text: "/A/b" and "A/b" are two paths. Branches come with the first node below them and vanish with the
/// last; a node may have others below it.
///
/// The tree lives to the end of the process. It then deletes the nodes that nobody observes, and leaves the others to
/// the makers that still hold them. For the GUI thread only.
class ORBEL_HOST_EXPORT Tree
{
public:
    /// The one tree of the process.
    static Tree *Instance();

    Tree(const Tree &) = delete;
    Tree &operator=(const Tree &) = delete;

    /// The node at the full path; null when there is none. Costs constant time.
    ValueBase *GetNode(const QString &path) const;
    /// Enters the node below `nodePath` under its name: the full path is both with one "/" between, unless `nodePath`
    /// is empty or ends in "/". True when the tree owns the node from now on. False, and nothing happens, for null, a
    /// node that is entered already or is going away, a name that is empty or has a "/", and a path that is taken.
    bool AddNode(const QString &nodePath, ValueBase *value);
    /// Notifies the observers of the node, while it is whole, that it is being destroyed, removes and deletes it. A
    /// path without a node does nothing.
    void RemoveNode(const QString &pathName);

    /// Notifies `observer`, which is not owned, with ekChangeState whenever a node is entered at the full path; the
    /// subject of the call is no node. It may remove that node, or end the form whose node it is.
    void ObservePath(const QString &path, IObserver *observer);
    /// Must be called before the observer ends; one that does not observe the path is none.
    void StopObservingPath(const QString &path, IObserver *observer);

    /// The full paths of all nodes, sorted.
    QStringList GetPaths() const;
    /// The names of the branches and nodes directly below a path, sorted. An empty path gives the topmost names, "/"
    /// those behind a leading slash. Any other "/" at the end does not matter.
    QStringList GetChildNames(const QString &path) const;

private:
    friend class TreeItem;
    friend struct TreeSweeper;

    Tree();
    ~Tree();
    TreeItem *FindItem(const QString &path) const;
    TreeItem *MakeItem(const QString &path);
    void TakeOut(TreeItem *item);
    void Sweep();

    std::unique_ptr<TreeItem> Root;
    QHash<QString, TreeItem *> Entered;
    QHash<QString, std::shared_ptr<Observable>> Awaited;
};
