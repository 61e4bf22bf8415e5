#include "scripttypes.h"

#include "applymode.h"
#include "orbeldelegate.h"

#include <QScriptEngine>

namespace KV218
{

namespace
{

QScriptValue ApplyModeToScript(QScriptEngine *, const eApplyMode &mode)
{
    return QScriptValue(int(mode));
}

void ApplyModeFromScript(const QScriptValue &value, eApplyMode &mode)
{
    mode = eApplyMode(value.toInt32());
}

} // namespace

void RegisterScriptTypes(QScriptEngine *engine)
{
    // The meta-objects record the mode's name without its namespace.
    qRegisterMetaType<eApplyMode>("eApplyMode");
    qRegisterMetaType<OrbelDelegate *>();
    qScriptRegisterMetaType(engine, ApplyModeToScript, ApplyModeFromScript);
    qScriptRegisterSequenceMetaType<QList<QString>>(engine);
}

} // namespace KV218
