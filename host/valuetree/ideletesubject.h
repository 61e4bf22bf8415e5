#pragma once

#include "hostexport.h"

class ITreeItem;

/// Something that notifies its place in the tree when its maker deletes it.
class ORBEL_HOST_EXPORT IDeleteSubject
{
public:
    virtual ~IDeleteSubject() = default;

    /// Called by the tree; the item is not owned, null means that the node is not entered.
    virtual void SetDeleteObserver(ITreeItem *item) = 0;
    virtual ITreeItem *GetDeleteObserver() const = 0;
};
