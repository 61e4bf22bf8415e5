#pragma once

#include "changecode.h"
#include "hostexport.h"
#include "valuestate.h"
#include "valuetype.h"

#include <QString>

class Command;
class CommandListOptimizer;
class IObserver;
class ValueBase;

/// What all nodes can do, whatever they hold. The observer in an argument is the one who makes the change and is not
/// notified of it; null notifies everybody.
///
/// Commands, their recording, and timers are for hosts whose nodes stand for values of a remote device. The nodes of
/// this library stand for themselves: they answer as told below, and call none of it. A host's own node overrides what
/// it needs; Command and CommandListOptimizer are then classes of that host.
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
    /// Notifies as if something had changed, unless a transaction runs.
    virtual void HasChanged(TChangeCode code, IObserver *except) = 0;
    /// The command that gives the value to the device; empty here.
    virtual QString GetCommandStringForTransmission() const { return QString(); }
    /// Takes over what a command of the device tells. False, and no change, for one that tells nothing, as all do here.
    virtual bool SetCommandString(const QString &, IObserver *) { return false; }
    virtual bool SetCommandString(const Command &, IObserver *) { return false; }
    virtual ValueType GetType() const = 0;
    /// The type for people who read a trace; not translated.
    virtual QString GetTypeName() const = 0;
    /// Takes over value, and limits or items, of a node of the same type; from another type the value as text.
    virtual void Assign(const ValueBase &other) = 0;
    /// Whether the other node has the same type, value, and limits or items. Never true for null.
    virtual bool Compare(const ValueBase *other) const = 0;
    /// The command that brings the value back from a recording; empty here.
    virtual QString GetCommandStringForRecording() const { return QString(); }
    /// In milliseconds. No timer runs here, and so this and the next two do nothing.
    virtual void SetUpdateTimerTime(int) { }
    virtual void OverrideTimer() { }
    virtual void KillOverrideTimer() { }
    /// What shortens a list of commands before it is sent, owned by the caller. Null here: there are none to shorten.
    virtual CommandListOptimizer *CreateCommandListOptimizer() { return nullptr; }
};
