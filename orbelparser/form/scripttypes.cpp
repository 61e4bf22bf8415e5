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

void ScriptPrototypes::Keep(QScriptEngine &engine, const QMetaObject *meta, const QScriptValue &object)
{
    if (Given.contains(meta))
        return;
    Given.insert(meta);
    const int type = QMetaType::type(QByteArray(meta->className()) + '*');
    if (type != QMetaType::UnknownType)
        engine.setDefaultPrototype(type, object.prototype());
}

} // namespace KV218
