#pragma once

#include "changecode.h"
#include "hostexport.h"

#include <initializer_list>
#include <memory>

class IObserver;
class ObserverList;

/// Keeps observers and notifies them of changes, in the order in which they were added. Observers are not owned; an
/// observer that ends first takes itself off.
class ORBEL_HOST_EXPORT Observable
{
public:
    Observable();
    Observable(const Observable &) = delete;
    Observable &operator=(const Observable &) = delete;
    virtual ~Observable();

    /// False, and no change, for null and for an observer that is on the list already. One that is added during a
    /// notification is notified from the next one on.
    virtual bool AddObserver(IObserver *observer);
    /// One that is removed during a notification is not notified any more.
    virtual void DeleteObserver(IObserver *observer);
    virtual void DeleteObservers();
    /// From the next notification on the observer is notified before all others; it is added when it is not on the
    /// list.
    virtual void MakeFirstObserver(IObserver *observer);
    /// Calls Update() on all observers but `except`, which may be null.
    virtual void NotifyObservers(TChangeCode code, IObserver *except);

    /// Whether anybody is on the list.
    bool HasObservers() const;

protected:
    /// Notifies with one code after the other and stops when an observer deletes this object: then it gives false, and
    /// the caller must not touch its members any more.
    bool NotifyInTurn(std::initializer_list<TChangeCode> codes, IObserver *except);

private:
    std::shared_ptr<ObserverList> Observers;
};
