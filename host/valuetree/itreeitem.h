#pragma once

#include "hostexport.h"

#include <QString>

/// The tree's side of the link between a node and its place.
class ORBEL_HOST_EXPORT ITreeItem
{
public:
    virtual ~ITreeItem() = default;

    /// The full path of the place.
    virtual QString GetPathName() const = 0;
    /// The node leaves its place; the item may be gone afterwards.
    virtual void SubjectDeleted() = 0;
};
