#pragma once

#include "changecode.h"
#include "hostexport.h"
#include "valuestate.h"
#include "valuetype.h"

#include <QString>

class IObserver;
class ValueBase;

/// What all nodes can do, whatever they hold. The observer in an argument is the one who makes the change and is not
/// told of it; null tells everybody.
class ORBEL_HOST_EXPORT IValue
{
public:
    virtual ~IValue() = default;

    /// Stores the value that the text stands for. A text that stands for none changes nothing.
    virtual void SetStringValue(QString text, IObserver *except) = 0;
    /// The value as text, the same in every language; SetStringValue() takes it back to the same value.
    virtual QString GetStringValue() const = 0;
    virtual TValueState GetState() const = 0;
    virtual void SetState(TValueState state, IObserver *except) = 0;
    /// Notifies as if something had changed.
    virtual void HasChanged(TChangeCode code, IObserver *except) = 0;
    virtual ValueType GetType() const = 0;
    /// The type for people who read a trace; not translated.
    virtual QString GetTypeName() const = 0;
    /// Takes over value, and limits or items, of a node of the same type; from another type the value as text.
    virtual void Assign(const ValueBase &other) = 0;
    /// Whether the other node has the same type, value, and limits or items. Never true for null.
    virtual bool Compare(const ValueBase *other) const = 0;
};
