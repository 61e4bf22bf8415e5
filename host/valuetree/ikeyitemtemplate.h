#pragma once

#include "hostexport.h"

namespace valueitemmap
{

/// An item that carries an id, which a map may take as its key.
template <class Key> class ORBEL_HOST_EXPORT IKeyItemTemplate
{
public:
    virtual ~IKeyItemTemplate() = default;

    /// The id; any number.
    virtual void SetID(Key id) = 0;
    virtual Key GetID() const = 0;
};

} // namespace valueitemmap
