#pragma once

class QScriptEngine;

namespace KV218
{

/// Teaches an engine the types of signals, slots and invokables that it does not know by itself.
void RegisterScriptTypes(QScriptEngine *engine);

} // namespace KV218
