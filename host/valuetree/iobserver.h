#pragma once

#include "changecode.h"
#include "hostexport.h"

class Observable;

/// Someone who is notified of changes.
class ORBEL_HOST_EXPORT IObserver
{
public:
    IObserver() = default;
    virtual ~IObserver() = default;

    /// `subject` is the Observable side of the node that changed. It may be called from inside a setter; observers may
    /// come and go, change the value again and delete the subject in here.
    virtual void Update(Observable *subject, TChangeCode code) = 0;

protected:
    IObserver(const IObserver &) = default;
    IObserver &operator=(const IObserver &) = default;
};
