#pragma once

#include <QSet>

class QScriptEngine;
class QScriptValue;
struct QMetaObject;

namespace KV218
{

/// Teaches an engine the types of signals, slots and invokables that it does not know by itself.
void RegisterScriptTypes(QScriptEngine *engine);

/// Which classes have the prototype of all objects for their own, too. An engine searches for one at each object that
/// it is given, from the object's class to QObject, by the names of their types.
class ScriptPrototypes
{
public:
    /// Takes the prototype of the first object of a class for all that come. The class's type has to be registered.
    void Keep(QScriptEngine &engine, const QMetaObject *meta, const QScriptValue &object);

private:
    QSet<const QMetaObject *> Given;
};

} // namespace KV218
