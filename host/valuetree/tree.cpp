#include "tree.h"

#include "itreeitem.h"
#include "valuebase.h"

#include <algorithm>

static const QLatin1Char PathSeparator('/');

/// One place of the tree: a branch, which keeps what is below it, with or without a node of its own.
class TreeItem : public ITreeItem
{
public:
    TreeItem(TreeItem *parent, const QString &name) : Parent(parent), Name(name) { }

    QString GetPathName() const override { return Path; }
    void SubjectDeleted() override { Tree::Instance()->TakeOut(this); }

    TreeItem *const Parent;
    const QString Name;
    QHash<QString, TreeItem *> Children;
    /// Both are set while a node is entered here.
    QString Path;
    ValueBase *Node = nullptr;
};

/// Clears the tree when the process ends. The tree itself stays: what ends still later may ask it.
struct TreeSweeper {
    Tree *Swept;
    ~TreeSweeper() { Swept->Sweep(); }
};

Tree::Tree() : Root(std::make_unique<TreeItem>(nullptr, QString())) { }

Tree::~Tree() = default;

Tree *Tree::Instance()
{
    // Not deleted: makers with static storage delete their nodes after the sweep.
    static Tree *const instance = new Tree;
    static const TreeSweeper sweeper{instance};
    return instance;
}

ValueBase *Tree::GetNode(const QString &path) const
{
    const TreeItem *item = Entered.value(path);
    return item ? item->Node : nullptr;
}

bool Tree::AddNode(const QString &nodePath, ValueBase *value)
{
    // A node with a delete observer has its place already.
    if (!value || value->Ending || value->GetDeleteObserver())
        return false;
    const QString name = value->GetName();
    if (name.isEmpty() || name.contains(PathSeparator))
        return false;
    const bool closed = nodePath.isEmpty() || nodePath.endsWith(PathSeparator);
    const QString path = closed ? nodePath + name : nodePath + PathSeparator + name;
    if (Entered.contains(path))
        return false;
    TreeItem *item = MakeItem(path);
    item->Path = path;
    item->Node = value;
    Entered.insert(path, item);
    value->SetDeleteObserver(item);
    // A copy: an observer may stop observing.
    if (const std::shared_ptr<Observable> place = Awaited.value(path))
        place->NotifyObservers(ekChangeState, nullptr);
    return true;
}

void Tree::ObservePath(const QString &path, IObserver *observer)
{
    std::shared_ptr<Observable> &place = Awaited[path];
    if (!place)
        place = std::make_shared<Observable>();
    place->AddObserver(observer);
}

void Tree::StopObservingPath(const QString &path, IObserver *observer)
{
    const std::shared_ptr<Observable> place = Awaited.value(path);
    if (!place)
        return;
    place->DeleteObserver(observer);
    if (!place->HasObservers())
        Awaited.remove(path);
}

void Tree::RemoveNode(const QString &pathName)
{
    ValueBase *node = GetNode(pathName);
    // A node that is going already is deleted by whoever began it.
    if (node && !node->Ending && node->AnnounceEnd())
        delete node;
}

QStringList Tree::GetPaths() const
{
    QStringList paths = Entered.keys();
    paths.sort();
    return paths;
}

QStringList Tree::GetChildNames(const QString &path) const
{
    const QString place = path.endsWith(PathSeparator) ? path.chopped(1) : path;
    const TreeItem *item = path.isEmpty() ? Root.get() : FindItem(place);
    QStringList names = item ? item->Children.keys() : QStringList();
    names.sort();
    return names;
}

TreeItem *Tree::FindItem(const QString &path) const
{
    TreeItem *item = Root.get();
    for (const QString &name : path.split(PathSeparator)) {
        item = item->Children.value(name);
        if (!item)
            break;
    }
    return item;
}

TreeItem *Tree::MakeItem(const QString &path)
{
    TreeItem *item = Root.get();
    for (const QString &name : path.split(PathSeparator)) {
        TreeItem *&child = item->Children[name];
        if (!child)
            child = new TreeItem(item, name);
        item = child;
    }
    return item;
}

/// Ends an item's node, and the branches above that have become empty: upwards in a loop, since paths may be long.
void Tree::TakeOut(TreeItem *item)
{
    Entered.remove(item->Path);
    item->Node->SetDeleteObserver(nullptr);
    item->Node = nullptr;
    item->Path.clear();
    while (item->Parent && !item->Node && item->Children.isEmpty()) {
        TreeItem *parent = item->Parent;
        parent->Children.remove(item->Name);
        delete item;
        item = parent;
    }
}

void Tree::Sweep()
{
    // By path, since the end of one node may be the end of others.
    const QStringList paths = Entered.keys();
    for (const QString &path : paths) {
        ValueBase *node = GetNode(path);
        if (node && !node->HasObservers())
            delete node;
    }
}
