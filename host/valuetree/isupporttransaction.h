#pragma once

#include "changecode.h"
#include "hostexport.h"

class IObserver;

/// A span of changes that notifies once. Transactions nest; the end of the outermost one notifies.
class ORBEL_HOST_EXPORT ISupportTransaction
{
public:
    virtual ~ISupportTransaction() = default;

    /// Keeps back all notifications until the end.
    virtual void StartTransaction(IObserver *observer) = 0;
    /// Notifies once with `code` all observers but the given one, whatever changed. Without a start it does nothing.
    virtual void EndTransaction(TChangeCode code, IObserver *except) = 0;
    virtual bool IsTransactionActive() const = 0;
};
