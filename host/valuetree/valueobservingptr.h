#pragma once

#include "valueptr.h"

/// A ValuePtr that lets someone else observe the node for as long as it points there.
template <class T> class ValueObservingPtr : public ValuePtr<T>
{
public:
    /// `second` is not owned and outlives this pointer; null is nobody.
    explicit ValueObservingPtr(IObserver *second) : Second(second) { }
    ~ValueObservingPtr() override { DetachSecond(); }

    void Update(Observable *subject, TChangeCode code) override
    {
        if (this->IsEnd(subject, code))
            DetachSecond();
        ValuePtr<T>::Update(subject, code);
    }
    void ReleaseNode() override
    {
        DetachSecond();
        ValuePtr<T>::ReleaseNode();
    }
    void AttachNode(T *node) override
    {
        if (node && node->GetState() == ekStateDeleted)
            node = nullptr;
        if (node == this->get())
            return;
        DetachSecond();
        if (node)
            node->AddObserver(Second);
        ValuePtr<T>::AttachNode(node);
    }

private:
    void DetachSecond()
    {
        if (this->HeldSide())
            this->HeldSide()->DeleteObserver(Second);
    }

    IObserver *Second;
};
