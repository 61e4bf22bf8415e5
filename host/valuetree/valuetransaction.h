#pragma once

#include "iobserver.h"

#include <initializer_list>
#include <vector>

class ValueBase;

/// A transaction on a node that ends with its scope: starts it, and its destructor notifies with the codes in turn, if
/// none other still runs, all observers but `except`. No codes end it silently. The node may be destroyed before. What
/// an observer throws at the end is traced and goes no further.
class ORBEL_HOST_EXPORT ValueTransaction : private IObserver
{
public:
    ValueTransaction(ValueBase &node, std::initializer_list<TChangeCode> codes, IObserver *except);
    ValueTransaction(const ValueTransaction &) = delete;
    ValueTransaction &operator=(const ValueTransaction &) = delete;
    ~ValueTransaction() override;

private:
    void Update(Observable *subject, TChangeCode code) override;
    void TellCodes();

    /// Null once the node is destroyed.
    ValueBase *Node = nullptr;
    std::vector<TChangeCode> Codes;
    IObserver *Except;
};
