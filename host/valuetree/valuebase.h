#pragma once

#include "ideletesubject.h"
#include "ihastimercallback.h"
#include "ioptimizetrigger.h"
#include "isupporttransaction.h"
#include "ivalue.h"
#include "observable.h"

#include <QByteArray>

/// The common part of all nodes of the value tree. A node is made with `new` and handed to Tree::AddNode(), which owns
/// it from then on; its maker may delete it all the same, which takes it out of the tree.
///
/// Setting a value, state or limit to what it is already stores nothing and notifies nobody. While a transaction runs,
/// changes of value, limits and items are not notified.
class ORBEL_HOST_EXPORT ValueBase : public virtual Observable,
                                    public IValue,
                                    public IDeleteSubject,
                                    public Ember::IHasTimerCallback,
                                    public IOptimizeTrigger,
                                    public virtual ISupportTransaction
{
public:
    ValueBase(const QString &name, TValueState state);
    ~ValueBase() override;

    TValueState GetState() const override;
    void SetState(TValueState state, IObserver *except) override;
    void HasChanged(TChangeCode code, IObserver *except) override;

    /// The last part of the path.
    QString GetName() const;
    /// The full path; the bare name while the node is not entered.
    QString GetPathName() const;
    /// Renames a node that is not entered; an entered one keeps its name. Nobody is notified.
    void SetName(const QString &name, IObserver *except);
    /// The context in which QCoreApplication::translate() finds the texts of this node. Null means none. The texts
    /// themselves are stored and given untranslated.
    void SetTranslationNamespace(const char *context, IObserver *except);
    QByteArray GetTranslationNamespace() const;

    void SetDeleteObserver(ITreeItem *item) override;
    ITreeItem *GetDeleteObserver() const override;

    void StartTransaction(IObserver *observer) override;
    void EndTransaction(TChangeCode code, IObserver *except) override;
    bool IsTransactionActive() const override;

protected:
    /// Notifies with the codes in turn, unless a transaction runs. The node may be gone afterwards: a setter calls this
    /// last.
    void Announce(std::initializer_list<TChangeCode> codes, IObserver *except);
    /// Notifies the observers that the node is being destroyed, and removes it from the tree. Each class that can be
    /// instantiated calls this first in its destructor, while the node is whole; only the first call acts. False when
    /// an observer has deleted the node meanwhile.
    bool AnnounceEnd();

private:
    friend class Tree;
    friend class ValueTransaction;

    void LeaveTree();
    /// False when none runs.
    bool LeaveTransaction();

    QString Name;
    QByteArray TranslationNamespace;
    ITreeItem *Place = nullptr;
    TValueState State;
    int OpenTransactions = 0;
    bool Ending = false;
};
