#include "scriptclass.h"

#include "registry.h"

#include <QMetaMethod>

#include <algorithm>

namespace Orbel
{

int ScriptMethod::Least() const
{
    const auto isShorter = [](const QList<QByteArray> &a, const QList<QByteArray> &b) { return a.size() < b.size(); };
    return std::min_element(Overloads.cbegin(), Overloads.cend(), isShorter)->size();
}

int ScriptMethod::Most() const
{
    const auto isShorter = [](const QList<QByteArray> &a, const QList<QByteArray> &b) { return a.size() < b.size(); };
    return std::max_element(Overloads.cbegin(), Overloads.cend(), isShorter)->size();
}

QByteArray ScriptMethod::TypeOf(int argument, int count) const
{
    QByteArray type;
    for (const QList<QByteArray> &overload : Overloads) {
        if (overload.size() != count || argument >= count)
            continue;
        if (!type.isEmpty() && type != overload.at(argument))
            return QByteArray();
        type = overload.at(argument);
    }
    return type;
}

const ScriptClass &ScriptClass::Of(const QString &className)
{
    static QHash<QString, ScriptClass> known;
    const auto found = known.constFind(className);
    if (found != known.constEnd())
        return *found;
    ScriptClass made;
    const QMetaObject *metaObject = Registry::MetaObjectOf(className);
    for (int i = 0; i < metaObject->methodCount(); ++i) {
        const QMetaMethod method = metaObject->method(i);
        if (method.access() == QMetaMethod::Private)
            continue;
        ScriptMethod &entry = made.Methods[QString::fromLatin1(method.name())];
        entry.IsSignal = entry.IsSignal || method.methodType() == QMetaMethod::Signal;
        entry.Overloads.append(method.parameterTypes());
        entry.Result = method.typeName();
    }
    return *known.insert(className, made);
}

const ScriptMethod *ScriptClass::Find(const QString &name) const
{
    const auto found = Methods.constFind(name);
    return found == Methods.constEnd() ? nullptr : &*found;
}

} // namespace Orbel
