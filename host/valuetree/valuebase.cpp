#include "valuebase.h"

#include "exceptionstop.h"
#include "itreeitem.h"

ValueBase::ValueBase(const QString &name, TValueState state) : Name(name), State(state) { }

ValueBase::~ValueBase()
{
    // For a class that has not notified the observers itself: late, but before they are left with nothing.
    AnnounceEnd();
    LeaveTree();
}

TValueState ValueBase::GetState() const
{
    return State;
}

void ValueBase::SetState(TValueState state, IObserver *except)
{
    if (state == State)
        return;
    State = state;
    // Not held back by a transaction: an observer must let go before the node is destroyed.
    NotifyObservers(ekChangeState, except);
}

void ValueBase::HasChanged(TChangeCode code, IObserver *except)
{
    Announce({code}, except);
}

QString ValueBase::GetName() const
{
    return Name;
}

QString ValueBase::GetPathName() const
{
    return Place ? Place->GetPathName() : Name;
}

void ValueBase::SetName(const QString &name, IObserver *)
{
    // The tree finds an entered node by its name.
    if (!Place)
        Name = name;
}

void ValueBase::SetTranslationNamespace(const char *context, IObserver *except)
{
    const QByteArray before = TranslationNamespace;
    TranslationNamespace = context;
    if (TranslationNamespace != before)
        Announce({ekChangeItems}, except);
}

QByteArray ValueBase::GetTranslationNamespace() const
{
    return TranslationNamespace;
}

void ValueBase::SetDeleteObserver(ITreeItem *item)
{
    Place = item;
}

ITreeItem *ValueBase::GetDeleteObserver() const
{
    return Place;
}

void ValueBase::StartTransaction(IObserver *)
{
    ++OpenTransactions;
}

void ValueBase::EndTransaction(TChangeCode code, IObserver *except)
{
    if (LeaveTransaction())
        Announce({code}, except);
}

bool ValueBase::IsTransactionActive() const
{
    return OpenTransactions > 0;
}

void ValueBase::Announce(std::initializer_list<TChangeCode> codes, IObserver *except)
{
    if (OpenTransactions == 0)
        NotifyInTurn(codes, except);
}

bool ValueBase::AnnounceEnd()
{
    if (Ending)
        return true;
    Ending = true;
    State = ekStateDeleted;
    // Most nodes end in their destructor, which no exception leaves.
    const Orbel::ExceptionStop::Zone zone;
    // The place is left last: in here the observers still find out which path goes.
    if (!NotifyInTurn({ekChangeState}, nullptr))
        return false;
    LeaveTree();
    return true;
}

bool ValueBase::LeaveTransaction()
{
    if (OpenTransactions == 0)
        return false;
    --OpenTransactions;
    return true;
}

void ValueBase::LeaveTree()
{
    if (Place)
        Place->SubjectDeleted();
}
